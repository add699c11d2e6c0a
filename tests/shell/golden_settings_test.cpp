// The golden projects as a set: of any two settings that the generated text depends on, each pair of values occurs.

#include "golden_projects.h"
#include "opened_golden.h"

#include "model/project.h"

#include <gmock/gmock.h>

#include <array>
#include <set>

namespace veldrane::testing {
namespace {

struct Setting
{
    std::string_view Name;
    std::vector<std::string> Values; // as `Value` words them
    std::string (*Value)(const TTCProject& project);
};

std::string OnOrOff(bool value)
{
    return value ? "on" : "off";
}

std::string ComponentServices(const TTCProject& project)
{
    if (!project.MTSEnabled)
        return "off";
    return project.MTSDontRetrieve ? "on, reading beside them" : "on";
}

const std::vector<std::string> kFlag{"on", "off"};

const std::array kSettings{
    Setting{"MTSEnabled", {"off", "on", "on, reading beside them"}, ComponentServices},
    Setting{"TrackPropertyChanges", kFlag,
            [](const TTCProject& project) { return OnOrOff(project.TrackPropertyChanges); }},
    Setting{"UseTransactions", kFlag, [](const TTCProject& project) { return OnOrOff(project.UseTransactions); }},
    Setting{"Jet file", kFlag,
            [](const TTCProject& project) { return OnOrOff(project.DataSource() == data_source_kind::kJet); }},
    Setting{"MakeWebCompatible", kFlag, [](const TTCProject& project) { return OnOrOff(project.MakeWebCompatible); }},
    Setting{
        "Visual Basic 5", kFlag,
        [](const TTCProject& project) { return OnOrOff(project.VBVersion == visual_basic_version::kVisualBasic5); }},
    Setting{"LogTransactions", kFlag, [](const TTCProject& project) { return OnOrOff(project.LogTransactions); }},
    Setting{"WriteErrorsToApplicationLog", kFlag,
            [](const TTCProject& project) { return OnOrOff(project.WriteErrorsToApplicationLog); }},
    Setting{"UseADOR", kFlag, [](const TTCProject& project) { return OnOrOff(project.UseADOR); }},
};

using Pairs = std::set<std::string>;

std::string Pair(const Setting& first, const std::string& firstValue, const Setting& second,
                 const std::string& secondValue)
{
    return std::string(first.Name) + " " + firstValue + " with " + std::string(second.Name) + " " + secondValue;
}

// Calls the body with each two settings.
template <class Body>
void ForEachTwoSettings(const Body& body)
{
    for (std::size_t i = 0; i < kSettings.size(); ++i)
        for (std::size_t j = i + 1; j < kSettings.size(); ++j)
            body(kSettings.at(i), kSettings.at(j));
}

Pairs WantedPairs()
{
    Pairs pairs;
    ForEachTwoSettings([&](const Setting& first, const Setting& second) {
        for (const std::string& firstValue : first.Values)
            for (const std::string& secondValue : second.Values)
                pairs.insert(Pair(first, firstValue, second, secondValue));
    });
    return pairs;
}

Pairs PairsOf(const TTCProject& project)
{
    Pairs pairs;
    ForEachTwoSettings([&](const Setting& first, const Setting& second) {
        pairs.insert(Pair(first, first.Value(project), second, second.Value(project)));
    });
    return pairs;
}

TEST(GoldenSettings, ShowEachPairOfValuesOfTwoSettings)
{
    Pairs missing = WantedPairs();
    for (const std::string& name : GoldenNames())
        for (const std::string& pair : PairsOf(OpenedGolden(GoldenProject(name)).Project))
            missing.erase(pair);
    EXPECT_THAT(missing, ::testing::IsEmpty());
}

TEST(GoldenSettings, ShowRoutinesThatAreTimed)
{
    Pairs switches;
    for (const std::string& name : GoldenNames())
        for (const std::string& word : GoldenProject(name).LinesOf("switches.txt"))
            switches.insert(word);
    EXPECT_THAT(switches, ::testing::Contains("/DEBUG"));
}

} // namespace
} // namespace veldrane::testing
