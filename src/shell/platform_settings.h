#pragma once

#include "datasource/driver_profile.h"
#include "ports/settings.h"
#include "text/code_page.h"

#include <chrono>
#include <string>

namespace veldrane {

// The keys of the section Platform: what has no counterpart on the system that the program was laid out for.
struct PlatformSettings
{
    text::CodePage CodePage;
    std::chrono::seconds ConnectTimeout{15};
    std::chrono::seconds StatementTimeout{60};
    std::string VisualBasicCommand;
    std::string TdsDriver{kTdsDriver}; // the ODBC driver that reaches SQL Server
};

// Reads them. A time that is no positive number counts as not set, one of more than a
// day as a day. Throws RuntimeError for a code page that is none,
// naming the key.
[[nodiscard]] PlatformSettings ReadPlatformSettings(const RegistryAccess& settings);

} // namespace veldrane
