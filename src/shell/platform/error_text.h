#pragma once

#include "ports/ado_error.h"
#include "ports/error_report.h"

#include <string>
#include <vector>

namespace veldrane {

// What an error report tells. Numbers and texts that this platform's failures do not carry are 0 and empty.
struct ErrorFacts
{
    long Number = 0;
    std::string Description;
    std::string Source;
    long LastDLLError = 0;
    std::string HelpFile;
    long HelpContext = 0;
    std::string ModuleName;
    std::string RoutineName;
    std::vector<ADOError> ADOErrors; // in the collection's order
};

// What is known of a failure and the place where it was met.
[[nodiscard]] ErrorFacts FactsOf(const RuntimeError& error, const ErrorPlace& place, std::vector<ADOError> adoErrors);

// Whether the report of the failure is its hint alone (mode 4). A hint that is missing must not make the failure a
// silent one.
[[nodiscard]] bool IsHintAlone(const ErrorPlace& place);

// The report, lines ending in CR LF. Without ADO errors their block is absent.
[[nodiscard]] std::string ErrorText(const ErrorFacts& facts);

} // namespace veldrane
