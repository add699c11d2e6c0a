// The project files of the golden projects: as the program writes them, with built-in members as it makes them.

#include "golden_projects.h"
#include "opened_golden.h"
#include "program.h"

#include "datasource/builtin_members.h"

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

std::vector<std::string> SaneNames()
{
    std::vector<std::string> names = GoldenNames();
    std::erase_if(names, [](const std::string& name) { return !GoldenProject(name).IsSane(); });
    return names;
}

std::string TextOf(const TTCParameter& argument)
{
    return std::to_string(argument.Index) + (argument.OptionalIndicator ? " Optional " : " ") +
           (argument.ByValIndicator ? "ByVal " : "ByRef ") + argument.VariableName + (argument.IsArray ? "()" : "") +
           " as " + argument.ParameterDataType + "=" + argument.DefaultValue + " on '" + argument.ColumnName + "'";
}

std::string TextOf(const TTCMethod& method)
{
    std::string text = method.Scope + " " + method.MethodName + " as '" + method.ReturnDataType + "'";
    for (const TTCParameter& argument : method.Arguments)
        text += "\n    " + TextOf(argument);
    return text;
}

bool IsListed(const KZMClass& owner, const std::string& methodName)
{
    for (const BuiltInMethod& method : BuiltInMethods())
        if (method.Name == methodName)
            return IsAvailable(method, owner);
    return false;
}

bool IsListedEvent(const KZMClass& owner, const std::string& eventName)
{
    for (const BuiltInEvent& event : BuiltInEvents())
        if (event.Name == eventName)
            return IsAvailable(event, owner);
    return false;
}

class GoldenModel : public ::testing::TestWithParam<std::string>
{};

TEST_P(GoldenModel, ComesBackTheSameFromReadingAndSaving)
{
    const GoldenProject golden(GetParam());
    OpenedGolden opened(golden);
    EXPECT_TRUE(opened.SavedBytes() == BytesOf(golden.Path(golden.ProjectFile())));
}

class SaneGoldenModel : public GoldenModel
{};

TEST_P(SaneGoldenModel, HasBuiltInMembersAsTheEditorsMakeThem)
{
    const OpenedGolden opened{GoldenProject(GetParam())};
    for (const KZMClass& owner : opened.Classes) {
        SCOPED_TRACE(owner.ClassName);
        if (owner.IsMTSRequiredClass)
            continue;
        for (const TTCMethod& method : owner.TTCMethods)
            if (method.PlusMethod) {
                ASSERT_TRUE(IsListed(owner, method.MethodName)) << method.MethodName;
                EXPECT_EQ(TextOf(method), TextOf(*MakeBuiltInMethod(method.MethodName, owner)));
            }
        for (const ttcEvent& event : owner.TTCEvents)
            EXPECT_TRUE(!event.PlusEvent || IsListedEvent(owner, event.EventName)) << event.EventName;
    }
}

INSTANTIATE_TEST_SUITE_P(Projects, GoldenModel, ::testing::ValuesIn(GoldenNames()), TestNameOf);
INSTANTIATE_TEST_SUITE_P(Projects, SaneGoldenModel, ::testing::ValuesIn(SaneNames()), TestNameOf);

} // namespace
} // namespace veldrane::testing
