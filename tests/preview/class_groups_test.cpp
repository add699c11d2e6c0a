#include "preview_fixture.h"

namespace veldrane::testing {
namespace {

class ClassGroups : public PreviewTest
{
  protected:
    KZMClass& AddTableClass(const std::string& name, const std::string& parent = "")
    {
        KZMClass& item = AddClass(name, parent);
        item.TableName = name + "Table";
        return item;
    }
};

TEST_F(ClassGroups, OfNoClassesCountNothing)
{
    EXPECT_EQ(Heading(NodeType::ParentClasses), R"(
head|Parent/Children Classes Summary|
code||
code|Total Number of Classes in this category: 0|
code|Total Number of Properties in this category: 0|
code|Total Number of Methods in this category: 0|
code|Total Number of Events in this category: 0|
)");
}

TEST_F(ClassGroups, TakeTheClassesOfTheirCategory)
{
    AddTableClass("Order");
    AddTableClass("Line", "Order");
    AddTableClass("Country").IsDomainTable = true;
    AddClass("Basket");
    AddClass("Tray").IsDomainTable = true;
    AddClass("xmlAssist").IsMTSRequiredClass = true;
    AddTableClass("Required").IsMTSRequiredClass = true;
    const auto named = [&](NodeType type) {
        std::string names;
        const TTCOutputs lines = Blocks(type).at(0);
        for (const TTCOutput& line : lines)
            if (line.LineText.starts_with("Class Name:  "))
                names += line.LineText.substr(13) + " ";
        return names;
    };
    EXPECT_EQ(named(NodeType::ParentClasses), "Order Line Required ");
    EXPECT_EQ(named(NodeType::LookupClasses), "Country ");
    EXPECT_EQ(named(NodeType::AdditionalClasses), "Basket Tray ");
}

TEST_F(ClassGroups, DescribeALookupClassWithAllThatItHas)
{
    KZMClass& country = AddTableClass("Country", "World");
    country.IsDomainTable = true;
    country.CreateCollection = true;
    country.CollectionName = "Countries";
    country.IncludeAddExisting = true;
    country.RetrieveByIdentityCol = true;
    country.RetrieveByPrimaryKey = true;
    AddKey(country, key_type::kPrimaryKey, {"Code", "Region"});
    AddKey(country, key_type::kIdentityColumn, {"ID"});
    EXPECT_EQ(Heading(NodeType::LookupClasses), R"(
head|Lookup/Domain Classes Summary|
code||
head Class|Class Name:  Country|
code|    Source Table Name: CountryTable|
code|    Create a Collection Based on this class: True|
code Collection|    Collection Name: Countries|
code|    Include AddExisting Method in Collection: True|
code|    Include LastNewKey Property in Collection: False|
code|    Parent Class Name: World|
code|    Retrieve Records By: Identity Column Value|
code|    Retrieve Records By: Primary Key Value|
code|    CountryTable Keys:|
key FieldKey|    Key Type: Primary/Unique Key|
code|            Column Name: Code as Long|
code|            Column Name: Region as Long|
key FieldAuto|    Key Type: Identity Column|
code|            Column Name: ID as Long|
code||
code|Total Number of Classes in this category: 1|
code|Total Number of Properties in this category: 0|
code|Total Number of Methods in this category: 0|
code|Total Number of Events in this category: 0|
)");
}

TEST_F(ClassGroups, DescribeAClassWithNothingByItsNameAlone)
{
    AddClass("Basket").IncludeAddExisting = true; // counts with a collection alone
    EXPECT_EQ(Heading(NodeType::AdditionalClasses), R"(
head|Additional Classes/Collections Summary|
code||
head Class|Class Name:  Basket|
code||
code|Total Number of Classes in this category: 1|
code|Total Number of Properties in this category: 0|
code|Total Number of Methods in this category: 0|
code|Total Number of Events in this category: 0|
)");
}

TEST_F(ClassGroups, TellWhetherACollectionKnowsItsLatestKey)
{
    KZMClass& basket = AddClass("Basket");
    basket.CreateCollection = true;
    basket.CollectionAddNewKey = true;
    const std::string lines = Heading(NodeType::AdditionalClasses);
    EXPECT_NE(lines.find("code|    Include AddExisting Method in Collection: False|\ncode|    Include LastNewKey Property in Collection: True|\n"), std::string::npos) << lines;
}

TEST_F(ClassGroups, TakeEveryTypeButTheIdentityForAKeyOfTheTable)
{
    AddKey(AddTableClass("Order"), 2, {});
    EXPECT_NE(Heading(NodeType::ParentClasses).find("code|    OrderTable Keys:|\nkey FieldKey|    Key Type: Primary/Unique Key|\ncode||\n"), std::string::npos);
}

TEST_F(ClassGroups, CountTheMembersOfTheirClasses)
{
    KZMClass& order = AddTableClass("Order");
    KZMClass& line = AddTableClass("Line", "Order");
    KZMClass& basket = AddClass("Basket");
    for (KZMClass* const item : {&order, &line, &basket}) {
        AddProperty(*item, "City", "String");
        AddProperty(*item, "Street", "String");
        AddProperty(*item, "Number", "Long");
        AddMethod(*item, "Clear", true);
        AddMethod(*item, "Clone", true);
        AddEvent(*item, "Changed");
    }
    EXPECT_TRUE(Heading(NodeType::ParentClasses).ends_with(R"(
code|Total Number of Classes in this category: 2|
code|Total Number of Properties in this category: 6|
code|Total Number of Methods in this category: 4|
code|Total Number of Events in this category: 2|
)"));
}

} // namespace
} // namespace veldrane::testing
