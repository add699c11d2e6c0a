#include "shell/desktop/file_conflict_dialog.h"

#include "screenshots.h"
#include "support/failing_file_system.h"
#include "widgets.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeView>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

class TheConflictWindow : public ::testing::Test
{
  protected:
    TheConflictWindow() { files_.Files[path_] = "Type=Exe\r\nName=\"Shop\"\r\nTitle=\"Shop\"\r\nMajorVer=1\r\n"; }

    QWidget& Show()
    {
        window_ = std::make_unique<FileConflictDialog>(rules_, nullptr);
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        return *window_;
    }

    QTreeView& Lines() { return Find<QTreeView>(*window_, "lstDifferences"); }

    FailingFileSystem files_;
    text::CodePage codePage_;
    std::string path_ = "/out/Shop.vbp";
    std::string name_ = "Shop.vbp";
    std::string bytes_ = "Type=OleDll\r\nName=\"Shop\"\r\nTitle=\"Shop\"\r\nMajorVer=2\r\nMinorVer=1\r\n";
    FileConflict conflict_{path_, name_, [this]() -> const std::string& { return bytes_; }};
    frmFile rules_{conflict_, ConflictAnswer::BackupAndOverwrite, files_, codePage_};
    std::unique_ptr<FileConflictDialog> window_;
};

TEST_F(TheConflictWindow, NamesTheFileAndSuggestsAnAnswer)
{
    QWidget& window = Show();
    EXPECT_EQ(window.windowTitle(), u"File Exists"_s);
    EXPECT_EQ(Find<QLabel>(window, "lblFileName").text(), u"File Conflict on Shop.vbp"_s);
    EXPECT_EQ(Find<QLabel>(window, "lblFilenameExists").text(),
              u"The file: '/out/Shop.vbp' already exists in the target directory."_s);
    EXPECT_TRUE(Find<QRadioButton>(window, "optBackup").isChecked());
    EXPECT_FALSE(Lines().isVisible());
    Photograph(window, "frmFile");
}

TEST_F(TheConflictWindow, GivesTheAnswerOfEachOption)
{
    for (const frmFile::OptionRow& row : frmFile::Options()) {
        QWidget& window = Show();
        auto& option = Find<QRadioButton>(window, row.Name);
        EXPECT_EQ(option.text(), QString::fromLatin1(row.Caption));
        option.click();
        Click(window, "cmdOK");
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(rules_.Answer(), row.Answer);
    }
}

TEST_F(TheConflictWindow, TakesTheOptionOfAKeyHoweverSoonReturnFollows)
{
    QWidget& window = Show();
    QTest::keyClick(window.windowHandle(), Qt::Key_L, Qt::AltModifier);
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(rules_.Answer(), ConflictAnswer::Leave);
}

TEST_F(TheConflictWindow, EscapeAndItsButtonsGiveUpTheRun)
{
    for (const bool byKey : {true, false}) {
        QWidget& window = Show();
        rules_.cmdOK_Click();
        if (byKey)
            QTest::keyClick(&window, Qt::Key_Escape);
        else
            Click(window, "cmdCancel");
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(rules_.Answer(), ConflictAnswer::Cancel);
    }
}

TEST_F(TheConflictWindow, ShowsTheDifferencesInEitherLayout)
{
    QWidget& window = Show();
    Click(window, "cmdShowDifferences");
    EXPECT_TRUE(Lines().isVisible());
    EXPECT_EQ(Lines().model()->rowCount(), 7);
    EXPECT_EQ(Lines().model()->index(0, 2).data().toString(), u"- Type=Exe"_s);
    Photograph(window, "frmFile-unified");
    Find<QRadioButton>(window, "optSideBySide").click();
    EXPECT_EQ(Lines().model()->rowCount(), 5);
    EXPECT_EQ(Lines().model()->index(0, 3).data().toString(), u"+ Type=OleDll"_s);
    Photograph(window, "frmFile-side-by-side");
    Click(window, "cmdShowDifferences");
    EXPECT_FALSE(Lines().isVisible());
    EXPECT_TRUE(Find<QRadioButton>(window, "optBackup").isChecked());
}

TEST_F(TheConflictWindow, GoesFromDifferenceToDifferenceByKeys)
{
    QWidget& window = Show();
    QTest::keyClick(window.windowHandle(), Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Lines().isVisible(); }));
    const auto isAt = [this](int row) { return Lines().currentIndex().row() == row; };
    EXPECT_TRUE(isAt(0));
    QTest::keyClick(window.windowHandle(), Qt::Key_F7);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isAt(4); }));
    QTest::keyClick(window.windowHandle(), Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isAt(0); }));
}

TEST_F(TheConflictWindow, SaysThatTheTextIsTheSame)
{
    bytes_ = files_.Files[path_];
    QWidget& window = Show();
    Click(window, "cmdShowDifferences");
    EXPECT_FALSE(Lines().isVisible());
    EXPECT_EQ(Find<QLabel>(window, "lblDifferences").text(), u"The new text is the same as the file."_s);
    Photograph(window, "frmFile-same");
}

TEST_F(TheConflictWindow, SaysWhyAFileCanNotBeRead)
{
    files_.UnreadablePaths.insert(path_);
    QWidget& window = Show();
    Click(window, "cmdShowDifferences");
    EXPECT_FALSE(Lines().isVisible());
    const QString words = Find<QLabel>(window, "lblDifferences").text();
    EXPECT_TRUE(words.startsWith(u"The differences can't be shown. /out/Shop.vbp: "_s)) << words.toStdString();
    Click(window, "cmdOK");
    EXPECT_EQ(rules_.Answer(), ConflictAnswer::BackupAndOverwrite);
}

} // namespace
} // namespace veldrane::testing
