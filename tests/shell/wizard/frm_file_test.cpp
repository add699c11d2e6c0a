#include "shell/wizard/frm_file.h"
#include "support/failing_file_system.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

class FrmFile : public ::testing::Test
{
  protected:
    FrmFile() { files_.Files["/out/Shop.vbp"] = "Type=Exe\r\n"; }

    testing::FailingFileSystem files_;
    text::CodePage codePage_;
    std::string path_ = "/out/Shop.vbp";
    std::string name_ = "Shop.vbp";
    std::string bytes_ = "Type=OleDll\r\n";
    FileConflict conflict_{path_, name_, [this]() -> const std::string& { return bytes_; }};
    frmFile dialog_{conflict_, ConflictAnswer::BackupAndOverwrite, files_, codePage_};
};

TEST_F(FrmFile, NamesTheFile)
{
    EXPECT_STREQ(frmFile::kTitle, "File Exists");
    EXPECT_STREQ(frmFile::kPrompt, "How do you want to proceed?");
    EXPECT_EQ(dialog_.lblFileName(), "File Conflict on Shop.vbp");
    EXPECT_EQ(dialog_.lblFilenameExists(), "The file: '/out/Shop.vbp' already exists in the target directory.");
}

TEST_F(FrmFile, OffersFourWays)
{
    std::vector<std::string> captions;
    for (const frmFile::OptionRow& row : frmFile::Options())
        captions.emplace_back(row.Caption);
    EXPECT_THAT(captions, ElementsAre("&Overwrite the existing file, don't make a backup",
                                      "&Leave the existing file alone, don't overwrite it",
                                      "Overwrite the existing file after making a &backup copy",
                                      "&Cancel the entire code generation wizard"));
}

TEST_F(FrmFile, OKGivesTheOption)
{
    for (const frmFile::OptionRow& row : frmFile::Options()) {
        dialog_.opt_Click(row.Answer);
        dialog_.cmdOK_Click();
        EXPECT_EQ(dialog_.Answer(), row.Answer);
    }
}

TEST_F(FrmFile, CancelAndTheWindowsOwnButtonGiveUpTheRun)
{
    EXPECT_EQ(dialog_.Answer(), ConflictAnswer::Cancel);
    dialog_.cmdOK_Click();
    EXPECT_EQ(dialog_.Answer(), ConflictAnswer::BackupAndOverwrite);
    dialog_.cmdCancel_Click();
    EXPECT_EQ(dialog_.Answer(), ConflictAnswer::Cancel);
}

TEST_F(FrmFile, ShowsByWhatTheNewTextDiffers)
{
    EXPECT_THAT(dialog_.Differences(), ElementsAre(DifferenceLine{DifferenceKind::Removed, 1, 0, "Type=Exe"},
                                                   DifferenceLine{DifferenceKind::Added, 0, 1, "Type=OleDll"}));
}

TEST_F(FrmFile, ReadsBothInTheCodePage)
{
    files_.Files[path_] = "caf\xE9\r\n";
    bytes_ = "caf\xE9\r\n";
    EXPECT_THAT(dialog_.Differences(), ElementsAre(DifferenceLine{DifferenceKind::Same, 1, 1, "caf\xC3\xA9"}));
}

TEST_F(FrmFile, AFileThatCanNotBeReadHasNoDifferences)
{
    files_.UnreadablePaths = {path_};
    EXPECT_THROW(static_cast<void>(dialog_.Differences()), RuntimeError);
}

// What a person is told in place of the differences.
std::string ReasonAgainstDifferences(const frmFile& dialog)
{
    try {
        static_cast<void>(dialog.Differences());
    } catch (const RuntimeError& error) {
        return error.Description();
    }
    return "";
}

TEST_F(FrmFile, APipeIsNotWaitedFor)
{
    files_.Others = {path_};
    EXPECT_EQ(ReasonAgainstDifferences(dialog_), "/out/Shop.vbp: It is no plain file");
}

TEST_F(FrmFile, ANewTextThatCanNotBeMadeSaysWhy)
{
    conflict_.NewBytes = []() -> const std::string& { throw RuntimeError(1001, "Test", "There is no file to name."); };
    EXPECT_EQ(ReasonAgainstDifferences(dialog_), "There is no file to name.");
}

} // namespace
} // namespace veldrane
