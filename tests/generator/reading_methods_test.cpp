#include "generation_fixture.h"

namespace veldrane::testing {
namespace {

// Orders, read by whatever the test sets.
class ReadingMethods : public GenerationTest
{
  protected:
    ReadingMethods()
    {
        order.TableName = "Orders";
        AddMethod(order, "Clear", false);
    }

    std::string Written(const std::string& method)
    {
        AddMethod(order, method, true).ReturnDataType = "Boolean";
        return Lines(generation.WriteClassMethods(order, classes));
    }

    void ExpectLine(const std::string& method, const std::string& line)
    {
        const std::string text = Written(method);
        EXPECT_NE(text.find("|" + line + "|\n"), std::string::npos) << "no line " << line << " in" << text;
    }

    TTCProperty& AddLookup(const std::string& column, const std::string& table)
    {
        TTCProperty& property = AddProperty(order, column, "Long");
        property.LookupTable = table;
        property.LookupJoinField = "ID";
        return property;
    }

    KZMClass& order = AddClass("Order");
};

class IdentityArgument : public ReadingMethods, public ::testing::WithParamInterface<std::pair<const char*, const char*>>
{};

TEST_P(IdentityArgument, IsNamedByTheFirstLetter)
{
    const auto& [column, argument] = GetParam();
    AddProperty(order, column, "Long").FieldIsIdentityCol = true;
    ExpectLine("Retrieve", "    SQL = SQL & \" WHERE " + std::string(column) + "= \" & " + argument);
}

INSTANTIATE_TEST_SUITE_P(Retrieve, IdentityArgument,
                         ::testing::Values(std::pair("ActID", "anActID"), std::pair("EndID", "anEndID"), std::pair("InvoiceID", "anInvoiceID"), std::pair("OrderID", "anOrderID"),
                                           std::pair("UserID", "anUserID"), std::pair("YearID", "aYearID"), std::pair("userID", "auserID")));

TEST_F(ReadingMethods, KeepTheQuotesOfADefaultValue)
{
    KZMArguments arguments;
    arguments.Add("", 1, true, "Mark", "String", true, "\"x\"", false, "Mark");
    order.TTCMethods.Add("Retrieve", true, std::move(arguments), "Boolean", "Friend", false, "Retrieve");
    EXPECT_NE(Lines(generation.WriteClassMethods(order, classes)).find("|Friend Function Retrieve(Optional ByVal Mark as String=\"x\") as Boolean|\n"), std::string::npos);
}

TEST_F(ReadingMethods, LeaveOpenTheNameOfAnIdentityWithAPoint)
{
    TTCProperty& property = AddProperty(order, "No", "Long");
    property.FieldName = "Order.No";
    property.FieldIsIdentityCol = true;
    ExpectLine("RetrieveIdentity", "        mlngNo = ado(\"Order.No\"");
}

TEST_F(ReadingMethods, ListUnderTheIdentityAloneThoughThePrimaryKeyStandsFirst)
{
    AddProperty(order, "Region", "Long");
    AddProperty(order, "No", "Long");
    AddKey(order, key_type::kPrimaryKey, {"Region"});
    AddKey(order, key_type::kIdentityColumn, {"No"});
    order.RetrieveByIdentityCol = true;
    ExpectLine("RetrieveList", "        mcol.AddExisting aOrder, \":\" & (!No");
}

TEST_F(ReadingMethods, ListUnderTheFirstPropertyOnAKeyColumn)
{
    AddProperty(order, "No", "Long");
    AddProperty(order, "AgainNo", "Long").FieldName = "No";
    AddKey(order, key_type::kPrimaryKey, {"No"});
    order.RetrieveByPrimaryKey = true;
    ExpectLine("RetrieveList", "        mcol.AddExisting aOrder, \":\" & aOrder.No");
}

TEST_F(ReadingMethods, JoinByARenamedColumnInBrackets)
{
    AddLookupField(AddLookup("CityNo", "Cities"), "Owner No", "Long");
    AddLookup("OwnerNo", "Owners").FieldName = "Owner No";
    ExpectLine("Retrieve", "    SQL = \"SELECT a.CityNo,a.[Owner No] as [[aOwner No]],b.[Owner No] as [bOwner No] FROM "
                           "((Orders a INNER JOIN Cities b ON a.CityNo=b.ID) INNER JOIN Owners c ON a.a.[Owner No]=c.ID) \"");
}

TEST_F(ReadingMethods, CountNewNamesAndReferencesAsTaken)
{
    AddProperty(order, "Title", "String");
    TTCProperty& city = AddLookup("CityNo", "Cities");
    city.TTCLookupFields.Add("Title", "String", "CityTitle", "CityTitle");
    TTCProperty& owner = AddLookup("OwnerNo", "Owners");
    owner.TTCLookupFields.Add("aTitle", "String", "OwnerTitle", "OwnerTitle");
    owner.TTCLookupFields.Add("b.Title", "String", "OwnerRank", "OwnerRank");
    ExpectLine("Retrieve", "    SQL = \"SELECT a.Title as aTitle,a.CityNo,a.OwnerNo,b.Title as bTitle,c.aTitle as caTitle,c.b.Title as cb.Title FROM "
                           "((Orders a INNER JOIN Cities b ON a.CityNo=b.ID) INNER JOIN Owners c ON a.OwnerNo=c.ID) \"");
}

TEST_F(ReadingMethods, PassOverAnIdentityWithoutAColumn)
{
    TTCProperty& gone = AddProperty(order, "Gone", "Long");
    gone.FieldIsIdentityCol = true;
    gone.FieldName.clear();
    AddProperty(order, "OrderNo", "Long").FieldIsIdentityCol = true;
    ExpectLine("RetrieveIdentity", "        mlngOrderNo = !OrderNo");
}

TEST_F(ReadingMethods, KeepARelatedRowUnderTheRenamedIdentityInBrackets)
{
    KZMClass& line = AddClass("Line", "Order");
    line.TableName = "Lines";
    AddProperty(line, "LineNo", "Long").FieldName = "Line No";
    AddKey(line, key_type::kIdentityColumn, {"Line No"});
    line.RetrieveByIdentityCol = true;
    TTCProperty& item = AddProperty(line, "ItemNo", "Long");
    item.LookupTable = "Items";
    item.LookupJoinField = "ID";
    AddLookupField(item, "Line No", "Long");
    EXPECT_NE(Lines(generation.WriteCollectionMethods(line, classes)).find("|        mcol.Add rLine, \":\" & (adoRS(\"[aLine No]\"))|\n"), std::string::npos);
}

TEST_F(ReadingMethods, HandAColumnToAGrandchildOnceThoughTwoPropertiesReadIt)
{
    KZMClass& line = AddClass("Line", "Order");
    line.TableName = "Lines";
    AddProperty(line, "LineNo", "Long");
    KZMClass& note = AddClass("Note", "Line");
    AddProperty(note, "LineNo", "Long");
    AddProperty(note, "AgainNo", "Long").FieldName = "LineNo";
    Columns columns;
    columns.Add("LineNo", "Long", "LineNo", "LineNo");
    note.TTCRelationships.Add("FK_Line", "Lines", std::move(columns), "FK_Line");
    EXPECT_NE(Lines(generation.WriteCollectionMethods(line, classes)).find("|        If RetrieveChildren then rLine.Notes.RetrieveRelated rLine.LineNo, RetrieveChildren|\n"), std::string::npos);
}

// The sign marks the place of the parentheses while the statement is made.
TEST_F(ReadingMethods, OpenAParenthesisAtEveryTilde)
{
    order.TableName = "Old~Orders";
    AddLookup("CityNo", "Cities");
    ExpectLine("Retrieve", "    SQL = \"SELECT a.CityNo FROM (Old(Orders a INNER JOIN Cities b ON a.CityNo=b.ID) \"");
}

TEST_F(ReadingMethods, ReadNoFieldOfAPropertyThatIsTheUsers)
{
    AddProperty(order, "City", "String").PlusProperty = true;
    EXPECT_EQ(Written("Retrieve").find("IIF(IsNull("), std::string::npos);
}

} // namespace
} // namespace veldrane::testing
