#include "collections/keyed_collection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Town
{
    std::string Name;
};

template <CollectionRules Rules>
class TownsBy : public KeyedCollection<Town, Rules>
{
  public:
    std::shared_ptr<Town> Add(std::string_view name, std::string_view key)
    {
        return this->Insert(std::make_shared<Town>(Town{.Name = std::string(name)}), key);
    }
};

using Towns = TownsBy<CollectionRules{}>;
using LenientTowns = TownsBy<CollectionRules{.Item = OnMissing::YieldsNothing, .Remove = OnMissing::Ignored}>;
using GrowingTowns = TownsBy<CollectionRules{.Extra = Extras::AddExistingAndClear}>;
using CountingTowns = TownsBy<CollectionRules{.Extra = Extras::AddExistingAndLastIndex}>;

long ErrorOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

template <class Collection>
std::vector<std::string> Names(const Collection& towns)
{
    std::vector<std::string> names;
    for (const Town& town : towns)
        names.push_back(town.Name);
    return names;
}

TEST(KeyedCollection, KeepsTheOrderOfInsertion)
{
    Towns towns;
    towns.Add("Zell", "z");
    towns.Add("Aach", "a");
    towns.Add("Melk", "");
    EXPECT_THAT(Names(towns), ElementsAre("Zell", "Aach", "Melk"));
    EXPECT_EQ(towns.Count(), 3U);
    EXPECT_EQ(towns.Item(1)->Name, "Zell");
    EXPECT_EQ(towns.Item(3)->Name, "Melk");
}

TEST(KeyedCollection, ComparesKeysWithoutRegardToCase)
{
    Towns towns;
    towns.Add("Zell", "Größe");
    EXPECT_EQ(towns.Item("GRÖßE")->Name, "Zell");
    EXPECT_TRUE(towns.Contains("größe"));
    EXPECT_FALSE(towns.Contains("Grösse"));
    EXPECT_EQ(ErrorOf([&] { towns.Add("Aach", "gröSSe"); }), 0);
    EXPECT_EQ(ErrorOf([&] { towns.Add("Aach", "gröẞe"); }), error_number::kDuplicateKey);
}

TEST(KeyedCollection, IsUnchangedByADuplicateKey)
{
    CountingTowns towns;
    towns.Add("Zell", "Name");
    EXPECT_EQ(ErrorOf([&] { towns.Add("Aach", "NAME"); }), error_number::kDuplicateKey);
    EXPECT_THAT(Names(towns), ElementsAre("Zell"));
    EXPECT_EQ(towns.Item("name")->Name, "Zell");
    EXPECT_EQ(towns.LastIndex(), "Name");
}

TEST(KeyedCollection, ReachesAnItemWithoutAKeyByPositionAlone)
{
    Towns towns;
    towns.Add("Zell", "");
    towns.Add("Aach", "");
    EXPECT_EQ(towns.Count(), 2U);
    EXPECT_FALSE(towns.Contains(""));
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(towns.Item("")); }), error_number::kInvalidCall);
    EXPECT_EQ(ErrorOf([&] { towns.Remove(""); }), error_number::kInvalidCall);
    EXPECT_EQ(towns.Item(2)->Name, "Aach");
}

TEST(KeyedCollection, RaisesOnWhatIsMissingUnlessToldOtherwise)
{
    Towns towns;
    towns.Add("Zell", "z");
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(towns.Item("a")); }), error_number::kInvalidCall);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(towns.Item(0)); }), error_number::kSubscript);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(towns.Item(2)); }), error_number::kSubscript);
    EXPECT_EQ(ErrorOf([&] { towns.Remove("a"); }), error_number::kInvalidCall);
    EXPECT_EQ(ErrorOf([&] { towns.Remove(0); }), error_number::kSubscript);
    EXPECT_EQ(ErrorOf([&] { towns.Remove(2); }), error_number::kSubscript);
    EXPECT_THAT(Names(towns), ElementsAre("Zell"));
}

TEST(KeyedCollection, YieldsNothingOrIgnoresWhereItIsTold)
{
    LenientTowns towns;
    towns.Add("Zell", "z");
    EXPECT_EQ(towns.Item("a"), nullptr);
    EXPECT_EQ(towns.Item(0), nullptr);
    EXPECT_EQ(towns.Item(2), nullptr);
    towns.Remove("a");
    towns.Remove(0);
    towns.Remove(2);
    EXPECT_THAT(Names(towns), ElementsAre("Zell"));
}

TEST(KeyedCollection, RemovesByKeyAndByPosition)
{
    Towns towns;
    for (const auto* name : {"A", "B", "C", "D"})
        towns.Add(name, name);
    towns.Remove("b");
    towns.Remove(3);
    EXPECT_THAT(Names(towns), ElementsAre("A", "C"));
    EXPECT_FALSE(towns.Contains("D"));
    towns.Add("E", "B");
    EXPECT_EQ(towns.Item("b")->Name, "E");
}

