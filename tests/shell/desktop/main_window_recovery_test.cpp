#include "main_window_fixture.h"

#include "screenshots.h"
#include "shell/desktop/qt_messages.h"

#include <QPushButton>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;

class MainWindowRecovery : public MainWindowTest
{
  protected:
    // What a program that was killed has left of a project of that name.
    void Crash(const std::string& name)
    {
        ProjectSession session(World());
        session.New(DataSourceOnOpen::LeaveClosed);
        session.Project().SetProjectName(name);
        ASSERT_TRUE(session.Autosave());
    }

    // The last question as the person has it in front of them.
    void PhotographQuestion(const std::string& name)
    {
        const Question question = world_.Messages.Asked().back();
        WithDialogs([&] { (void)QtMessages().Ask(question); }, {[&](QWidget& box) {
                        Photograph(box, name);
                        EXPECT_TRUE(Find<QPushButton>(box, "cmdYes").isDefault());
                        Click(box, "cmdCancel");
                    }});
    }
};

TEST_F(MainWindowRecovery, AnAutosaveIsToldAndTheProjectStaysModified)
{
    StartWithClasses();
    constexpr int kTicks = 10; // of half a minute
    for (int tick = 0; tick < kTicks; ++tick)
        rules_->tmrAutosave_Timer();
    EXPECT_THAT(Status(), MatchesRegex("Autosaved at [0-9]+:[0-9][0-9] [ap]m"));
    EXPECT_TRUE(window_->isWindowModified());
    Photograph(*window_, "frmMain-autosaved");
}

TEST_F(MainWindowRecovery, AProjectThatComesBackIsModifiedAndSaysSo)
{
    Crash("Desk");
    Start();
    EXPECT_EQ(Status(), "File Recovered");
    EXPECT_TRUE(window_->isWindowModified());
    Photograph(*window_, "frmMain-recovered");
    world_.Messages.Add(Answer::Cancel);
    EXPECT_FALSE(window_->close());
    EXPECT_THAT(Titles(), ElementsAre("Save Changes?"));
    PhotographQuestion("msgBox-save-recovered");
}

TEST_F(MainWindowRecovery, AProjectOfTheCommandLineIsAskedAbout)
{
    world_.Files.Files["/Shop.kzm"] = "";
    Crash("Desk");
    for (auto& [path, content] : world_.Files.Files)
        content = "no project";
    world_.Messages.Add(Answer::Cancel);
    Start({.File = "/Shop.kzm"});
    EXPECT_THAT(Titles(), ElementsAre("Recoverable File Detected"));
    PhotographQuestion("msgBox-recoverable");
    for (const Answer answer : {Answer::Yes, Answer::Ok, Answer::Cancel})
        world_.Messages.Add(answer);
    Start({.File = "/Shop.kzm"});
    EXPECT_THAT(Titles(), ElementsAre("Recoverable File Detected", "Recoverable File Detected", "Invalid File",
                                      "Recovery Failed"));
    PhotographQuestion("msgBox-recovery-failed");
}

} // namespace
} // namespace veldrane::testing
