#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane::testing {

enum class BlockDefect
{
    StringLeftOpen,
    NotClosed,      // a block whose end never comes
    ClosedAsOther,  // a routine that ends as one of another kind: a Sub by End Function
    ClosesNothing,  // an end or a middle, such as Else, of a block that is not open
    OutsideRoutine, // a statement behind the first routine and in none
};

[[nodiscard]] std::string_view NameOf(BlockDefect defect);

struct FoundDefect
{
    BlockDefect Defect;
    std::size_t Line; // 1 for the first; of a block that is not closed, the line that opens it
    std::string Text; // the line's, or that of the line that opens the block, without blanks around it
};

// What a module of generated Visual Basic opens and does not close in order, in the order in which it shows. Knows
// routines, blocks and strings, continued lines, comments and the If that ends on its line; knows no expressions.
[[nodiscard]] std::vector<FoundDefect> CheckBlocks(std::string_view moduleText);

} // namespace veldrane::testing
