#include "editors/type_list.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

std::vector<std::string> Shown(const TypeListOptions& options)
{
    std::vector<std::string> items;
    for (const TypeItem& item : TypeList(options))
        items.push_back(item.Text + item.Key);
    return items;
}

const std::vector<std::string> kPlain{"Byte:2",   "Boolean:9", "Currency:4", "Date:8",   "Double:7",  "Integer:5",
                                      "String:1", "Long:3",    "Object:10",  "Single:6", "Variant:11"};

TEST(TypeList, KeysItsItemsByTheNumbersOfTheTypes)
{
    EXPECT_EQ(Shown({}), kPlain);
}

TEST(TypeList, OffersNoTypeAtAllBeforeTheOthers)
{
    std::vector<std::string> expected = kPlain;
    expected.insert(expected.begin(), "(None):0");
    EXPECT_EQ(Shown({.None = true}), expected);
    EXPECT_EQ(TypeList({.None = true}).front().Type, "");
}

TEST(TypeList, OffersClassAndCollectionBehindTheOthers)
{
    std::vector<std::string> expected = kPlain;
    expected.insert(expected.end(), {"Class:Class", "Collection:Collection"});
    EXPECT_EQ(Shown({.ClassAndCollection = true}), expected);
}

TEST(TypeList, KeepsTheTypeThatTheMemberHas)
{
    EXPECT_EQ(Shown({.Present = "Long"}), kPlain);
    EXPECT_EQ(Shown({.Present = ""}), kPlain);
    std::vector<std::string> expected = kPlain;
    expected.emplace_back("ADODB.Recordset:ADODB.Recordset");
    EXPECT_EQ(Shown({.Present = "ADODB.Recordset"}), expected);
}

TEST(TypeList, AKeyGivesItsTypeBack)
{
    for (const char* type : {"", "String", "Byte", "Variant", "string", "Order", "Class"})
        EXPECT_EQ(TypeOfKey(TypeKey(type)), type);
    EXPECT_EQ(TypeKey("string"), ":string") << "an edit keeps the spelling";
    EXPECT_EQ(TypeOfKey(""), "");
}

} // namespace
} // namespace veldrane
