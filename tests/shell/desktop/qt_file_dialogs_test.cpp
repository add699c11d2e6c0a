#include "shell/desktop/qt_file_dialogs.h"

#include "shell/desktop/file_filter.h"
#include "widgets.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

constexpr const char* kProjectFilter = "Veldrane Project|*.kzm|All Files|*.*";

class QtFileDialogsTest : public ::testing::Test
{
  protected:
    [[nodiscard]] std::string Path(const char* name) const
    {
        return folder_.filePath(QString::fromUtf8(name)).toStdString();
    }

    void MakeFile(const char* name) const
    {
        QFile file(folder_.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }

    static void Enter(QWidget& dialog, const std::string& path)
    {
        // Typed, it would open a list of proposals.
        Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
        auto& buttons = Find<QDialogButtonBox>(dialog, "buttonBox");
        const auto accepting = QDialogButtonBox::Open | QDialogButtonBox::Save;
        for (QAbstractButton* button : buttons.buttons()) {
            if (accepting.testFlag(buttons.standardButton(button)))
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }

    QTemporaryDir folder_;
    QtFileDialogs dialogs_;
    std::optional<std::string> chosen_;
};

TEST(NameFilters, TurnNamesAndPatternsIntoRows)
{
    EXPECT_EQ(NameFilters(kProjectFilter), (QStringList{u"Veldrane Project (*.kzm)"_s, u"All Files (*)"_s}));
    EXPECT_EQ(NameFilters("SQLite Databases|*.db;*.sqlite"), QStringList{u"SQLite Databases (*.db *.sqlite)"_s});
    EXPECT_EQ(NameFilters("Text Files |*.txt; *.csv|All Files|*.*"),
              (QStringList{u"Text Files (*.txt *.csv)"_s, u"All Files (*)"_s}));
    EXPECT_EQ(NameFilters("All"), QStringList{u"All (*)"_s});
    EXPECT_EQ(NameFilters(""), QStringList());
}

TEST_F(QtFileDialogsTest, AreTheSameOnEveryDesktop)
{
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
}

TEST_F(QtFileDialogsTest, OpenAFileThatExists)
{
    MakeFile("Shop.kzm");
    WithDialogs([&] { chosen_ = dialogs_.AskForFileToOpen({.Title = "Open Project", .Filter = kProjectFilter}); },
                {[&](QWidget& dialog) {
                    auto& files = dynamic_cast<QFileDialog&>(dialog);
                    EXPECT_EQ(files.windowTitle(), u"Open Project"_s);
                    EXPECT_EQ(files.nameFilters(), NameFilters(kProjectFilter));
                    Enter(dialog, Path("Shop.kzm"));
                }});
    EXPECT_EQ(chosen_, Path("Shop.kzm"));
}

TEST_F(QtFileDialogsTest, CancelChoosesNothing)
{
    WithDialogs([&] { chosen_ = dialogs_.AskForFileToOpen({.Title = "Open Project", .Filter = kProjectFilter}); },
                {[](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }});
    EXPECT_EQ(chosen_, std::nullopt);
}

TEST_F(QtFileDialogsTest, SaveUnderTheProposedNameWithTheExtensionAdded)
{
    const FileDialogRequest request{
        .Title = "Save Project As", .Filter = kProjectFilter, .DefaultName = Path("Shop"), .DefaultExtension = "kzm"};
    WithDialogs([&] { chosen_ = dialogs_.AskForFileToSave(request); }, {[&](QWidget& dialog) {
                    auto& name = Find<QLineEdit>(dialog, "fileNameEdit");
                    EXPECT_EQ(name.text(), u"Shop"_s);
                    EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory().path(), folder_.path());
                    QTest::keyClick(&name, Qt::Key_Return);
                }});
    EXPECT_EQ(chosen_, Path("Shop.kzm"));
}

TEST_F(QtFileDialogsTest, AskBeforeAFileIsOverwritten)
{
    MakeFile("Shop.kzm");
    const FileDialogRequest request{.Title = "Save Project As", .Filter = kProjectFilter, .DefaultExtension = "kzm"};
    const auto ask = [&] { chosen_ = dialogs_.AskForFileToSave(request); };
    WithDialogs(ask, {[&](QWidget& dialog) {
                          Enter(dialog, Path("Shop"));
                          EXPECT_TRUE(dialog.isVisible()) << "No goes back";
                          dialog.close();
                      },
                      [](QWidget& question) { QTest::keyClick(&question, Qt::Key_Escape); }});
    EXPECT_EQ(chosen_, std::nullopt);
    WithDialogs(ask, {[&](QWidget& dialog) { Enter(dialog, Path("Shop")); },
                      [](QWidget& question) { QTest::keyClick(&question, Qt::Key_Y); }});
    EXPECT_EQ(chosen_, Path("Shop.kzm"));
}

TEST_F(QtFileDialogsTest, StartWhereTheLastOneEnded)
{
    MakeFile("Shop.kzm");
    const FileDialogRequest request{.Title = "Open Project", .Filter = kProjectFilter};
    const auto ask = [&] { chosen_ = dialogs_.AskForFileToOpen(request); };
    WithDialogs(ask, {[&](QWidget& dialog) { Enter(dialog, Path("Shop.kzm")); }});
    WithDialogs(ask, {[&](QWidget& dialog) {
                    EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory().path(), folder_.path());
                    dialog.close();
                }});
}

} // namespace
} // namespace veldrane::testing
