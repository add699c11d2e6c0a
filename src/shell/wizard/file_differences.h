#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

enum class DifferenceKind
{
    Same,
    Removed, // stands in the file on disk alone
    Added,   // stands in the new text alone
};

// A line of the unified view. Lines count from 1; a line that a text lacks has no number there. The text is without the
// line's end; where the ends are a difference themselves, it tells that of a line that is not the same and ends in
// another way than the generated ones: "x [LF]", "x [no line end]".
struct DifferenceLine
{
    DifferenceKind Kind = DifferenceKind::Same;
    std::size_t OldNumber = 0; // 0 for none
    std::size_t NewNumber = 0;
    std::string Text;

    friend bool operator==(const DifferenceLine&, const DifferenceLine&) = default;
};

// A row of the view side by side; one of both may be missing.
struct DifferenceRow
{
    std::optional<std::size_t> Old; // places in the lines
    std::optional<std::size_t> New;

    friend bool operator==(const DifferenceRow&, const DifferenceRow&) = default;
};

// By which lines the new text differs from the old one, their ends included; of each difference, what was removed
// stands first. Where more than 4000 lines lie between the first and the last difference, lines that both texts have
// once are taken for the same, in the most that have one order; where that many lie between two of those still, the old
// ones come first, and all of the new ones behind them.
[[nodiscard]] std::vector<DifferenceLine> DifferencesOf(std::string_view oldText, std::string_view newText);

// The same lines side by side: what was removed beside what came in its place.
[[nodiscard]] std::vector<DifferenceRow> SideBySide(const std::vector<DifferenceLine>& lines);

} // namespace veldrane
