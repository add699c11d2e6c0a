#include "shell/platform_settings.h"
#include "support/memory_settings.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using testing::MemorySettings;

TEST(PlatformSettings, HaveDefaults)
{
    const PlatformSettings read = ReadPlatformSettings(MemorySettings());
    EXPECT_EQ(read.CodePage.Number(), 1252);
    EXPECT_EQ(read.ConnectTimeout.count(), 15);
    EXPECT_EQ(read.StatementTimeout.count(), 60);
    EXPECT_EQ(read.VisualBasicCommand, "");
    EXPECT_EQ(read.TdsDriver, "FreeTDS");
}

TEST(PlatformSettings, AreReadFromTheirSection)
{
    MemorySettings settings;
    settings.SaveSetting(settings_section::kPlatform, "CodePage", "1250");
    settings.SaveSetting(settings_section::kPlatform, "ConnectTimeout", "3");
    settings.SaveSetting(settings_section::kPlatform, "StatementTimeout", "120");
    settings.SaveSetting(settings_section::kPlatform, "VisualBasicCommand", "wine \"C:\\VB98\\VB6.EXE\" \"%1\"");
    settings.SaveSetting(settings_section::kPlatform, "TdsDriver", " My TDS ");
    const PlatformSettings read = ReadPlatformSettings(settings);
    EXPECT_EQ(read.TdsDriver, "My TDS");
    EXPECT_EQ(read.CodePage.Number(), 1250);
    EXPECT_EQ(read.ConnectTimeout.count(), 3);
    EXPECT_EQ(read.StatementTimeout.count(), 120);
    EXPECT_EQ(read.VisualBasicCommand, "wine \"C:\\VB98\\VB6.EXE\" \"%1\"");
}

TEST(PlatformSettings, TakeATimeThatIsNoneForUnset)
{
    for (const char* value : {"", " ", "soon", "0", "-4"}) {
        MemorySettings settings;
        settings.SaveSetting(settings_section::kPlatform, "ConnectTimeout", value);
        EXPECT_EQ(ReadPlatformSettings(settings).ConnectTimeout.count(), 15) << value;
    }
}

TEST(PlatformSettings, TakeATimeOfMoreThanADayForADay)
{
    for (const char* value : {"86401", "2147483647", "99999999999999999999"}) {
        MemorySettings settings;
        settings.SaveSetting(settings_section::kPlatform, "StatementTimeout", value);
        EXPECT_EQ(ReadPlatformSettings(settings).StatementTimeout, std::chrono::hours(24)) << value;
    }
}

TEST(PlatformSettings, NameACodePageThatIsNone)
{
    for (const char* value : {"932", "latin", "99999"}) {
        MemorySettings settings;
        settings.SaveSetting(settings_section::kPlatform, "CodePage", value);
        try {
            static_cast<void>(ReadPlatformSettings(settings));
            ADD_FAILURE() << value;
        } catch (const RuntimeError& error) {
            EXPECT_THAT(error.Description(), ::testing::HasSubstr("The setting CodePage in the section Platform is '" +
                                                                  std::string(value) + "'."));
        }
    }
}

} // namespace
} // namespace veldrane
