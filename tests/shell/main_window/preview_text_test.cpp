#include "shell/main_window/preview_text.h"

#include "shown_lines.h"
#include "support/failing_file_system.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

struct CopiedPreview : ::testing::Test
{
    CopiedPreview() { testing::ShowLines(pane, {"one", "  two", ""}); }

    PreviewPane pane;
};

TEST_F(CopiedPreview, IsTheRowsFromTheTopWithLineFeedsBetweenThem)
{
    EXPECT_EQ(CopiedText(pane, {1, 0, 1}), "one\n  two");
    EXPECT_EQ(CopiedText(pane, {1}), "  two");
    EXPECT_EQ(CopiedText(pane), "one\n  two\n");
}

TEST_F(CopiedPreview, LeavesOutRowsThatAreNotThere)
{
    EXPECT_EQ(CopiedText(pane, {}), "");
    EXPECT_EQ(CopiedText(pane, {7, 0}), "one");
}

struct SavedPreview : ::testing::Test
{
    SavedPreview() { files.Folders.insert("/home"); }

    bool Save() { return SavePreview(pane, {dialogs, files, messages, codePage}); }

    PreviewPane pane;
    testing::ScriptedFileDialogs dialogs{"/home/Order.txt"};
    testing::FailingFileSystem files;
    testing::ScriptedMessages messages;
    text::CodePage codePage;
};

TEST_F(SavedPreview, HasTheLineEndsAndTheCodePageOfGeneratedFiles)
{
    testing::ShowLines(pane, {"Größe", ""}, "Order");
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.Files.at("/home/Order.txt"), "Gr\xF6\xDF"
                                                 "e\r\n\r\n");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(SavedPreview, IsProposedUnderTheNameOfWhatIsShown)
{
    testing::ShowLines(pane, {"a"}, "Order");
    EXPECT_TRUE(Save());
    ASSERT_EQ(dialogs.AskedToSave().size(), 1U);
    const FileDialogRequest& asked = dialogs.AskedToSave().front();
    EXPECT_EQ(asked.Title, "Save Preview");
    EXPECT_EQ(asked.Filter, "Text Files|*.txt|All Files|*.*");
    EXPECT_EQ(asked.DefaultName, "Order.txt");
    EXPECT_EQ(asked.DefaultExtension, "txt");
}

TEST_F(SavedPreview, IsNotProposedInAnotherFolder)
{
    for (const char* title : {"../Order", "a\\b", ".profile", ""}) {
        testing::ShowLines(pane, {"a"}, title);
        Save();
        EXPECT_EQ(dialogs.AskedToSave().back().DefaultName, "Preview.txt") << title;
    }
}

TEST_F(SavedPreview, IsNotWrittenWhenThePersonCancels)
{
    dialogs = {std::nullopt};
    testing::ShowLines(pane, {"a"});
    EXPECT_FALSE(Save());
    EXPECT_TRUE(files.Files.empty());
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(SavedPreview, SaysWhyItCouldNotBeWritten)
{
    files.FailAtCall = 1;
    testing::ShowLines(pane, {"a"});
    EXPECT_FALSE(Save());
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Save Preview");
    EXPECT_EQ(messages.Asked().front().Text, "The preview was not saved: /home/Order.txt: No space left on device");
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Warning);
}

TEST_F(SavedPreview, SaysThatCharactersWereLost)
{
    testing::ShowLines(pane, {"łąka"});
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.Files.at("/home/Order.txt"), "??ka\r\n");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Text,
              "Some characters were written as \"?\" in /home/Order.txt: they are not in "
              "code page 1252, which the setting CodePage names.");
}

} // namespace
} // namespace veldrane
