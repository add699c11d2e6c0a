#include "shell/wizard/common_lines.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace veldrane {
namespace {

struct Occurrence
{
    std::size_t Count = 0;
    std::size_t Place = 0; // the last one
};

using Occurrences = std::unordered_map<std::string_view, Occurrence>;

Occurrences OccurrencesOf(const std::vector<std::string>& lines)
{
    Occurrences found;
    found.reserve(lines.size());
    for (std::size_t place = 0; place < lines.size(); ++place) {
        Occurrence& line = found[lines[place]];
        ++line.Count;
        line.Place = place;
    }
    return found;
}

// In the order of the old text.
std::vector<CommonLine> UniqueInBoth(const std::vector<std::string>& before, const std::vector<std::string>& after)
{
    const Occurrences old = OccurrencesOf(before);
    const Occurrences fresh = OccurrencesOf(after);
    std::vector<CommonLine> found;
    for (std::size_t place = 0; place < before.size(); ++place) {
        const auto other = fresh.find(before[place]);
        if (other != fresh.end() && other->second.Count == 1 && old.at(before[place]).Count == 1)
            found.push_back({place, other->second.Place});
    }
    return found;
}

// The longest part of the lines whose places in the new text rise. Of each length so far, the line is kept that ends a
// part of that length earliest in the new text; each line knows the one before it.
std::vector<CommonLine> LongestRising(const std::vector<CommonLine>& lines)
{
    std::vector<std::size_t> ends;
    std::vector<std::optional<std::size_t>> previous(lines.size());
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const auto end = std::lower_bound(ends.begin(), ends.end(), lines[at].New,
                                          [&](std::size_t line, std::size_t place) { return lines[line].New < place; });
        if (end != ends.begin())
            previous[at] = *(end - 1);
        if (end == ends.end())
            ends.push_back(at);
        else
            *end = at;
    }
    std::vector<CommonLine> rising;
    for (auto at = ends.empty() ? std::nullopt : std::optional(ends.back()); at; at = previous[*at])
        rising.push_back(lines[*at]);
    std::reverse(rising.begin(), rising.end());
    return rising;
}

} // namespace

std::vector<CommonLine> CommonUniqueLines(const std::vector<std::string>& before, const std::vector<std::string>& after)
{
    return LongestRising(UniqueInBoth(before, after));
}

} // namespace veldrane
