#pragma once

#include "shell/main_window/preview_pane.h"

#include <string>
#include <utility>
#include <vector>

namespace veldrane::testing {

// Shows these lines in the pane, as code.
inline void ShowLines(PreviewPane& pane, const std::vector<std::string>& lines, std::string title = "Preview")
{
    PreviewText text;
    TTCOutputs& block = text.Blocks.emplace_back();
    for (const std::string& line : lines)
        block.Add(line);
    pane.Show(std::move(text), std::move(title));
}

} // namespace veldrane::testing
