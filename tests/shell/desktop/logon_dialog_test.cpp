#include "shell/desktop/logon_dialog.h"

#include "screenshots.h"
#include "support/fake_connection.h"
#include "support/fake_driver_manager.h"
#include "support/recorded_errors.h"
#include "support/recorded_pointer.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"
#include "widgets.h"

#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

const QString kOdbc = u"Microsoft OLE DB Provider for ODBC"_s;
const QString kSqlServer = u"Microsoft OLE DB Provider for SQL Server"_s;

class LogonDialogTest : public ::testing::Test
{
  protected:
    LogonSurroundings Surroundings()
    {
        return {.Asking = messages_,
                .Errors = errors_,
                .Files = files_,
                .Pointer = pointer_,
                .Installed = installed_,
                .Connect = [this](const std::string& text, StringOrigin) { return Connect(text); },
                .ActiveConnection = shared_};
    }

    std::unique_ptr<DataSourceConnection> Connect(const std::string& text)
    {
        if (fails_)
            throw DataSourceError(data_source_error::kFailed, "ODBC", "refused");
        auto connection = std::make_unique<FakeConnection>();
        connection->Open(text);
        return connection;
    }

    LogonDialog& Shown(LogonPurpose purpose = LogonPurpose::NewDataSource)
    {
        rules_ = std::make_unique<frmODBCLogon>(project_, purpose, LogonMode::Normal, Surroundings());
        rules_->Load();
        dialog_ = std::make_unique<LogonDialog>(*rules_, nullptr);
        dialog_->show();
        return *dialog_;
    }

    // The page in front, whose controls have the same names as those of the others.
    QWidget& Page() { return *Find<QTabWidget>(*dialog_, "tabMain").currentWidget(); }

    // By the keys, from the first row on.
    void Choose(QWidget& window, const char* box, const QString& row)
    {
        auto& combo = Find<QComboBox>(window, box);
        combo.setFocus();
        QTest::keyClick(&combo, Qt::Key_Home);
        for (int step = 0; step < combo.findText(row); ++step)
            QTest::keyClick(&combo, Qt::Key_Down);
        EXPECT_EQ(combo.currentText(), row);
    }

    std::string Text(const char* name) { return Find<QLineEdit>(Page(), name).text().toStdString(); }

    void Drop(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(dialog_.get(), &enter);
        if (!enter.isAccepted())
            return;
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        const std::size_t told = messages_.Asked().size();
        QCoreApplication::sendEvent(dialog_.get(), &drop);
        EXPECT_EQ(messages_.Asked().size(), told) << "the other program waits for the end of its drag";
        QCoreApplication::processEvents();
    }

    TTCProject project_;
    FakeDriverManager installed_;
    ScriptedMessages messages_;
    RecordedErrors errors_;
    ScriptedFileDialogs files_;
    RecordedPointer pointer_;
    std::unique_ptr<DataSourceConnection> shared_;
    bool fails_ = false;
    std::unique_ptr<frmODBCLogon> rules_;
    std::unique_ptr<LogonDialog> dialog_;
};

TEST_F(LogonDialogTest, OpensAnSqliteFileWithTheMouse)
{
    files_ = {"/data/Shop.db"};
    LogonDialog& dialog = Shown();
    EXPECT_EQ(dialog.windowTitle(), u"Open DataSource"_s);
    QTabBar* tabs = Find<QTabWidget>(dialog, "tabMain").tabBar();
    QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(0).center());
    EXPECT_EQ(Page().objectName(), u"page0"_s);
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbProviders").currentText(), kOdbc);
    Click(Page(), "optDSNLess");
    Choose(Page(), "cmbDrivers", u"SQLite3"_s);
    EXPECT_FALSE(Find<QLineEdit>(Page(), "txtServer").isEnabled());
    Click(Page(), "cmdBrowse");
    ASSERT_EQ(files_.AskedToOpen().size(), 1U);
    EXPECT_EQ(files_.AskedToOpen().front().Filter, "SQLite Databases|*.db;*.sqlite;*.sqlite3|All Files|*.*");
    EXPECT_EQ(Text("txtDatabase"), "/data/Shop.db");
    Click(dialog, "cmdOK");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(project_.ConnectionString(), "PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;Database=/data/Shop.db;");
}

TEST_F(LogonDialogTest, TakesWhatIsTypedOnEachPage)
{
    LogonDialog& dialog = Shown();
    Choose(dialog, "cmbProviders", kOdbc);
    Choose(Page(), "cmbDSN", u"Shop"_s);
    Type(Page(), "txtDatabase", "shop");
    Type(Page(), "txtUID", "ann");
    Type(Page(), "txtPWD", "sec ret");
    EXPECT_EQ(Find<QLineEdit>(Page(), "txtPWD").echoMode(), QLineEdit::Password);
    Choose(dialog, "cmbProviders", kSqlServer);
    EXPECT_EQ(Page().objectName(), u"page2"_s);
    EXPECT_EQ(Text("txtUID"), "");
    Choose(dialog, "cmbProviders", kOdbc);
    QTest::keyClick(&Find<QLineEdit>(Page(), "txtPWD"), Qt::Key_Return);
    EXPECT_EQ(project_.ConnectionString(), "PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=sec ret;Database=shop;");
}

TEST_F(LogonDialogTest, TabGoesFromTheProviderThroughThePageToTheButtons)
{
    LogonDialog& dialog = Shown();
    Choose(dialog, "cmbProviders", kOdbc);
    Click(Page(), "optDSNLess");
    Choose(Page(), "cmbDrivers", u"SQLite3"_s);
    dialog.activateWindow();
    Find<QComboBox>(dialog, "cmbProviders").setFocus();
    std::vector<std::string> names;
    for (int step = 0; step < 11; ++step) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        names.push_back(dialog.focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"qt_tabwidget_tabbar", "optUseDSN", "optDSNLess", "cmbDrivers", "txtDatabase",
                                        "cmdBrowse", "txtUID", "txtPWD", "txtDBPassword", "cmdOK", "cmdCancel"}));
}

