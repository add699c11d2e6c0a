#include "generation_fixture.h"

namespace veldrane::testing {
namespace {

class GlobalsModule : public GenerationTest
{
  protected:
    [[nodiscard]] bool Holds(const std::string& text) const { return Lines(generation.GenerateGlobalsBasFile()).find(text) != std::string::npos; }
};

TEST_F(GlobalsModule, HoldsTheConnectionWhereverTheClientHasOne)
{
    struct Case
    {
        bool MTSEnabled;
        bool MTSDontRetrieve;
        bool HasConnection;
    };
    for (const Case& one : {Case{false, false, true}, Case{false, true, true}, Case{true, false, false}, Case{true, true, true}}) {
        project.MTSEnabled = one.MTSEnabled;
        project.MTSDontRetrieve = one.MTSDontRetrieve;
        EXPECT_EQ(Holds("mark:Globe|Public adoCon As New ADODB.Connection|"), one.HasConnection) << one.MTSEnabled << one.MTSDontRetrieve;
        EXPECT_EQ(Holds("code|    Dim adoErr As ADODB.Error|"), one.HasConnection) << one.MTSEnabled << one.MTSDontRetrieve;
        EXPECT_EQ(Holds("code|    On Error Resume Next|"), one.HasConnection) << one.MTSEnabled << one.MTSDontRetrieve;
        EXPECT_EQ(Holds("mark:MTS|Public Directives as New DOMDocument|"), one.MTSEnabled) << one.MTSEnabled << one.MTSDontRetrieve;
    }
}

TEST_F(GlobalsModule, LogsTransactionsThroughTheComponentAlone)
{
    project.LogTransactions = true;
    EXPECT_FALSE(Holds("gLogToDatabase"));
    project.MTSEnabled = true;
    EXPECT_TRUE(Holds("mark:MTS|Public gConnectionString as String|\n"
                      "mark:MTS|Public gLogToDatabase as String|\n"
                      "mark:MTS|Public gLogToTable as String|\n"
                      "mark:MTS|Public gCurrentUser as String|\n"));
}

TEST_F(GlobalsModule, KeepsTheSpellingsThatTheDocumentsHave)
{
    project.MTSEnabled = true;
    EXPECT_TRUE(Holds("Public Propogations as IXMLDOMElement"));
    EXPECT_TRUE(Holds("Public RetModification As IXMLDOMNodeList"));
    EXPECT_TRUE(Holds("Public Field as IXMLDOMElement"));
}

TEST_F(GlobalsModule, LogsWithoutTagsAndKeepsThemInTheMessageForTheWeb)
{
    project.MakeWebCompatible = true;
    project.WriteErrorsToApplicationLog = true;
    EXPECT_TRUE(Holds("code|    tmpString = Replace(anErrorMessage, \"<STRONG>\", \"\")|\n"
                      "code|    tmpString = Replace(tmpString, \"</STRONG>\", \"\")|\n"
                      "code|    App.LogEvent tmpString, anEventType|\n"
                      "code|    Screen.MousePointer = vbDefault|\n"
                      "code||\n"
                      "code|    gLastErrorMessage = \"<FONT face=Tahoma size=2>\" & Replace(anErrorMessage, vbcrlf, \"<br>\") & \"</FONT>\"|\n"));
    EXPECT_TRUE(Holds("\"<STRONG>Last DLL Error: </STRONG>\""));
    EXPECT_FALSE(Holds("MsgBox"));
}

TEST_F(GlobalsModule, LogsTheMessageAsItIsElsewhere)
{
    EXPECT_FALSE(Holds("App.LogEvent"));
    project.WriteErrorsToApplicationLog = true;
    EXPECT_TRUE(Holds("code|    App.LogEvent anErrorMessage, anEventType|"));
    EXPECT_FALSE(Holds("STRONG"));
}

TEST_F(GlobalsModule, SuppliesReplaceForVisualBasic5Alone)
{
    EXPECT_FALSE(Holds("Public Function Replace"));
    project.VBVersion = visual_basic_version::kVisualBasic5;
    EXPECT_TRUE(Holds("head:Function|Public Function Replace(Expression as String, Find as String, ReplaceWith as String) as String|"));
}

TEST_F(GlobalsModule, TimesRoutinesWhenTheGeneratorIsDebugged)
{
    EXPECT_FALSE(Holds("StartTime"));
    generation.Settings.DebugTiming = true;
    EXPECT_TRUE(Holds("mark:Globe|Public gLastErrorMessage as String|\ncode|Public StartTime as Single|\ncode|Public EndTime as Single|\ncode||\n"));
}

} // namespace
} // namespace veldrane::testing
