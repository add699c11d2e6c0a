#pragma once

#include "shell/main_window/frm_options.h"

#include <string>
#include <vector>

namespace veldrane::testing {

// Keeps what it is told to take up, in order.
class RecordedOptionsOwner : public OptionsOwner
{
  public:
    void ApplyPreviewFont(const PreviewFont& font) override { Told.push_back("font " + font.Name); }
    void DisplayDataSourceTables() override { Told.emplace_back("lists"); }
    void ApplyPreviewBackground(Color background) override
    {
        Told.push_back("background " + std::to_string(background));
    }
    void ApplyPreviewColors(const LineColors& colors) override
    {
        Told.emplace_back("colours");
        Colors = colors;
    }
    void DisplaySelectedPreview() override { Told.emplace_back("preview"); }

    std::vector<std::string> Told;
    LineColors Colors;
};

} // namespace veldrane::testing
