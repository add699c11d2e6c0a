#include "generation_fixture.h"

namespace veldrane::testing {
namespace {

class ClassDeclarations : public GenerationTest
{
  protected:
    std::string Declarations() { return Lines(generation.WriteClassDeclarations(order, classes)); }

    KZMClass& order = AddClass("Order");
};

TEST_F(ClassDeclarations, OfAnEmptyClassAreNone)
{
    EXPECT_EQ(Declarations(), "\n");
}

TEST_F(ClassDeclarations, TellBuiltInEventsFromTheUsers)
{
    AddEvent(order, "IsModified");
    order.TTCEvents.Add("Shipped", TTCEventParameters{}, false, "Shipped")->TTCEventParameters.Add(1, true, "Note", "String", true, "\"none\"", false, "Note");
    EXPECT_EQ(Declarations(), R"(
mark:PlusEvent|Public Event IsModified()|
mark:Event|Public Event Shipped(Optional ByVal Note as String="none")|
)");
}

TEST_F(ClassDeclarations, TurnABacktickOfADefaultValueIntoADoubleQuote)
{
    order.TTCEvents.Add("Shipped", TTCEventParameters{}, false, "Shipped")->TTCEventParameters.Add(1, true, "Note", "String", true, "`none`", false, "Note");
    EXPECT_EQ(Declarations(), R"(
mark:Event|Public Event Shipped(Optional ByVal Note as String="none")|
)");
}

TEST_F(ClassDeclarations, GiveAPropertyItsVariableAndItsLookupFields)
{
    AddLookupField(AddProperty(order, "CustomerID", "Long"), "CustomerName", "String");
    EXPECT_EQ(Declarations(), R"(
code|Private mlngCustomerID as Long|
code|Private mstrCustomerName as String|
)");
}

TEST_F(ClassDeclarations, GiveFlagsToAllButBuiltInPropertiesWhileChangesAreTracked)
{
    project.TrackPropertyChanges = true;
    AddBuiltInProperty(order, "Modified").AddToClass = true;
    order.TTCProperties.Item("Modified")->DataType = "Boolean";
    AddLookupField(AddProperty(order, "No", "Long"), "NoText", "String");
    EXPECT_EQ(Declarations(), R"(
code|Private mblnModified as Boolean|
code|Private mlngNo as Long|
code|Private mblnzNo as Boolean|
code|Private mstrNoText as String|
)");
}

TEST_F(ClassDeclarations, OfAnUnusedPropertyAreItsLookupFieldsAlone)
{
    TTCProperty& property = AddProperty(order, "CustomerID", "Long");
    property.AddToClass = false;
    AddLookupField(property, "CustomerName", "String");
    EXPECT_EQ(Declarations(), R"(
code|Private mstrCustomerName as String|
)");
}

TEST_F(ClassDeclarations, OfAPropertyWithoutATypeEndInABlank)
{
    AddProperty(order, "Anything", "");
    EXPECT_EQ(Declarations(), R"(
code|Private mothAnything as |
)");
}

TEST_F(ClassDeclarations, UseVarWhereThePrefixIsEmpty)
{
    project.PrefixString = "";
    AddProperty(order, "City", "String");
    EXPECT_EQ(Declarations(), R"(
code|Private mvarCity as String|
)");
}

TEST_F(ClassDeclarations, GiveATopLevelClassItsCollection)
{
    order.CreateCollection = true;
    EXPECT_EQ(Declarations(), R"(
code|Private mobjOrders as Orders|
)");
    order.ParentClassName = "Customer";
    EXPECT_EQ(Declarations(), "\n");
}

TEST_F(ClassDeclarations, KeepThePrimaryKeyAsReadIfTheClassRetrievesByIt)
{
    AddProperty(order, "No", "Long").AddToClass = false;
    AddProperty(order, "Id", "Long").AddToClass = false;
    AddKey(order, key_type::kPrimaryKey, {"No"});
    AddKey(order, key_type::kIdentityColumn, {"Id"});
    EXPECT_EQ(Declarations(), "\n");
    order.RetrieveByPrimaryKey = true;
    EXPECT_EQ(Declarations(), R"(
code|Private pushNo as Long|
)");
}

TEST_F(ClassDeclarations, GiveEachChildItsCollection)
{
    AddClass("Line", "Order");
    AddClass("Note", "Order");
    EXPECT_EQ(Declarations(), R"(
code|Private mcolLines as Lines|
code|Private mcolNotes as Notes|
)");
}

} // namespace
} // namespace veldrane::testing
