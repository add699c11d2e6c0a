#pragma once

#include "support/memory_settings.h"
#include "text/runtime_error.h"

namespace veldrane::testing {

// A settings store in memory that can be read, and written only while it is not told to fail.
class FailingSettings : public MemorySettings
{
  public:
    void UpdateKey(std::string_view section, std::string_view name, std::string_view value) override
    {
        Check();
        MemorySettings::UpdateKey(section, name, value);
    }

    void SaveSetting(std::string_view section, std::string_view name, std::string_view value) override
    {
        Check();
        MemorySettings::SaveSetting(section, name, value);
    }

    void DeleteSetting(std::string_view section, std::string_view name) override
    {
        Check();
        MemorySettings::DeleteSetting(section, name);
    }

    bool Fails = false;
    int FailAtWrite = 0; // 1 for the first; 0 for never
    int Writes = 0;

  private:
    void Check()
    {
        ++Writes;
        if (Fails || Writes == FailAtWrite)
            throw RuntimeError(error_number::kPathAccess, "FailingSettings", "/settings.ini: Permission denied");
    }
};

} // namespace veldrane::testing
