#include "main_window_fixture.h"
#include "screenshots.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

// Looks at a help message, and wants to see it no more.
Act SeenAndTurnedOff(const QString& title, const char* picture)
{
    return [title, picture](QWidget& message) {
        EXPECT_EQ(message.objectName(), u"frmWarning"_s);
        EXPECT_EQ(message.windowTitle(), title);
        Photograph(message, picture);
        Click(message, "chkDoNotShow");
        Click(message, "cmdOK");
    };
}

void ChooseMonospacedFont(QWidget& options)
{
    Find<QTabWidget>(options, "tabMain").setCurrentWidget(&Find<QWidget>(options, "tabPreview"));
    Click(options, "cmdMonospacedFont");
    Click(options, "cmdOK");
}

void ResetFont(QWidget& options)
{
    Find<QTabWidget>(options, "tabMain").setCurrentWidget(&Find<QWidget>(options, "tabPreview"));
    Click(options, "cmdResetFont");
    Click(options, "cmdOK");
}

// The data source that the dialog offers first, under a login that was not there before.
Act ChooseShopAs(const char* login)
{
    return [login](QWidget& dialog) {
        auto& providers = Find<QComboBox>(dialog, "cmbProviders");
        providers.setFocus();
        QTest::keyClick(&providers, Qt::Key_Home);
        Type(Find<QWidget>(dialog, "page0"), "txtUID", login);
        Click(dialog, "cmdOK");
    };
}

TEST_F(MainWindowTest, ExplainsAnotherFontOfThePreviewUntilThePersonHasSeenIt)
{
    StartInShop();
    WithDialogs([&] { Tool("Options").trigger(); },
                {ChooseMonospacedFont, SeenAndTurnedOff(u"Changing the font of the preview"_s, "frmWarning-font")});
    WithDialogs([&] { Tool("Options").trigger(); }, {ResetFont});
    EXPECT_EQ(world_.UserSettings.GetKeyValue("Help", "warnPreviewPaneFontChange"), "1");
}

TEST_F(MainWindowTest, ExplainsAnotherDataSourceUntilThePersonHasSeenIt)
{
    StartWithClasses();
    WithDialogs([&] { Tool("OpenDatasource").trigger(); },
                {ChooseShopAs("ann"), SeenAndTurnedOff(u"Opening another data source"_s, "frmWarning-source")});
    WithDialogs([&] { Tool("OpenDatasource").trigger(); }, {ChooseShopAs("bob")});
    EXPECT_TRUE(HasNode(u"Customer"_s));
    EXPECT_EQ(rules_->Project().DataSourceLogin, "bob");
}

TEST_F(MainWindowTest, ExplainsAProcedureThatIsOpenedUntilThePersonHasSeenIt)
{
    StartWithClasses();
    auto& procedures = Find<QTreeView>(*window_, "lstSPs");
    Find<QTabWidget>(*window_, "tabDatasource").setCurrentIndex(2);
    const QModelIndex row = Entry(procedures, u"GetOrders"_s);
    const QPoint place = procedures.visualRect(row).center();
    WithDialogs(
        [&] {
            QTest::mouseClick(procedures.viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(procedures.viewport(), Qt::LeftButton, {}, place);
        },
        {SeenAndTurnedOff(u"Stored procedures as methods"_s, "frmWarning-procedure")});
    WithDialogs([&] { QTest::keyClick(&procedures, Qt::Key_Return); }, {});
    EXPECT_EQ(world_.UserSettings.GetKeyValue("Help", "warnSPsAsMethodsInPro"), "1");
}

TEST_F(MainWindowTest, TellsOverTheOptionsThatAllMessagesAreShownAgain)
{
    StartInShop();
    world_.UserSettings.UpdateKey("Help", "warnOpenDatasource", "1");
    WithDialogs([&] { Tool("Options").trigger(); }, {[](QWidget& options) {
                                                         Click(options, "cmdResetMessages");
                                                         Click(options, "cmdCancel");
                                                     },
                                                     [](QWidget& message) {
                                                         ASSERT_NE(message.parentWidget(), nullptr);
                                                         EXPECT_EQ(message.parentWidget()->objectName(),
                                                                   u"frmOptions"_s);
                                                         Click(message, "cmdOK");
                                                     }});
    EXPECT_EQ(world_.UserSettings.GetKeyValue("Help", "warnOpenDatasource"), "0");
}

} // namespace
} // namespace veldrane::testing
