#pragma once

#include "ports/settings.h"

#include <array>
#include <string_view>

// The help messages, each of which a person may have chosen to see no more.
namespace veldrane {

struct HelpMessage
{
    std::string_view Name; // of its value in the section Help: "1" if it is no longer shown
    std::string_view About;
};

// In the order of their numbers, from 0.
inline constexpr auto kHelpMessages = std::to_array<HelpMessage>({
    {"warnDataTypeRegulation", "Changing the data type of a property"},
    {"warnPreviewPaneFontChange", "Changing the font of the preview"},
    {"warnOpenDatasource", "Opening another data source"},
    {"warnSPsAsMethodsInPro", "Stored procedures as methods"},
    {"warnHelpMessages", "Help messages"},
    {"warnLoggingTable", "The table of the application log"},
});

// Whether the message is still shown.
[[nodiscard]] bool IsShown(const HelpMessage& message, const RegistryAccess& registry);

// Has every message shown again. Throws as UpdateKey does.
void ResetHelpMessages(RegistryAccess& registry);

} // namespace veldrane
