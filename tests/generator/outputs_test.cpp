#include "generator/emitter.h"
#include "generator/outputs.h"
#include "line_text.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>

namespace veldrane {

struct GreetingScope
{
    std::string Name;
};

struct LoudGreetingScope : GreetingScope
{
    std::string Mark;
};

template <>
inline constexpr auto Vocabulary<GreetingScope> = std::to_array<Placeholder<GreetingScope>>({
    {"Name", [](std::string& line, const GreetingScope& s) { line += s.Name; }},
    {"m:Name", [](std::string& line, const GreetingScope& s) { line += "m" + s.Name; }},
});

template <>
inline constexpr auto Vocabulary<LoudGreetingScope> = JoinVocabularies(std::to_array<Placeholder<LoudGreetingScope>>({
                                                                           {"Mark", [](std::string& line, const LoudGreetingScope& s) { line += s.Mark; }},
                                                                           {"m:Name", [](std::string& line, const LoudGreetingScope& s) { line += "M" + s.Name; }},
                                                                       }),
                                                                       InheritedVocabulary<LoudGreetingScope, GreetingScope>());

namespace testing {
namespace {

TEST(TTCOutputs, ReplaceTheMarkForTheCodeColour)
{
    TTCOutputs lines({.ColorCode = 77});
    Color color = kCodeColor;
    const TTCOutput& line = lines.Add("x", true, color, "Sub");
    EXPECT_EQ(line.ForeColor, 77);
    EXPECT_EQ(color, 77);
    EXPECT_TRUE(line.Bold);
    EXPECT_EQ(line.Icon, "Sub");
}

TEST(TTCOutputs, ReachKeyedLinesWithoutRegardToCase)
{
    TTCOutputs lines;
    Color color = 1;
    lines.Add("first", false, color, "", "One");
    lines.Add("second");
    EXPECT_EQ(lines.Item("ONE").LineText, "first");
    EXPECT_THROW(lines.Add("again", false, color, "", "one"), RuntimeError);
    EXPECT_EQ(lines.Count(), 2U);
    EXPECT_THROW(static_cast<void>(lines.Item(3)), RuntimeError);
    EXPECT_THROW(static_cast<void>(lines.Item("Two")), RuntimeError);
}

TEST(TTCOutputs, KeepTheirKeysWhenALineGoes)
{
    TTCOutputs lines;
    Color color = 1;
    lines.Add("first");
    lines.Add("second", false, color, "", "Two");
    lines.Add("third", false, color, "", "Three");
    lines.Remove(1);
    EXPECT_EQ(lines.Item("Three").LineText, "third");
    lines.Remove("two");
    EXPECT_EQ(lines.Count(), 1U);
    EXPECT_EQ(lines.Item(1).LineText, "third");
    EXPECT_THROW(lines.Remove("Two"), RuntimeError);
}

TEST(TTCOutputs, BecomeTextWithALineEndBehindEachLine)
{
    TTCOutputs lines;
    EXPECT_EQ(OutputsToText(lines), "");
    lines.Add("a");
    lines.Add("");
    lines.Add("b");
    EXPECT_EQ(OutputsToText(lines), "a\r\n\r\nb\r\n");
}

TEST(LineClass, LooksLikeItsBoldColourAndIcon)
{
    struct Case
    {
        LineClass Class;
        std::string_view Name;
        bool Bold;
        Color ForeColor;
        std::string_view Icon;
    };
    const LineColors colors{.ColorCode = 1, .ColorHeader = 2, .ColorHidden = 3, .ColorComment = 4, .ColorKey = 5};
    const std::vector<Case> cases{
        {LineClass::Code, "code", false, 1, ""},
        {LineClass::Hidden, "hidden", true, 3, ""},
        {LineClass::Head, "head", true, 2, ""},
        {LineClass::HeadProperty, "head:Property", true, 2, "Property"},
        {LineClass::HeadSub, "head:Sub", true, 2, "Sub"},
        {LineClass::HeadFunction, "head:Function", true, 2, "Function"},
        {LineClass::HeadPlusMethod, "head:PlusMethod", true, 2, "PlusMethod"},
        {LineClass::HeadSP, "head:SP", true, 2, "SP"},
        {LineClass::MarkMTS, "mark:MTS", false, 1, "MTS"},
        {LineClass::MarkGlobe, "mark:Globe", false, 1, "Globe"},
        {LineClass::MarkEvent, "mark:Event", false, 1, "Event"},
        {LineClass::MarkPlusEvent, "mark:PlusEvent", false, 1, "PlusEvent"},
        {LineClass::Alert, "alert", true, 255, ""},
        {LineClass::Note, "note", true, 4, ""},
        {LineClass::Key, "key", false, 5, ""},
    };
    ASSERT_EQ(cases.size(), static_cast<std::size_t>(LineClass::Key) + 1);
    for (const Case& one : cases) {
        TTCOutputs lines(colors);
        const TTCOutput& line = lines.Add("x", one.Class);
        EXPECT_EQ(NameOf(one.Class), one.Name);
        EXPECT_EQ(line.Bold, one.Bold) << one.Name;
        EXPECT_EQ(line.ForeColor, one.ForeColor) << one.Name;
        EXPECT_EQ(line.Icon, one.Icon) << one.Name;
    }
}

TEST(LineColors, AreThoseOfTheOptionsWhereTheUserSetNone)
{
    const LineColors colors;
    EXPECT_EQ(colors.ColorCode, 0);
    EXPECT_EQ(colors.ColorHeader, 0xFF0000);
    EXPECT_EQ(colors.ColorHidden, static_cast<Color>(0x80000011U));
}

TEST(Emitter, ExpandsEachWordAndTheLiteralBetweenThem)
{
    TTCOutputs lines;
    const GreetingScope scope{"World"};
    const Emitter<GreetingScope> emit(lines, scope);
    emit("    {m:Name}, {Name}{Name}! ");
    emit("");
    EXPECT_EQ(Lines(lines), "\ncode|    mWorld, WorldWorld! |\ncode||\n");
}

TEST(Emitter, ConvertsTheWholeLineWhereTheLiteralHasABacktick)
{
    TTCOutputs lines;
    const GreetingScope scope{"a`b"};
    const Emitter<GreetingScope> emit(lines, scope);
    emit("`{Name}`");
    emit("{Name}");
    emit("{Name}", LineClass::Code, Quotes::Convert);
    emit("`{Name}`", LineClass::Code, Quotes::Keep);
    EXPECT_EQ(Lines(lines), "\ncode|\"a\"b\"|\ncode|a`b|\ncode|a\"b|\ncode|`a`b`|\n");
}

TEST(Emitter, NeverExpandsAValueAgain)
{
    TTCOutputs lines;
    const GreetingScope scope{"{Name}"};
    Emitter<GreetingScope>(lines, scope)("<{Name}>");
    EXPECT_EQ(lines.Item(1).LineText, "<{Name}>");
}

TEST(Emitter, TakesBracesOfTheTextAsTheyAre)
{
    TTCOutputs lines;
    const GreetingScope scope;
    Emitter<GreetingScope>(lines, scope)(Verbatim("`{Name}`"), LineClass::Hidden);
    EXPECT_EQ(Lines(lines), "\nhidden|`{Name}`|\n");
}

TEST(Emitter, OfANarrowerScopeKnowsTheWordsOfTheWiderOne)
{
    TTCOutputs lines;
    const GreetingScope scope{"World"};
    const LoudGreetingScope loud{{"World"}, "!"};
    Emitter<GreetingScope>(lines, scope).About(loud)("{Name} {m:Name}{Mark}");
    EXPECT_EQ(lines.Item(1).LineText, "World MWorld!");
}

TEST(Emitter, ReadsValuesWhenTheLineIsMade)
{
    TTCOutputs lines;
    GreetingScope scope{"first"};
    const Emitter<GreetingScope> emit(lines, scope);
    emit("{Name}");
    scope.Name = "second";
    emit("{Name}");
    EXPECT_EQ(OutputsToText(lines), "first\r\nsecond\r\n");
}

} // namespace
} // namespace testing
} // namespace veldrane
