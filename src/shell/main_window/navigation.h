#pragma once

#include "generator/outputs.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace veldrane {

// An entry of cmbNavigate: where it leads in the preview.
struct NavigationRow
{
    std::string Caption; // the member's name, of a property with what the routine does: "City (Get)"; or the heading
    std::string Icon;
    std::size_t Row = 0; // of the preview, from 0

    friend bool operator==(const NavigationRow&, const NavigationRow&) = default;
};

// The members of what is previewed, in the order of its rows: the routines and events that generated text declares, and
// the headings of a summary, which are the bold rows with a picture. `blocks` are shown one behind the other.
[[nodiscard]] std::vector<NavigationRow> NavigationRows(std::span<const TTCOutputs> blocks);

} // namespace veldrane
