#include "shell/main_window/help_messages.h"

namespace veldrane {
namespace {

constexpr std::string_view kShownNoMore = "1";

} // namespace

bool IsShown(const HelpMessage& message, const RegistryAccess& registry)
{
    return registry.GetKeyValue(settings_section::kHelp, message.Name) != kShownNoMore;
}

void TurnOff(const HelpMessage& message, RegistryAccess& registry)
{
    registry.UpdateKey(settings_section::kHelp, message.Name, kShownNoMore);
}

void ResetHelpMessages(RegistryAccess& registry)
{
    for (const HelpMessage& message : kHelpMessages)
        registry.UpdateKey(settings_section::kHelp, message.Name, "0");
}

} // namespace veldrane
