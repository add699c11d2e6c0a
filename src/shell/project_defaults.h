#pragma once

#include "model/project.h"
#include "ports/settings.h"

#include <array>
#include <string>
#include <string_view>

// The values of a project that the section Options keeps for new ones.
namespace veldrane {

enum class DefaultsOf
{
    WholeProject,
    Prefixes, // of files and of variables
};

// A prefix that generated names begin with.
struct ProjectPrefix
{
    std::string_view Name;
    std::string TTCProject::*Member;
    std::string_view Option; // the name of its default
};

// Of files first, then of variables by their types.
inline constexpr auto kProjectPrefixes = std::to_array<ProjectPrefix>({
    {"Class Module File", &TTCProject::ClassPrefix, "ClassPrefix"},
    {"Basic Module File", &TTCProject::ModulePrefix, "ModulePrefix"},
    {"Form File", &TTCProject::FormPrefix, "FormPrefix"},
    {"Boolean", &TTCProject::PrefixBoolean, "Boolean"},
    {"Byte", &TTCProject::PrefixByte, "Byte"},
    {"Collection", &TTCProject::PrefixCollection, "Collection"},
    {"Currency", &TTCProject::PrefixCurrency, "Currency"},
    {"Date", &TTCProject::PrefixDate, "Date"},
    {"Double", &TTCProject::PrefixDouble, "Double"},
    {"Integer", &TTCProject::PrefixInteger, "Integer"},
    {"Long", &TTCProject::PrefixLong, "Long"},
    {"Object", &TTCProject::PrefixObject, "Object"},
    {"Other", &TTCProject::PrefixOther, "Other"},
    {"Single", &TTCProject::PrefixSingle, "Single"},
    {"String", &TTCProject::PrefixString, "String"},
    {"Variant", &TTCProject::PrefixVariant, "Variant"},
});

// Gives the project the defaults. An option that is absent or empty gives its own default; one of two values whose text
// is neither True nor False counts as False. Throws as the store does; the project then has what was read so far.
void ReadProjectDefaults(TTCProject& project, const RegistryAccess& registry, DefaultsOf which);

// Keeps the project's values as the defaults; an empty text leaves the option to its own default. Throws as UpdateKey
// does.
void WriteProjectDefaults(const TTCProject& project, Settings& settings, DefaultsOf which);

} // namespace veldrane
