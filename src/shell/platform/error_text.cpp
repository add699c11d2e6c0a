#include "shell/platform/error_text.h"

#include <string_view>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr int kHintAlone = 4;

void AppendLine(std::string& report, std::string_view label, std::string_view value, std::string_view end = "")
{
    report.append(label).append(value).append(end).append(kLineBreak);
}

void AppendADOErrors(std::string& report, const std::vector<ADOError>& errors)
{
    for (int line = 0; line < 3; ++line)
        report.append(kLineBreak);
    AppendLine(report, "ADO Errors Follow:", "");
    AppendLine(report, "-------------------------------------------", "");
    for (const ADOError& error : errors) {
        AppendLine(report, "ADO Error #:", std::to_string(error.Number));
        AppendLine(report, "ADO Description: ", error.Description);
        AppendLine(report, "ADO Native Error #:", std::to_string(error.NativeError));
        AppendLine(report, "ADO Source: ", error.Source);
        AppendLine(report, "ADO SQL State: ", error.SQLState);
    }
}

} // namespace

ErrorFacts FactsOf(const RuntimeError& error, const ErrorPlace& place, std::vector<ADOError> adoErrors)
{
    return {.Number = error.Number,
            .Description = error.Description(),
            .Source = error.Source,
            .HelpFile = {},
            .ModuleName = place.ModuleName,
            .RoutineName = place.RoutineName,
            .ADOErrors = std::move(adoErrors)};
}

bool IsHintAlone(const ErrorPlace& place)
{
    return place.Mode == kHintAlone && !place.Hint.empty();
}

std::string ErrorText(const ErrorFacts& facts)
{
    std::string report;
    AppendLine(report, "Last Error Number: ", std::to_string(facts.Number), ".");
    AppendLine(report, "Error Description: ", facts.Description);
    AppendLine(report, "Error Source: ", facts.Source);
    AppendLine(report, "Last DLL Error: ", std::to_string(facts.LastDLLError));
    AppendLine(report, "Error Help File: ", facts.HelpFile);
    AppendLine(report, "Error Help Context: ", std::to_string(facts.HelpContext));
    AppendLine(report, "Class Name: ", facts.ModuleName);
    AppendLine(report, "Routine: ", facts.RoutineName);
    if (!facts.ADOErrors.empty())
        AppendADOErrors(report, facts.ADOErrors);
    return report;
}

} // namespace veldrane
