#include "shell/platform/error_text.h"

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

ErrorFacts Facts()
{
    return {.Number = 53,
            .Description = "File not found",
            .Source = "FileSystem",
            .LastDLLError = 2,
            .HelpFile = "help.html",
            .HelpContext = 7,
            .ModuleName = "TTCFileManagement",
            .RoutineName = "OpenProject",
            .ADOErrors = {}};
}

constexpr const char* kFactsAsText = "Last Error Number: 53.\r\n"
                                     "Error Description: File not found\r\n"
                                     "Error Source: FileSystem\r\n"
                                     "Last DLL Error: 2\r\n"
                                     "Error Help File: help.html\r\n"
                                     "Error Help Context: 7\r\n"
                                     "Class Name: TTCFileManagement\r\n"
                                     "Routine: OpenProject\r\n";

TEST(TextOfAnError, WithoutAnOpenConnectionTheAdoBlockIsAbsent)
{
    EXPECT_EQ(ErrorText(Facts()), kFactsAsText);
}

TEST(TextOfAnError, EachAdoErrorIsABlockInTheOrderOfTheCollection)
{
    ErrorFacts facts = Facts();
    facts.ADOErrors = {{-2147217865, "no such table: Cars", 1, "SQLite3", "HY000"},
                       {3709, "closed", -5, "Provider", "08003"}};
    EXPECT_EQ(ErrorText(facts), std::string(kFactsAsText) + "\r\n"
                                                            "\r\n"
                                                            "\r\n"
                                                            "ADO Errors Follow:\r\n"
                                                            "-------------------------------------------\r\n"
                                                            "ADO Error #:-2147217865\r\n"
                                                            "ADO Description: no such table: Cars\r\n"
                                                            "ADO Native Error #:1\r\n"
                                                            "ADO Source: SQLite3\r\n"
                                                            "ADO SQL State: HY000\r\n"
                                                            "ADO Error #:3709\r\n"
                                                            "ADO Description: closed\r\n"
                                                            "ADO Native Error #:-5\r\n"
                                                            "ADO Source: Provider\r\n"
                                                            "ADO SQL State: 08003\r\n");
}

} // namespace
} // namespace veldrane::testing
