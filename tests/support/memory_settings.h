#pragma once

#include "ports/settings.h"

#include <map>

namespace veldrane::testing {

// The settings store in memory, with the oddities of the real one.
class MemorySettings : public Settings
{
  public:
    [[nodiscard]] std::string GetKeyValue(std::string_view section, std::string_view name) const override;
    void UpdateKey(std::string_view section, std::string_view name, std::string_view value) override;
    [[nodiscard]] std::vector<std::pair<std::string, std::string>>
    GetAllSettings(std::string_view section) const override;
    void SaveSetting(std::string_view section, std::string_view name, std::string_view value) override;
    void DeleteSetting(std::string_view section, std::string_view name) override;

  private:
    using Values = std::vector<std::pair<std::string, std::string>>;
    std::map<std::string, Values> sections_; // by folded name
};

} // namespace veldrane::testing