TEST_F(LogonDialogTest, ShowsTheStringThatIsThere)
{
    project_.SetConnectionString("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;");
    project_.ConnectSameDirectory = true;
    LogonDialog& dialog = Shown(LogonPurpose::EditDataSource);
    EXPECT_EQ(dialog.windowTitle(), u"Edit DataSource"_s);
    EXPECT_EQ(Page().objectName(), u"page1"_s);
    EXPECT_EQ(Text("txtDatabase"), "/data/a.mdb");
    EXPECT_TRUE(Find<QAbstractButton>(Page(), "chkConnectSameDirectory").isChecked());
    EXPECT_FALSE(Find<QWidget>(Page(), "cmbDSN").isVisible());
    Photograph(dialog, "frmODBCLogon-jet");
}

TEST_F(LogonDialogTest, StaysAfterAFailureAndCancelLeavesTheProject)
{
    fails_ = true;
    LogonDialog& dialog = Shown();
    Type(Page(), "txtDatabase", "/data/a.mdb");
    Click(dialog, "cmdOK");
    EXPECT_EQ(errors_.Reported.size(), 1U);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(rules_->State(), DialogState::Closed);
    EXPECT_EQ(project_.ConnectionString(), "");
}

TEST_F(LogonDialogTest, GoesToTheControlThatIsMissing)
{
    installed_.Libraries.clear();
    installed_.Sources = {{"Bare", "/usr/lib/libx.so"}};
    LogonDialog& dialog = Shown();
    Choose(dialog, "cmbProviders", kOdbc);
    Click(Page(), "optDSNLess");
    Click(dialog, "cmdOK");
    EXPECT_EQ(messages_.Asked().back().Text, "Please select a database driver before continuing.");
    EXPECT_EQ(dialog.focusWidget(), &Find<QWidget>(Page(), "cmbDrivers"));
}

TEST_F(LogonDialogTest, TakesAFileThatIsDropped)
{
    LogonDialog& dialog = Shown();
    Drop({QUrl(u"https://quillmere.example/x.db"_s)});
    Drop({QUrl::fromLocalFile(u"/data/a.db"_s), QUrl::fromLocalFile(u"/data/b.db"_s)});
    EXPECT_EQ(Page().objectName(), u"page1"_s);
    Drop({QUrl::fromLocalFile(u"/data/Größe neu.db"_s)});
    EXPECT_EQ(Page().objectName(), u"page0"_s);
    EXPECT_EQ(Text("txtDatabase"), "/data/Größe neu.db");
    EXPECT_EQ(Find<QComboBox>(Page(), "cmbDrivers").currentText(), u"SQLite3"_s);
    Photograph(dialog, "frmODBCLogon-odbc");
}

TEST_F(LogonDialogTest, TakesNoFileWhileAnotherWindowStandsInFront)
{
    LogonDialog& dialog = Shown();
    QDialog inFront(&dialog);
    inFront.setModal(true);
    inFront.show();
    Drop({QUrl::fromLocalFile(u"/data/a.db"_s)});
    EXPECT_EQ(Page().objectName(), u"page1"_s);
    inFront.close();
    Drop({QUrl::fromLocalFile(u"/data/a.db"_s)});
    EXPECT_EQ(Page().objectName(), u"page0"_s);
}

TEST_F(LogonDialogTest, OffersNoServerProviderWithoutItsDriver)
{
    installed_.Libraries.erase("FreeTDS");
    installed_.Sources = {{"Shop", "PostgreSQL Unicode"}};
    LogonDialog& dialog = Shown();
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbProviders").count(), 2);
    auto& tabs = Find<QTabWidget>(dialog, "tabMain");
    tabs.setCurrentIndex(2);
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_FALSE(tabs.isTabEnabled(2));
    EXPECT_EQ(tabs.tabToolTip(2), u"Needs the ODBC driver FreeTDS: install tdsodbc"_s);
    EXPECT_TRUE(tabs.isTabEnabled(0) && tabs.isTabEnabled(1));
}

TEST_F(LogonDialogTest, OffersEveryPageWhoseDriverIsThere)
{
    auto& tabs = Find<QTabWidget>(Shown(), "tabMain");
    EXPECT_TRUE(tabs.isTabEnabled(0) && tabs.isTabEnabled(1) && tabs.isTabEnabled(2));
}

TEST_F(LogonDialogTest, AMessageOfThePastTakesNoFocus)
{
    LogonDialog& dialog = Shown();
    Choose(dialog, "cmbProviders", kOdbc);
    Click(Page(), "optDSNLess");
    rules_->Page().cmbDrivers.Selected.reset();
    Click(dialog, "cmdOK");
    ASSERT_FALSE(messages_.Asked().empty());
    EXPECT_EQ(messages_.Asked().back().Title, "No Driver Specified");
    EXPECT_EQ(dialog.focusWidget()->objectName(), u"cmbDrivers"_s);
    Click(Page(), "optUseDSN");
    EXPECT_EQ(dialog.focusWidget()->objectName(), u"optUseDSN"_s);
}

TEST_F(LogonDialogTest, LooksWellOnThePageOfSqlServer)
{
    LogonDialog& dialog = Shown();
    Choose(dialog, "cmbProviders", kSqlServer);
    Photograph(dialog, "frmODBCLogon-sqlserver");
}

} // namespace
} // namespace veldrane::testing
