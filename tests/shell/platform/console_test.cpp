#include "shell/platform/console_error_report.h"
#include "shell/platform/console_messages.h"
#include "shell/platform/console_text.h"

#include <gtest/gtest.h>
#include <sstream>

namespace veldrane::testing {
namespace {

TEST(TextOnTheConsole, LinesBehindTheFirstAreIndented)
{
    EXPECT_EQ(ConsoleText("one\r\ntwo\nthree\rfour"), "one\n    two\n    three\n    four");
}

TEST(TextOnTheConsole, BlankLinesStayEmptyAndThoseAtTheEndsGo)
{
    EXPECT_EQ(ConsoleText("\r\none\r\n\r\ntwo\r\n\r\n"), "one\n\n    two");
    EXPECT_EQ(ConsoleText("\r\n"), "");
}

TEST(TextOnTheConsole, WhatWouldSteerTheTerminalIsShownAsAQuestionMark)
{
    EXPECT_EQ(ConsoleText("a\x1B[31mb\x7F\xC2\x9B tab\there \xC3\xA4 \xFF"),
              "a?[31mb?? tab\there \xC3\xA4 \xEF\xBF\xBD");
}

TEST(TextOnTheConsole, OneLineTakesTheLineBreaksOut)
{
    EXPECT_EQ(ConsoleLine("one \r\n\r\ntwo\r\nthree\r\n"), "one two three");
}

ErrorPlace At(int mode, const std::string& hint)
{
    ErrorPlace place;
    place.Mode = mode;
    place.Hint = hint;
    return place;
}

class ErrorsOnTheConsole : public ::testing::Test
{
  protected:
    std::ostringstream out_;
    ConsoleErrorReport report_{out_};
    const RuntimeError error_{53, "FileSystem", "/home/ann/Shop.kzm: No such file or directory"};
};

TEST_F(ErrorsOnTheConsole, OneClearLineStandsBeforeTheReport)
{
    report_.ReportError(
        error_, {.ModuleName = "TTCFileManagement", .RoutineName = "OpenProject", .Hint = "Name a file that exists."});
    EXPECT_EQ(out_.str(), "veldrane: /home/ann/Shop.kzm: No such file or directory. Name a file that exists.\n"
                          "    Last Error Number: 53.\n"
                          "    Error Description: /home/ann/Shop.kzm: No such file or directory\n"
                          "    Error Source: FileSystem\n"
                          "    Last DLL Error: 0\n"
                          "    Error Help File: \n"
                          "    Error Help Context: 0\n"
                          "    Class Name: TTCFileManagement\n"
                          "    Routine: OpenProject\n");
}

TEST_F(ErrorsOnTheConsole, ADescriptionOfSeveralLinesIsOneClearLine)
{
    report_.ReportError(RuntimeError(5, "Driver", "It failed.\r\nTwice."), At(2, ""));
    EXPECT_TRUE(out_.str().starts_with("veldrane: It failed. Twice.\n    Last Error Number: 5.\n")) << out_.str();
}

TEST_F(ErrorsOnTheConsole, AQuestionIsNotEndedASecondTime)
{
    report_.ReportError(RuntimeError(5, "Driver", "Is the server running?"), At(2, "Start it."));
    EXPECT_TRUE(out_.str().starts_with("veldrane: Is the server running? Start it.\n")) << out_.str();
}

TEST_F(ErrorsOnTheConsole, Mode4PrintsTheHintAlone)
{
    report_.ReportError(error_, At(4, "Set the command first.\r\nSee Options."));
    EXPECT_EQ(out_.str(), "veldrane: Set the command first.\n    See Options.\n");
}

TEST_F(ErrorsOnTheConsole, Mode4WithoutAHintIsNotSilent)
{
    report_.ReportError(error_, At(4, ""));
    EXPECT_TRUE(out_.str().starts_with("veldrane: /home/ann/Shop.kzm: No such file")) << out_.str();
}

TEST_F(ErrorsOnTheConsole, TheErrorsOfTheConnectionFollow)
{
    ConsoleErrorReport report(out_, [](const RuntimeError&) {
        return std::vector<ADOError>{{1, "broken", 2, "Driver", "HY000"}};
    });
    report.ReportError(error_, {});
    EXPECT_NE(out_.str().find("\n    Routine: \n\n\n\n    ADO Errors Follow:\n"), std::string::npos) << out_.str();
    EXPECT_TRUE(out_.str().ends_with("    ADO SQL State: HY000\n")) << out_.str();
}

TEST_F(ErrorsOnTheConsole, ReportsAreCounted)
{
    EXPECT_EQ(report_.Count(), 0);
    report_.ReportError(error_, {});
    report_.ReportError(error_, At(4, "x"));
    EXPECT_EQ(report_.Count(), 2);
}

class QuestionsOnTheConsole : public ::testing::Test
{
  protected:
    Answer AnswerTo(Buttons offered, Answer preset = Answer::Yes)
    {
        return messages_.Ask({.Title = "Confirm Delete", .Text = "Delete it?", .Offered = offered, .Default = preset});
    }

    std::ostringstream out_;
    ConsoleMessages messages_{out_, {{"Choose Retrieval Method", Answer::Yes}}};
};

TEST_F(QuestionsOnTheConsole, TheAnswerTakenLosesNothing)
{
    EXPECT_EQ(AnswerTo(Buttons::YesNo), Answer::No);
    EXPECT_EQ(AnswerTo(Buttons::YesNoCancel), Answer::Cancel);
    EXPECT_EQ(AnswerTo(Buttons::OkCancel, Answer::Ok), Answer::Cancel);
    EXPECT_EQ(AnswerTo(Buttons::Ok, Answer::Ok), Answer::Ok);
}

TEST_F(QuestionsOnTheConsole, AQuestionIsPrintedWithItsAnswer)
{
    messages_.Ask({.Title = "Save Changes?", .Text = "It changed.\r\nSave it?", .Offered = Buttons::YesNo});
    EXPECT_EQ(out_.str(), "Save Changes?: It changed.\n    Save it?\n    Answer: No\n");
}

TEST_F(QuestionsOnTheConsole, AMessageThatAsksNothingIsPrintedAsItIs)
{
    messages_.Tell("Settings", "One.\r\nTwo.");
    messages_.Tell("", "Bare.");
    EXPECT_EQ(out_.str(), "Settings: One.\n    Two.\nBare.\n");
}

TEST_F(QuestionsOnTheConsole, WhatTheCommandLineHasToldIsNotAsked)
{
    EXPECT_EQ(messages_.Ask({.Title = "Choose Retrieval Method", .Text = "?", .Offered = Buttons::YesNoCancel}),
              Answer::Yes);
    EXPECT_EQ(out_.str(), "");
}

TEST_F(QuestionsOnTheConsole, AToldAnswerThatIsNotOfferedIsPassedOver)
{
    EXPECT_EQ(messages_.Ask({.Title = "Choose Retrieval Method", .Text = "?", .Offered = Buttons::OkCancel}),
              Answer::Cancel);
}

} // namespace
} // namespace veldrane::testing
