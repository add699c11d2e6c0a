#include "shell/platform/console_error_report.h"

#include "shell/platform/console_text.h"
#include "text/strings.h"

#include <utility>

namespace veldrane {
namespace {

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
    if (IsHintAlone(place)) {
        out_ << kProgram << ConsoleText(place.Hint) << '\n' << std::flush;
        return;
    }
    const std::string report =
        ErrorText(FactsOf(error, place, adoErrors_ ? adoErrors_(error) : std::vector<ADOError>()));
    out_ << kProgram << ClearLine(error.Description(), place.Hint) << '\n'
         << kConsoleIndent << ConsoleText(report) << '\n'
         << std::flush;
}

} // namespace veldrane
