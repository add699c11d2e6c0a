#include "generation_fixture.h"
#include "generator/compile_step.h"
#include "run_recorder.h"

#include <algorithm>
#include <stdexcept>

namespace veldrane::testing {
namespace {

using Texts = std::vector<std::string>;

TEST(SplitCommand, KeepsQuotedPartsWhole)
{
    EXPECT_EQ(SplitCommand(R"("C:\Program Files\vb6.exe")"), Texts{R"(C:\Program Files\vb6.exe)"});
    EXPECT_EQ(SplitCommand(R"(wine  "/opt/Visual Basic/vb6.exe" /quiet)"), (Texts{"wine", "/opt/Visual Basic/vb6.exe", "/quiet"}));
    EXPECT_EQ(SplitCommand(R"(wine $(rm -rf /);"a b)"), (Texts{"wine", "$(rm", "-rf", "/);", "a b"}));
    EXPECT_TRUE(SplitCommand("  ").empty());
}

class CompileStep : public GenerationTest
{
  protected:
    CompileStep()
    {
        files.Folders.insert({"/out", "/state"});
        files.Files["/state/Compile.log"] = "an older log";
        generation.Settings.ApplicationFolder = "/state";
        generation.Settings.VisualBasicCommand = R"(wine "/opt/VB 98/vb6.exe" "%1")";
    }

    void Run(bool compile = true) { generation.GenerateCode(classes, {.TargetFolder = "/out", .OverwriteMode = 0, .Compile = compile}); }

    // The compiler leaves this log.
    void Leave(const std::string& log)
    {
        programs.OnStart = [this, log](const Texts&) { files.Files["/state/Compile.log"] = log; };
    }

    // The events from the end of the files on.
    [[nodiscard]] Texts Compiling() const
    {
        const auto from = std::find(recorder.Events.begin(), recorder.Events.end(), "1 Code Generation Complete.");
        return {from, recorder.Events.end()};
    }

    RunRecorder recorder{generation};
};

TEST_F(CompileStep, StartsTheCompilerOnTheProjectAndReadsItsLog)
{
    Leave("Build of 'Shop.dll' SUCCEEDED.");
    programs.OnStart = [this, leave = programs.OnStart](const Texts& command) {
        EXPECT_TRUE(files.Files.contains("/out/Shop.vbp"));
        EXPECT_FALSE(files.Files.contains("/state/Compile.log"));
        leave(command);
    };
    Run();
    ASSERT_EQ(programs.Started.size(), 1U);
    EXPECT_EQ(programs.Started.front(), (Texts{"wine", "/opt/VB 98/vb6.exe", "/out/Shop.vbp", "/out", "/state/Compile.log", "/m", "Shop", "/OutDir", "/out"}));
    EXPECT_EQ(clock.Waited, std::chrono::seconds(2));
    EXPECT_EQ(Compiling(), (Texts{
                               "1 Code Generation Complete.",
                               "2 Compiles your ActiveX COM Object...",
                               "2 ActiveX COM Object Compiled.",
                               "3 Completes processing...",
                               "99%",
                               "3 Processing Complete.",
                               "100%",
                               "complete: ActiveX COM Object Compilation Complete.\r\nYour COM Object is located at: \r\n/out/Shop.dll",
                           }));
}

TEST_F(CompileStep, TellsWhatALogOfFailureSays)
{
    Leave("Stra\xDF\x65 not defined");
    Run();
    EXPECT_EQ(recorder.Events.back(), "complete: ActiveX COM Object Compilation Failed for the following reasons:\r\nStraße not defined");
}

TEST_F(CompileStep, CountsAsCompleteWhenTheCompilerIsStillAtWork)
{
    Run();
    EXPECT_EQ(Compiling(), (Texts{"1 Code Generation Complete.", "2 Compiles your ActiveX COM Object...", "2 ActiveX COM Object Compiled.", "3 Completes processing...", "99%", "100%", "complete: "}));
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(CompileStep, CountsAsCompleteWhenTheCompilerDoesNotStart)
{
    programs.OnStart = [](const Texts&) { throw RuntimeError(error_number::kFileNotFound, "test", "wine: not found"); };
    Run();
    EXPECT_EQ(Compiling(), (Texts{"1 Code Generation Complete.", "2 Compiles your ActiveX COM Object...", "100%", "complete: "}));
}

TEST_F(CompileStep, CountsAsCompleteWhateverFailsInIt)
{
    programs.OnStart = [](const Texts&) { throw std::length_error("no room"); };
    Run();
    EXPECT_EQ(Compiling(), (Texts{"1 Code Generation Complete.", "2 Compiles your ActiveX COM Object...", "100%", "complete: "}));
}

TEST_F(CompileStep, StartsNothingWhileAnOlderLogCanNotBeRemoved)
{
    files.FailingPaths = {"/state/Compile.log"};
    Run();
    EXPECT_TRUE(programs.Started.empty());
    EXPECT_EQ(Compiling(), (Texts{"1 Code Generation Complete.", "2 Compiles your ActiveX COM Object...", "100%", "complete: "}));
}

TEST_F(CompileStep, KeepsWhatTheWritersSaidUnlessALogIsRead)
{
    const std::string said = "The Delete Method requires the clear method which was not included in the class definition. It has been added.";
    AddMethod(AddClass("Order"), "Delete", true);
    Run();
    EXPECT_EQ(recorder.Events.back(), "complete: " + said);

    AddMethod(AddClass("Line"), "Delete", true);
    Leave("Build failed.");
    Run();
    EXPECT_EQ(recorder.Events.back(), "complete: ActiveX COM Object Compilation Failed for the following reasons:\r\nBuild failed.");
}

TEST_F(CompileStep, WithoutACommandStartsNothingAndDoesNotWait)
{
    for (const char* command : {"", " "}) {
        recorder.Events.clear();
        generation.Settings.VisualBasicCommand = command;
        Run();
        EXPECT_TRUE(programs.Started.empty());
        EXPECT_EQ(clock.Waited.count(), 0);
        EXPECT_EQ(Compiling(), (Texts{
                                   "1 Code Generation Complete.",
                                   "2 Compiles your ActiveX COM Object...",
                                   "2 ActiveX COM Object Compiled.",
                                   "3 Completes processing...",
                                   "99%",
                                   "3 Processing Complete.",
                                   "100%",
                                   "complete: No Visual Basic command is set: the project was written, not compiled.",
                               }));
    }
}

TEST_F(CompileStep, DoesNotHappenUnlessAskedFor)
{
    Run(false);
    EXPECT_TRUE(Compiling().empty() && programs.Started.empty());
    EXPECT_EQ(recorder.Events.back(), "complete: ");
    EXPECT_TRUE(files.Files.contains("/state/Compile.log"));
}

TEST_F(CompileStep, DoesNotFollowFilesAfterWhichTheRunWasGivenUp)
{
    const Connection cancelling = generation.StatusChanged.Connect([this](int, const std::string& message) {
        if (message == "Code Generation Complete.")
            conflicts.FilesUntilCancel = 0;
    });
    Run();
    EXPECT_TRUE(programs.Started.empty());
    EXPECT_EQ(clock.Waited.count(), 0);
    EXPECT_EQ(Compiling(), (Texts{"1 Code Generation Complete.", "100%", "complete: Cancelled: the project was written, not compiled."}));
}

TEST_F(CompileStep, DoesNotFollowARunThatEndedEarly)
{
    files.FailingPaths = {"/out/Globals.Bas"};
    Run();
    EXPECT_TRUE(Compiling().empty() && programs.Started.empty());
}

TEST_F(CompileStep, TellsOfLostCharactersBehindTheLog)
{
    AddProperty(AddClass("Order"), "Ω", "String");
    Leave("Build succeeded.");
    Run();
    EXPECT_TRUE(recorder.Events.back().ends_with("/out/Shop.dll\r\nSome characters were written as \"?\" in Order.cls: they are not in code page 1252, which the setting CodePage names."));
}

} // namespace
} // namespace veldrane::testing
