#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace veldrane {

// A line that stands in two texts, by its places there.
struct CommonLine
{
    std::size_t Old;
    std::size_t New;

    friend bool operator==(const CommonLine&, const CommonLine&) = default;
};

// The most lines that stand once in each of two texts and in the same order in both. The time grows with the number of
// lines alone, but for a logarithm.
[[nodiscard]] std::vector<CommonLine> CommonUniqueLines(const std::vector<std::string>& before,
                                                        const std::vector<std::string>& after);

} // namespace veldrane
