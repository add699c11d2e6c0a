#include "shell/new_project.h"
#include "support/memory_settings.h"
#include "support/recorded_errors.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using testing::MemorySettings;
using testing::RecordedErrors;

struct NewProjectFixture : ::testing::Test
{
    void Make() { NewProject(Project, Options, Errors); }
    void Set(std::string_view name, std::string_view value)
    {
        Options.SaveSetting(settings_section::kOptions, name, value);
    }

    TTCProject Project;
    MemorySettings Options;
    RecordedErrors Errors;
};

TEST_F(NewProjectFixture, TakesTheDefaultsWhereNoOptionIsSet)
{
    Make();
    EXPECT_EQ(Project.ProjectName(), "New Project");
    EXPECT_EQ(Project.ProjectDescription, "This is a brand new project");
    EXPECT_EQ(Project.VBProjectName, "NewProject");
    EXPECT_EQ(Project.VBProjectDescription, "NewProject Object");
    EXPECT_EQ(Project.WrapperClassName, "Auto");
    EXPECT_EQ(Project.Author, "");
    EXPECT_EQ(Project.PrefixString, "");
    EXPECT_TRUE(Project.UseTransactions);
    EXPECT_TRUE(Project.WriteErrorsToApplicationLog);
    EXPECT_TRUE(Project.AutosaveProject);
    EXPECT_EQ(Project.AutosaveProjectInterval, 5);
    EXPECT_FALSE(Project.MakeWebCompatible);
    EXPECT_TRUE(Project.DoNotExposeChildrenMethods);
    EXPECT_TRUE(Project.TrackPropertyChanges);
    EXPECT_TRUE(Project.MTSEnabled);
    EXPECT_TRUE(Project.UseADOR);
}

TEST_F(NewProjectFixture, FixesWhatNoOptionDecides)
{
    Make();
    EXPECT_TRUE(Project.WrapClasses);
    EXPECT_TRUE(Project.UseGlobalADOObject);
    EXPECT_TRUE(Project.IncludeGlobalsBas);
    EXPECT_TRUE(Project.FormsEnabled);
    EXPECT_FALSE(Project.MTSDontRetrieve);
    EXPECT_EQ(Project.VBVersion, visual_basic_version::kVisualBasic6);
    EXPECT_EQ(Project.FullPath, "");
    EXPECT_FALSE(Project.Modified());
}

TEST_F(NewProjectFixture, TakesEveryOptionThatIsSet)
{
    Set("Author", "M. Olsen");
    Set("UseTransactions", "False");
    Set("WrapperClassName", "Shop");
    Set("MakeWebCompatible", "True");
    Set("DoNotExposeChildrenMethods", "False");
    Set("TrackPropertyChanges", "False");
    Set("WriteErrorsToApplicationLog", "False");
    Set("AutoSave", "False");
    Set("ClassPrefix", "cls");
    Set("ModulePrefix", "mod");
    Set("FormPrefix", "frm");
    Set("MTSEnabled", "False");
    Set("UseADOR", "False");
    Make();
    EXPECT_EQ(Project.Author, "M. Olsen");
    EXPECT_FALSE(Project.UseTransactions);
    EXPECT_EQ(Project.WrapperClassName, "Shop");
    EXPECT_TRUE(Project.MakeWebCompatible);
    EXPECT_FALSE(Project.DoNotExposeChildrenMethods);
    EXPECT_FALSE(Project.TrackPropertyChanges);
    EXPECT_FALSE(Project.WriteErrorsToApplicationLog);
    EXPECT_FALSE(Project.AutosaveProject);
    EXPECT_EQ(Project.ClassPrefix, "cls");
    EXPECT_EQ(Project.ModulePrefix, "mod");
    EXPECT_EQ(Project.FormPrefix, "frm");
    EXPECT_FALSE(Project.MTSEnabled);
    EXPECT_FALSE(Project.UseADOR);
}

TEST_F(NewProjectFixture, TakesEachPrefixFromTheOptionOfItsType)
{
    const std::vector<std::pair<std::string, std::string TTCProject::*>> prefixes{
        {"Boolean", &TTCProject::PrefixBoolean},
        {"Byte", &TTCProject::PrefixByte},
        {"Collection", &TTCProject::PrefixCollection},
        {"Currency", &TTCProject::PrefixCurrency},
        {"Date", &TTCProject::PrefixDate},
        {"Double", &TTCProject::PrefixDouble},
        {"Integer", &TTCProject::PrefixInteger},
        {"Long", &TTCProject::PrefixLong},
        {"Object", &TTCProject::PrefixObject},
        {"Other", &TTCProject::PrefixOther},
        {"Single", &TTCProject::PrefixSingle},
        {"String", &TTCProject::PrefixString},
        {"Variant", &TTCProject::PrefixVariant}};
    for (const auto& [name, member] : prefixes)
        Set(name, "p" + name);
    Make();
    for (const auto& [name, member] : prefixes)
        EXPECT_EQ(Project.*member, "p" + name);
}

TEST_F(NewProjectFixture, CountsABooleanOptionThatIsNoneAsFalse)
{
    Set("UseTransactions", "maybe");
    Set("MTSEnabled", " "); // what an emptied option reads back as
    Set("UseADOR", "");
    Make();
    EXPECT_FALSE(Project.UseTransactions);
    EXPECT_FALSE(Project.MTSEnabled);
    EXPECT_TRUE(Project.UseADOR);
}

TEST_F(NewProjectFixture, TakesTheBlankThatAnEmptiedOptionReadsBackAs)
{
    Options.UpdateKey(settings_section::kOptions, "WrapperClassName", "");
    Options.UpdateKey(settings_section::kOptions, "Author", "");
    Make();
    EXPECT_EQ(Project.WrapperClassName, " ");
    EXPECT_EQ(Project.Author, " ");
}

class UnreadableSettings : public MemorySettings
{
  public:
    [[nodiscard]] std::string GetKeyValue(std::string_view /*section*/, std::string_view /*name*/) const override
    {
        throw RuntimeError(error_number::kPathAccess, "Settings", "no rights");
    }
};

TEST_F(NewProjectFixture, ReportsAStoreThatCannotBeRead)
{
    const UnreadableSettings settings;
    NewProject(Project, settings, Errors);
    ASSERT_EQ(Errors.Reported.size(), 1U);
    EXPECT_EQ(Errors.Reported[0].Place.ModuleName, "frmMain");
    EXPECT_EQ(Errors.Reported[0].Place.RoutineName, "NewProject");
    EXPECT_THAT(Errors.Reported[0].Place.Hint,
                ::testing::StartsWith("The registry settings for Veldrane are invalid, please contact "));
    EXPECT_EQ(Project.ProjectName(), "New Project");
}

} // namespace
} // namespace veldrane
