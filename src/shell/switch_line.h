#pragma once

#include "ports/file_system.h"

#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

inline constexpr std::string_view kProjectExtension = ".kzm";

// The words of a command line that has no command.
struct SwitchLine
{
    bool AutoCompileMode = false;    // /C
    bool DebugTiming = false;        // /DEBUG
    bool DeleteAfterCompile = false; // /DELETE
    bool NoSplash = false;           // /NOSPLASH
    std::string File;                // the word that ends in .kzm or names a plain file
    std::string Folder;              // another word
    std::string Surplus;             // the first word for which there is no place; "" for none
};

// Takes the words apart. Switches are exact words in capitals and may stand anywhere; any other word that begins with a
// slash is a path.
[[nodiscard]] SwitchLine ReadSwitchLine(const std::vector<std::string>& words, const FileSystem& files);

} // namespace veldrane