TEST(KeyedCollection, TakesAnExistingItemUnderAFreeKeyOnly)
{
    GrowingTowns towns;
    const auto zell = std::make_shared<Town>(Town{.Name = "Zell"});
    EXPECT_TRUE(towns.AddExisting(zell, "z"));
    EXPECT_FALSE(towns.AddExisting(zell, "Z"));
    EXPECT_TRUE(towns.AddExisting(zell, ""));
    EXPECT_TRUE(towns.AddExisting(zell, ""));
    EXPECT_EQ(towns.Count(), 3U);
    EXPECT_EQ(towns.Item(1), zell);
    EXPECT_EQ(towns.Item("z"), zell);
}

TEST(KeyedCollection, IsEmptyAndFreeOfKeysOnceCleared)
{
    GrowingTowns towns;
    towns.Add("Zell", "z");
    towns.Clear();
    EXPECT_EQ(towns.Count(), 0U);
    EXPECT_THAT(Names(towns), IsEmpty());
    towns.Add("Zug", "Z");
    EXPECT_EQ(towns.Item("z")->Name, "Zug");
}

TEST(KeyedCollection, KeepsTheKeyOfTheLatestAdditionThatHadOne)
{
    CountingTowns towns;
    EXPECT_EQ(towns.LastIndex(), "");
    towns.Add("Zell", "First");
    towns.Add("Aach", "");
    EXPECT_EQ(towns.LastIndex(), "First");
    EXPECT_TRUE(towns.AddExisting(std::make_shared<Town>(), "Second"));
    EXPECT_EQ(towns.LastIndex(), "Second");
    EXPECT_FALSE(towns.AddExisting(std::make_shared<Town>(), "FIRST"));
    EXPECT_EQ(towns.LastIndex(), "Second");
    towns.Remove("Second");
    EXPECT_EQ(towns.LastIndex(), "Second");
}

TEST(KeyedCollection, NamesTheKeyInItsErrors)
{
    Towns towns;
    towns.Add("Zell", "Bad Zell");
    try {
        towns.Add("Zell", "bad zell");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_THAT(error.Description(), HasSubstr("'bad zell'"));
    }
}

TEST(KeyedCollection, MayGrowWhileItIsWalkedByPosition)
{
    Towns towns;
    towns.Add("0", "0");
    for (std::size_t position = 1; position <= towns.Count() && towns.Count() < 100; ++position)
        towns.Add(std::to_string(position), std::to_string(position));
    EXPECT_EQ(towns.Item(100)->Name, "99");
}

// Around the size where an index takes over from a walk.
TEST(KeyedCollection, FindsItsItemsAlikeHoweverManyThereAre)
{
    GrowingTowns towns;
    for (int number = 1; number <= 200; ++number) {
        const std::string name = "Town " + std::to_string(number);
        towns.Add(name, number % 50 == 0 ? "" : name);
        EXPECT_EQ(towns.Contains("TOWN " + std::to_string(number)), number % 50 != 0);
        EXPECT_TRUE(towns.Contains("town 1"));
        EXPECT_FALSE(towns.Contains(""));
        EXPECT_EQ(ErrorOf([&] { towns.Add("Again", "TOWN 1"); }), error_number::kDuplicateKey);
    }
    towns.Remove("town 7");
    towns.Remove(1);
    EXPECT_EQ(towns.Count(), 198U);
    EXPECT_FALSE(towns.Contains("Town 7"));
    EXPECT_FALSE(towns.Contains("Town 1"));
    EXPECT_EQ(towns.Item("town 199")->Name, "Town 199");
    EXPECT_EQ(towns.Item(198)->Name, "Town 200");
    towns.Clear();
    EXPECT_FALSE(towns.Contains("town 199"));
    towns.Add("Town 199", "town 199");
    EXPECT_EQ(towns.Item("TOWN 199")->Name, "Town 199");
}

TEST(KeyedCollection, MovesItsItems)
{
    Towns from;
    from.Add("Zell", "z");
    const Towns to = std::move(from);
    EXPECT_EQ(to.Item("Z")->Name, "Zell");
}

template <class Collection>
concept HasAddExisting = requires(Collection c)
{
    c.AddExisting(nullptr, "");
};
template <class Collection>
concept HasClear = requires(Collection c)
{
    c.Clear();
};
template <class Collection>
concept HasLastIndex = requires(Collection c)
{
    c.LastIndex();
};

TEST(KeyedCollection, HasTheExtraMembersThatItsRulesNameAndNoOthers)
{
    static_assert(!HasAddExisting<Towns> && !HasClear<Towns> && !HasLastIndex<Towns>);
    static_assert(HasAddExisting<GrowingTowns> && HasClear<GrowingTowns> && !HasLastIndex<GrowingTowns>);
    static_assert(HasAddExisting<CountingTowns> && !HasClear<CountingTowns> && HasLastIndex<CountingTowns>);
}

} // namespace
} // namespace veldrane
