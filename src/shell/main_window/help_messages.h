#pragma once

#include "ports/settings.h"

#include <array>
#include <cstdint>
#include <string_view>

// The help messages, each of which a person may have chosen to see no more.
namespace veldrane {

struct HelpMessage
{
    std::string_view Name; // of its value in the section Help: "1" if it is no longer shown
    std::string_view About;
};

// In the order of their numbers.
inline constexpr auto kHelpMessages = std::to_array<HelpMessage>({
    {"warnDataTypeRegulation", "Changing the data type of a property"},
    {"warnPreviewPaneFontChange", "Changing the font of the preview"},
    {"warnOpenDatasource", "Opening another data source"},
    {"warnSPsAsMethodsInPro", "Stored procedures as methods"},
    {"warnHelpMessages", "Showing all help messages again"},
    {"warnLoggingTable", "The table of the application log"},
});

// The numbers of the help messages: their places in kHelpMessages.
namespace warning_id {
inline constexpr std::int32_t kDataTypeRegulation = 0;
inline constexpr std::int32_t kPreviewPaneFontChange = 1;
inline constexpr std::int32_t kOpenDatasource = 2;
inline constexpr std::int32_t kSPsAsMethodsInPro = 3;
inline constexpr std::int32_t kHelpMessages = 4;
inline constexpr std::int32_t kLoggingTable = 5;
} // namespace warning_id

// Whether the message is still shown.
[[nodiscard]] bool IsShown(const HelpMessage& message, const RegistryAccess& registry);

// Has the message shown no more. Throws as UpdateKey does.
void TurnOff(const HelpMessage& message, RegistryAccess& registry);

// Has every message shown again. Throws as UpdateKey does.
void ResetHelpMessages(RegistryAccess& registry);

} // namespace veldrane
