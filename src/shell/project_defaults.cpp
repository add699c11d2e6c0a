#include "shell/project_defaults.h"

#include "shell/option_text.h"
#include "text/conversion.h"

namespace veldrane {
namespace {

struct TextOption
{
    std::string_view Name;
    std::string TTCProject::*Member;
    std::string_view Default;
};

struct BooleanOption
{
    std::string_view Name;
    bool TTCProject::*Member;
    bool Default;
};

constexpr auto kTextOptions = std::to_array<TextOption>({
    {"Author", &TTCProject::Author, ""},
    {"WrapperClassName", &TTCProject::WrapperClassName, "Auto"},
});

constexpr auto kBooleanOptions = std::to_array<BooleanOption>({
    {"UseTransactions", &TTCProject::UseTransactions, true},
    {"MakeWebCompatible", &TTCProject::MakeWebCompatible, false},
    {"DoNotExposeChildrenMethods", &TTCProject::DoNotExposeChildrenMethods, true},
    {"TrackPropertyChanges", &TTCProject::TrackPropertyChanges, true},
    {"WriteErrorsToApplicationLog", &TTCProject::WriteErrorsToApplicationLog, true},
    {"AutoSave", &TTCProject::AutosaveProject, true},
    {"MTSEnabled", &TTCProject::MTSEnabled, true},
    {"UseADOR", &TTCProject::UseADOR, true},
});

std::string OptionText(const RegistryAccess& registry, std::string_view name)
{
    return registry.GetKeyValue(settings_section::kOptions, name);
}

} // namespace

void ReadProjectDefaults(TTCProject& project, const RegistryAccess& registry, DefaultsOf which)
{
    for (const ProjectPrefix& prefix : kProjectPrefixes)
        project.*prefix.Member = OptionText(registry, prefix.Option);
    if (which == DefaultsOf::Prefixes)
        return;
    for (const TextOption& option : kTextOptions) {
        const std::string value = OptionText(registry, option.Name);
        project.*option.Member = value.empty() ? std::string(option.Default) : value;
    }
    for (const BooleanOption& option : kBooleanOptions)
        project.*option.Member = BooleanOf(OptionText(registry, option.Name), option.Default);
}

void WriteProjectDefaults(const TTCProject& project, Settings& settings, DefaultsOf which)
{
    // An emptied value would read back as a blank; one that is missing reads back as nothing.
    const auto store = [&](std::string_view name, std::string_view value) {
        if (value.empty())
            settings.DeleteSetting(settings_section::kOptions, name);
        else
            settings.UpdateKey(settings_section::kOptions, name, value);
    };
    for (const ProjectPrefix& prefix : kProjectPrefixes)
        store(prefix.Option, project.*prefix.Member);
    if (which == DefaultsOf::Prefixes)
        return;
    for (const TextOption& option : kTextOptions)
        store(option.Name, project.*option.Member);
    for (const BooleanOption& option : kBooleanOptions)
        store(option.Name, text::TextOf(project.*option.Member));
}

} // namespace veldrane
