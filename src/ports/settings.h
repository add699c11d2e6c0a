#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane {

// The sections of the settings store.
namespace settings_section {
inline constexpr std::string_view kOptions = "Options";
inline constexpr std::string_view kWindow = "Window";
inline constexpr std::string_view kHelp = "Help";
inline constexpr std::string_view kGenerateCodeSettings = "GenerateCodeSettings";
inline constexpr std::string_view kTempFiles = "TempFiles";
inline constexpr std::string_view kMRU = "MRU";
inline constexpr std::string_view kPlatform = "Platform";
} // namespace settings_section

// Named values in named sections, as a registry keeps them under its keys. Names are compared without regard to case.
class RegistryAccess
{
  public:
    virtual ~RegistryAccess() = default;

    // The value, or "" if the section or the value is missing. Cut at its first NUL and after 1024 bytes; no
    // character is cut in two.
    [[nodiscard]] virtual std::string GetKeyValue(std::string_view section, std::string_view name) const = 0;

    // Stores the value, making the section if need be. An empty value is stored as a single blank. Throws RuntimeError
    // (75) if the store can't be written; the store is then as it was.
    virtual void UpdateKey(std::string_view section, std::string_view name, std::string_view value) = 0;
};

// The per-user settings, whole.
class Settings : public RegistryAccess
{
  public:
    // All values of a section, in their order; empty if there is no such section.
    [[nodiscard]] virtual std::vector<std::pair<std::string, std::string>>
    GetAllSettings(std::string_view section) const = 0;

    // Stores the value as it is. Throws as UpdateKey does.
    virtual void SaveSetting(std::string_view section, std::string_view name, std::string_view value) = 0;

    // Removes one value, or the whole section with an empty name; what is missing is passed over. Throws as UpdateKey.
    virtual void DeleteSetting(std::string_view section, std::string_view name = {}) = 0;
};

} // namespace veldrane
