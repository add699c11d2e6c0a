#include "shell/main_window/ask_to_save.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class AskToSaveTest : public ::testing::Test
{
  protected:
    AskToSaveTest()
    {
        session_.Project().SetProjectName("Order Desk");
        session_.Project().FullPath = "/desk.kzm";
        session_.Project().SetModified(true);
    }

    bool AnswerWith(Answer answer)
    {
        world_.Messages.Add(answer);
        return AskToSave(world_.World, session_);
    }

    [[nodiscard]] bool IsSaved() const { return world_.Files.Files.contains("/desk.kzm"); }
    [[nodiscard]] auto Copies() const { return world_.UserSettings.GetAllSettings(settings_section::kTempFiles); }

    testing::MemoryApplication world_;
    ProjectSession session_{world_.World};
};

TEST_F(AskToSaveTest, AnUnmodifiedProjectIsLeftWithoutAWord)
{
    session_.Project().SetModified(false);
    EXPECT_TRUE(AskToSave(world_.World, session_));
    EXPECT_THAT(world_.Messages.Asked(), IsEmpty());
    EXPECT_FALSE(IsSaved());
}

TEST_F(AskToSaveTest, AModifiedProjectIsAskedAbout)
{
    AnswerWith(Answer::No);
    ASSERT_EQ(world_.Messages.Asked().size(), 1U);
    const Question& asked = world_.Messages.Asked().front();
    EXPECT_EQ(asked.Title, "Save Changes?");
    EXPECT_EQ(asked.Text, "This project has been modified and changes have not been saved.\r\n"
                          "Do you want to save Order Desk first?");
    EXPECT_EQ(asked.Offered, Buttons::YesNoCancel);
}

TEST_F(AskToSaveTest, ARecoveredProjectIsCalledSo)
{
    session_.Project().Recovered = true;
    AnswerWith(Answer::No);
    EXPECT_EQ(world_.Messages.Asked().at(0).Text,
              "This recovered project has been modified and changes have not been saved.\r\n"
              "Do you want to save Order Desk first?");
}

TEST_F(AskToSaveTest, YesSavesAndGoesOn)
{
    EXPECT_TRUE(AnswerWith(Answer::Yes));
    EXPECT_TRUE(IsSaved());
    EXPECT_FALSE(session_.Project().Modified());
}

TEST_F(AskToSaveTest, NoGoesOnWithoutSaving)
{
    EXPECT_TRUE(AnswerWith(Answer::No));
    EXPECT_FALSE(IsSaved());
}

TEST_F(AskToSaveTest, CancelStays)
{
    session_.Project().TempFileName = "/recovery/1.kzm";
    world_.UserSettings.SaveSetting(settings_section::kTempFiles, "1.kzm", "/recovery/1.kzm");
    EXPECT_FALSE(AnswerWith(Answer::Cancel));
    EXPECT_FALSE(IsSaved());
    EXPECT_TRUE(session_.Project().Modified());
    EXPECT_EQ(Copies().size(), 1U);
}

TEST_F(AskToSaveTest, ASaveThatFailsStays)
{
    world_.Files.FailAtCall = 1;
    EXPECT_FALSE(AnswerWith(Answer::Yes));
    EXPECT_TRUE(session_.Project().Modified());
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
}

TEST_F(AskToSaveTest, AProjectWithoutAFileStaysWhenItsDialogIsCancelled)
{
    session_.Project().FullPath = "";
    EXPECT_FALSE(AnswerWith(Answer::Yes));
    EXPECT_TRUE(session_.Project().Modified());
}

TEST_F(AskToSaveTest, GoingOnForgetsTheUnsavedCopyOfThisProjectAlone)
{
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        session_.Project().TempFileName = "/recovery/1.kzm";
        session_.Project().SetModified(true);
        session_.UnsavedCopies().Add("/recovery/1.kzm");
        world_.UserSettings.SaveSetting(settings_section::kTempFiles, "2.kzm", "/recovery/2.kzm");
        EXPECT_TRUE(AnswerWith(answer));
        EXPECT_THAT(Copies(), ElementsAre(Pair("2.kzm", "/recovery/2.kzm")));
        EXPECT_EQ(session_.Project().TempFileName, "");
    }
}

TEST_F(AskToSaveTest, SettingsThatCanNotBeWrittenAreReportedAndHoldNothingUp)
{
    session_.UnsavedCopies().Add("/recovery/1.kzm");
    world_.UserSettings.Fails = true;
    EXPECT_TRUE(AnswerWith(Answer::No));
    ASSERT_EQ(world_.Errors.Reported.size(), 1U);
    EXPECT_EQ(world_.Errors.Reported[0].Place.ModuleName, "frmMain");
}

} // namespace
} // namespace veldrane
