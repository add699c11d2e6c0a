#include "block_check.h"

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

// The defects, a line each, with a line end in front.
std::string Found(std::string_view moduleText)
{
    std::string text = "\n";
    for (const FoundDefect& defect : CheckBlocks(moduleText))
        text += std::to_string(defect.Line) + " " + std::string(NameOf(defect.Defect)) + ": " + defect.Text + "\n";
    return text;
}

TEST(BlockCheck, TakesWhatClosesInOrder)
{
    EXPECT_EQ(Found("VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
                    "Attribute VB_Name = \"Order\"\r\nPrivate mlngID as Long\r\n"
                    "Friend Function Load(Optional a as String = \"\") as Boolean\r\n"
                    "    On Error Goto errLoad\r\n    If a Then\r\n        With adoRS\r\n        Do While Not .EOF\r\n        Loop\r\n        End With\r\n"
                    "    ElseIf b Then\r\n    Else\r\n        Select Case c\r\n            Case \"x\" : d = 1\r\n        End Select\r\n    End If\r\n"
                    "    For Each q in mCol\r\n    Next\r\n    For i = 1 To 2 : Next i\r\n    Exit Function\r\nerrLoad:\r\nEnd Function\r\n"
                    "' a comment\r\nAttribute Load.VB_UserMemId = 0\r\n"),
              "\n");
}

TEST(BlockCheck, KnowsTheIfThatEndsOnItsLine)
{
    EXPECT_EQ(Found("Sub A()\n    If b Then c = 1\n    If b Then Set c = d: e \"f\"\n    If b Then ' a block\n    End If\nEnd Sub\n"), "\n");
}

TEST(BlockCheck, ReadsContinuedLinesAsOne)
{
    EXPECT_EQ(Found("Sub A()\n    If b And _\n        c Then\n    End If\n    SQL = \"SELECT \" & _\n        \"If Then\"\nEnd Sub\n"), "\n");
}

TEST(BlockCheck, PassesOverStringsAndComments)
{
    EXPECT_EQ(Found("Sub A()\n    b = \"x \"\" ' y\"\n    'If c Then\n    d 'With e \"\n    f \"_\" : g\nEnd Sub\n"), "\n");
}

TEST(BlockCheck, NamesABlockThatIsNotClosed)
{
    EXPECT_EQ(Found("Sub A()\n    If b Then\nEnd Sub\n"), "\n2 not closed: If b Then\n");
    EXPECT_EQ(Found("Sub A()\n    For Each b in c\n    With d\n    Next\nEnd Sub\n"), "\n3 not closed: With d\n");
    EXPECT_EQ(Found("Sub A()\n    Do While b\n"), "\n2 not closed: Do While b\n1 not closed: Sub A()\n");
}

TEST(BlockCheck, NamesARoutineThatRunsIntoTheNext)
{
    EXPECT_EQ(Found("Friend Property Set A(b as Variant)\n    Set c = b\nPublic Sub D()\nEnd Sub\n"), "\n1 not closed: Friend Property Set A(b as Variant)\n");
}

TEST(BlockCheck, NamesARoutineThatEndsAsAnother)
{
    EXPECT_EQ(Found("Public Sub Retrieve()\n    If a Then\n    End If\nEnd Function\nSub B()\nEnd Sub\n"), "\n4 closed as another kind of routine: Public Sub Retrieve()\n");
}

TEST(BlockCheck, NamesAnEndOrAMiddleOfNothing)
{
    EXPECT_EQ(Found("Sub A()\n    Next\n    Else\n    Case 1\n    End If\nEnd Sub\nEnd Sub\n"),
              "\n2 closes nothing: Next\n3 closes nothing: Else\n4 closes nothing: Case 1\n5 closes nothing: End If\n7 closes nothing: End Sub\n");
}

TEST(BlockCheck, NamesAStatementOutsideOfEveryRoutine)
{
    EXPECT_EQ(Found("Option Explicit\nSub A()\nEnd Sub\n    b = 1\nSub C()\nEnd Sub\n"), "\n4 outside of every routine: b = 1\n");
}

TEST(BlockCheck, NamesAStringLeftOpen)
{
    EXPECT_EQ(Found("Sub A()\n    b = \"c\n    d = \"\"\" _\n    If e Then\n    End If\nEnd Sub\n"), "\n2 string left open: b = \"c\n3 string left open: d = \"\"\" _\n");
}

} // namespace
} // namespace veldrane::testing
