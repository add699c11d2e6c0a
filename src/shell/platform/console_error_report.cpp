#include "shell/platform/console_error_report.h"

#include "shell/platform/console_text.h"
#include "text/strings.h"

#include <utility>

namespace veldrane {
namespace {

constexpr int kHintAlone = 4;
constexpr std::string_view kProgram = "veldrane: ";

// What failed and what to do, as two sentences.
std::string ClearLine(const std::string& description, const std::string& hint)
{
    std::string line = ConsoleLine(description);
    if (!hint.empty())
        text::AppendSentence(line, ConsoleLine(hint));
    return line;
}

} // namespace

ConsoleErrorReport::ConsoleErrorReport(std::ostream& out, ADOErrors adoErrors)
    : out_(out), adoErrors_(std::move(adoErrors))
{}

void ConsoleErrorReport::ReportError(const RuntimeError& error, const ErrorPlace& place)
{
    ++count_;
    // A hint that is missing must not make the failure a silent one.
    if (place.Mode == kHintAlone && !place.Hint.empty()) {
        out_ << kProgram << ConsoleText(place.Hint) << '\n' << std::flush;
        return;
    }
    const std::string report = ErrorText({.Number = error.Number,
                                          .Description = error.Description(),
                                          .Source = error.Source,
                                          .HelpFile = {},
                                          .ModuleName = place.ModuleName,
                                          .RoutineName = place.RoutineName,
                                          .ADOErrors = adoErrors_ ? adoErrors_(error) : std::vector<ADOError>()});
    out_ << kProgram << ClearLine(error.Description(), place.Hint) << '\n'
         << kConsoleIndent << ConsoleText(report) << '\n'
         << std::flush;
}

} // namespace veldrane
