#include "projectfile/format.h"

#include <algorithm>

namespace veldrane::project_format {
namespace {

// Cuts the next piece that is not empty from the head of the line.
std::string_view TakePiece(std::string_view& line)
{
    line.remove_prefix(std::min(line.find_first_not_of(kSeparator), line.size()));
    const std::string_view piece = line.substr(0, line.find(kSeparator));
    line.remove_prefix(piece.size());
    return piece;
}

} // namespace

KeyAndValue SplitValueLine(std::string_view line)
{
    const std::string_view key = TakePiece(line);
    return {.Key = key, .Value = TakePiece(line)};
}

} // namespace veldrane::project_format
