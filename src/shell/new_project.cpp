#include "shell/new_project.h"

#include "shell/option_text.h"
#include "shell/product.h"

#include <array>
#include <string>
#include <string_view>

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
    {"ClassPrefix", &TTCProject::ClassPrefix, ""},
    {"ModulePrefix", &TTCProject::ModulePrefix, ""},
    {"FormPrefix", &TTCProject::FormPrefix, ""},
    {"Boolean", &TTCProject::PrefixBoolean, ""},
    {"Byte", &TTCProject::PrefixByte, ""},
    {"Collection", &TTCProject::PrefixCollection, ""},
    {"Currency", &TTCProject::PrefixCurrency, ""},
    {"Date", &TTCProject::PrefixDate, ""},
    {"Double", &TTCProject::PrefixDouble, ""},
    {"Integer", &TTCProject::PrefixInteger, ""},
    {"Long", &TTCProject::PrefixLong, ""},
    {"Single", &TTCProject::PrefixSingle, ""},
    {"String", &TTCProject::PrefixString, ""},
    {"Variant", &TTCProject::PrefixVariant, ""},
    {"Object", &TTCProject::PrefixObject, ""},
    {"Other", &TTCProject::PrefixOther, ""},
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

void ReadDefaults(TTCProject& project, const Settings& settings)
{
    for (const TextOption& option : kTextOptions) {
        const std::string value = settings.GetKeyValue(settings_section::kOptions, option.Name);
        project.*option.Member = value.empty() ? std::string(option.Default) : value;
    }
    for (const BooleanOption& option : kBooleanOptions)
        project.*option.Member =
            BooleanOf(settings.GetKeyValue(settings_section::kOptions, option.Name), option.Default);
}

} // namespace

void NewProject(TTCProject& project, const Settings& settings, ErrorReport& report)
{
    project.Clear();
    project.SetProjectName("New Project");
    project.ProjectDescription = "This is a brand new project";
    project.VBProjectName = "NewProject";
    project.VBProjectDescription = "NewProject Object";
    try {
        ReadDefaults(project, settings);
    } catch (const RuntimeError& error) {
        report.ReportError(
            error,
            {.ModuleName = "frmMain",
             .RoutineName = "NewProject",
             .Hint = std::string("The registry settings for Veldrane are invalid, please contact ") + kSupportAddress});
    }
    project.WrapClasses = true;
    project.UseGlobalADOObject = true;
    project.IncludeGlobalsBas = true;
    project.FormsEnabled = true;
    project.FullPath.clear();
    project.SetModified(false);
}

} // namespace veldrane
