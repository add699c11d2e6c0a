#include "shell/main_window/help_messages.h"

namespace veldrane {

bool IsShown(const HelpMessage& message, const RegistryAccess& registry)
{
    return registry.GetKeyValue(settings_section::kHelp, message.Name) != "1";
}

void ResetHelpMessages(RegistryAccess& registry)
{
    for (const HelpMessage& message : kHelpMessages)
        registry.UpdateKey(settings_section::kHelp, message.Name, "0");
}

} // namespace veldrane
