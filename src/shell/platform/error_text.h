#pragma once

#include "ports/ado_error.h"

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

// The report, lines ending in CR LF. Without ADO errors their block is absent.
[[nodiscard]] std::string ErrorText(const ErrorFacts& facts);

} // namespace veldrane
