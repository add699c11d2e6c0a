#include "model/attached_objects.h"
#include "model/class.h"
#include "model/class_collection_names.h"
#include "model/classes.h"
#include "model/stored_procedures.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>
#include <string>

// Which members a collection has and what it does about a missing key, one row each: callers lean on the differences.
namespace veldrane {
namespace {

enum class Missing
{
    Raises,
    IsPassedOver, // Item yields nothing, Remove does nothing
};

struct Row
{
    const char* Name;
    bool HasAddExisting;
    bool HasClear;
    bool HasLastIndex;
    Missing OnItem;
    Missing OnRemove;
};

template <class Collection>
concept HasAddExisting = requires(Collection c)
{
    {
        c.AddExisting(nullptr, "")
        } -> std::same_as<bool>;
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

Missing Outcome(const std::function<void()>& body)
{
    try {
        body();
        return Missing::IsPassedOver;
    } catch (const RuntimeError&) {
        return Missing::Raises;
    }
}

template <class Collection>
void ExpectRow(const Row& row)
{
    SCOPED_TRACE(row.Name);
    EXPECT_EQ(HasAddExisting<Collection>, row.HasAddExisting);
    EXPECT_EQ(HasClear<Collection>, row.HasClear);
    EXPECT_EQ(HasLastIndex<Collection>, row.HasLastIndex);
    Collection collection;
    EXPECT_EQ(Outcome([&] { EXPECT_EQ(collection.Item("missing"), nullptr); }), row.OnItem);
    EXPECT_EQ(Outcome([&] { EXPECT_EQ(collection.Item(1), nullptr); }), row.OnItem);
    EXPECT_EQ(Outcome([&] { collection.Remove("missing"); }), row.OnRemove);
    EXPECT_EQ(Outcome([&] { collection.Remove(1); }), row.OnRemove);
    EXPECT_EQ(collection.Count(), 0U);
}

constexpr Missing kRaises = Missing::Raises;
constexpr Missing kPasses = Missing::IsPassedOver;

TEST(CollectionRules, AreThoseOfTheTable)
{
    //                       name                      AddExisting Clear LastIndex Item   Remove
    ExpectRow<KZMClasses>({"KZMClasses", true, true, false, kPasses, kPasses});
    ExpectRow<TTCProperties>({"TTCProperties", true, false, true, kPasses, kRaises});
    ExpectRow<TTCMethods>({"TTCMethods", true, false, true, kPasses, kRaises});
    ExpectRow<TTCEvents>({"TTCEvents", true, false, true, kPasses, kRaises});
    ExpectRow<KZMArguments>({"KZMArguments", true, true, false, kRaises, kRaises});
    ExpectRow<TTCEventParameters>({"TTCEventParameters", true, true, false, kRaises, kRaises});
    ExpectRow<TTCEnumerations>({"TTCEnumerations", false, false, false, kRaises, kRaises});
    ExpectRow<TTCEnumValues>({"TTCEnumValues", false, false, false, kRaises, kRaises});
    ExpectRow<TTCLookupFields>({"TTCLookupFields", true, true, false, kRaises, kRaises});
    ExpectRow<TTCKeys>({"TTCKeys", true, true, false, kPasses, kRaises});
    ExpectRow<TTCColumns>({"TTCColumns", true, false, false, kPasses, kRaises});
    ExpectRow<Columns>({"Columns", true, false, false, kRaises, kRaises});
    ExpectRow<TTCRelationships>({"TTCRelationships", true, true, false, kPasses, kRaises});
    ExpectRow<TTCMembers>({"TTCMembers", false, false, false, kPasses, kRaises});
    ExpectRow<TTCClassCollectionNames>({"TTCClassCollectionNames", false, false, false, kRaises, kPasses});
    ExpectRow<AttachedTables>({"AttachedTables", false, false, false, kRaises, kRaises});
    ExpectRow<AttachedSPs>({"AttachedSPs", false, false, false, kRaises, kRaises});
}

template <class Collection>
void ExpectDuplicateRaises(Collection& collection, const std::function<void(std::string_view key)>& add)
{
    add("Name");
    EXPECT_EQ(collection.Count(), 1U);
    try {
        add("NAME");
        ADD_FAILURE() << "added twice";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, error_number::kDuplicateKey);
    }
    EXPECT_EQ(collection.Count(), 1U);
    add("");
    add("");
    EXPECT_EQ(collection.Count(), 3U);
}

TEST(Add, RaisesOnADuplicateKeyAndTakesAnyNumberOfItemsWithoutOne)
{
    KZMClass item;
    ExpectDuplicateRaises(item.TTCProperties, [&](auto key) { item.TTCProperties.Add({}, key); });
    ExpectDuplicateRaises(item.TTCMethods, [&](auto key) { item.TTCMethods.Add("", false, {}, "", "", false, key); });
    ExpectDuplicateRaises(item.TTCEvents, [&](auto key) { item.TTCEvents.Add("", {}, false, key); });
    ExpectDuplicateRaises(item.TTCKeys, [&](auto key) { item.TTCKeys.Add(0, {}, key); });
    ExpectDuplicateRaises(item.TTCRelationships, [&](auto key) { item.TTCRelationships.Add("", "", {}, key); });
    ExpectDuplicateRaises(item.Enumerations, [&](auto key) { item.Enumerations.Add("", key); });
    KZMArguments arguments;
    ExpectDuplicateRaises(arguments, [&](auto key) { arguments.Add("", 0, false, "", "", false, "", false, key); });
    TTCEventParameters parameters;
    ExpectDuplicateRaises(parameters, [&](auto key) { parameters.Add(0, false, "", "", false, "", false, key); });
    TTCEnumValues values;
    ExpectDuplicateRaises(values, [&](auto key) { values.Add("", {}, key); });
    TTCLookupFields fields;
    ExpectDuplicateRaises(fields, [&](auto key) { fields.Add("", "", "", key); });
    TTCColumns keyColumns;
    ExpectDuplicateRaises(keyColumns, [&](auto key) { keyColumns.Add("", "", "", key); });
    Columns columns;
    ExpectDuplicateRaises(columns, [&](auto key) { columns.Add("", "", "", key); });
    TTCClassCollectionNames names;
    ExpectDuplicateRaises(names, [&](auto key) { names.Add("", key); });
}

TEST(Add, OfMembersAndAttachedObjectsReturnsNothingOnADuplicateKey)
{
    TTCMembers members;
    EXPECT_NE(members.Add("City", "City"), nullptr);
    EXPECT_EQ(members.Add("CITY", "CITY"), nullptr);
    AttachedTables tables;
    EXPECT_NE(tables.Add("Größe", "Größe"), nullptr);
    EXPECT_EQ(tables.Add("GRÖßE", "GRÖßE"), nullptr);
    AttachedSPs procedures;
    EXPECT_NE(procedures.Add("Load", "Load"), nullptr);
    EXPECT_EQ(procedures.Add("load", "load"), nullptr);
    EXPECT_EQ(members.Count() + tables.Count() + procedures.Count(), 3U);
}

} // namespace
} // namespace veldrane
