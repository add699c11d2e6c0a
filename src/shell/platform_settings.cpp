#include "shell/platform_settings.h"

#include "text/conversion.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <algorithm>
#include <utility>

namespace veldrane {
namespace {

// Drivers count in milliseconds, in numbers that hold some weeks.
constexpr std::chrono::seconds kLongestTime = std::chrono::hours(24);

std::string Value(const RegistryAccess& settings, std::string_view name)
{
    return std::string(text::Trim(settings.GetKeyValue(settings_section::kPlatform, name)));
}

std::chrono::seconds Seconds(const RegistryAccess& settings, std::string_view name, std::chrono::seconds whenUnset)
{
    const std::chrono::seconds value(text::LeadingNumber(Value(settings, name)));
    return value.count() > 0 ? std::min(value, kLongestTime) : whenUnset;
}

text::CodePage CodePageOf(const std::string& value)
{
    if (value.empty())
        return text::CodePage();
    try {
        return text::CodePage(text::ToLong(value));
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number, error.Source,
                           "The setting CodePage in the section Platform is '" + value + "'. " + error.Description());
    }
}

} // namespace

PlatformSettings ReadPlatformSettings(const RegistryAccess& settings)
{
    PlatformSettings read{.CodePage = CodePageOf(Value(settings, "CodePage"))};
    read.ConnectTimeout = Seconds(settings, "ConnectTimeout", read.ConnectTimeout);
    read.StatementTimeout = Seconds(settings, "StatementTimeout", read.StatementTimeout);
    read.VisualBasicCommand = Value(settings, "VisualBasicCommand");
    if (std::string driver = Value(settings, "TdsDriver"); !driver.empty())
        read.TdsDriver = std::move(driver);
    return read;
}

} // namespace veldrane
