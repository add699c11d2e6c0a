#include "projectfile/line_cursor.h"

#include "text/runtime_error.h"

#include <algorithm>

namespace veldrane {
namespace {

// Cuts the next line that is not empty from the head of the text; empty if there is none.
std::string_view TakeLine(std::string_view& text, std::string_view lineEnd)
{
    std::string_view line;
    while (line.empty() && !text.empty()) {
        line = text.substr(0, text.find(lineEnd));
        text.remove_prefix(std::min(text.size(), line.size() + lineEnd.size()));
    }
    return line;
}

std::size_t CountLines(std::string_view text, std::string_view lineEnd)
{
    std::size_t count = 0;
    while (!TakeLine(text, lineEnd).empty())
        ++count;
    return count;
}

} // namespace

LineCursor::LineCursor(std::string_view text, std::string_view lineEnd)
    : rest_(text), lineEnd_(lineEnd), count_(CountLines(text, lineEnd))
{
    Advance();
}

std::string_view LineCursor::Current() const
{
    if (line_.empty())
        throw RuntimeError(error_number::kSubscript, "TTCFileManagement",
                           "The section of classes ends in the middle of a block.");
    return line_;
}

void LineCursor::Advance()
{
    line_ = TakeLine(rest_, lineEnd_);
    position_ = std::min(position_ + 1, count_ + 1);
}

} // namespace veldrane
