#pragma once

#include "generator/line_class.h"
#include "text/code_page.h"

#include <string>
#include <string_view>

namespace veldrane {

// The product's title, as generated project files carry it.
inline constexpr std::string_view kAppTitle = "Veldrane Professional Edition +Forms";

// Prefix of the private variables that keep the key values as last read, and of the Friend properties that set them.
inline constexpr std::string_view kPushPrefix = "push";
inline constexpr std::string_view kSavePrefix = "Save";

// What the generator takes from the user's settings and the command line.
struct GenerationSettings
{
    text::CodePage CodePage{}; // of the files that are written
    LineColors Colors;
    std::string AppTitle = std::string(kAppTitle);
    bool DebugTiming = false;       // generated data routines print how long they took
    std::string VisualBasicCommand; // the command that opens a project in Visual Basic; "" for none
    std::string ApplicationFolder;  // where Compile.log is written
};

} // namespace veldrane
