#pragma once

#include <string>
#include <string_view>

namespace veldrane {

inline constexpr std::string_view kConsoleIndent = "    ";

// The text as a terminal takes it: CR LF, CR and LF become LF, every line that is not empty has `indent` before it
// except the first, line breaks at either end are dropped. Other control characters become "?", so that a name from a
// file or a driver can't steer the terminal; ill-formed bytes become U+FFFD.
[[nodiscard]] std::string ConsoleText(std::string_view text, std::string_view indent = kConsoleIndent);

// The same on one line: a run of line breaks becomes one blank.
[[nodiscard]] std::string ConsoleLine(std::string_view text);

} // namespace veldrane
