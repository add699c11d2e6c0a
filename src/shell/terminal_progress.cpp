#include "shell/terminal_progress.h"

#include "shell/platform/console_text.h"

#include <iomanip>
#include <sstream>

namespace veldrane {

void TerminalProgress::Stage(int percent, const std::string& line)
{
    std::ostringstream shown;
    shown << '[' << std::setw(3) << percent << "%] " << ConsoleLine(line) << '\n';
    out_ << shown.str() << std::flush; // whole, whoever else writes to the terminal
    shown_ = time_.Now();
}

void TerminalProgress::Step(int percent, const std::string& line)
{
    // A clock that is set back shows a line too many rather than none for hours.
    const auto passed = time_.Now() - shown_;
    if (passed >= kInterval || passed < passed.zero())
        Stage(percent, line);
}

} // namespace veldrane
