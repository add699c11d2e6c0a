#include "generation_fixture.h"

namespace veldrane::testing {
namespace {

// Orders and the lines under them, joined by the column OrderNo.
class DataMethods : public GenerationTest
{
  protected:
    DataMethods()
    {
        order.TableName = "Orders";
        AddProperty(order, "OrderNo", "Long");
        line.TableName = "Lines";
        AddProperty(line, "OrderNo", "Long");
        Join("OrderNo", "OrderNo");
        AddMethod(order, "Clear", true);
        AddMethod(order, "Retrieve", true);
    }

    void Join(const std::string& column, const std::string& parentColumn)
    {
        Columns columns;
        columns.Add(column, "Long", parentColumn, column);
        const std::string name = "FK_" + std::to_string(line.TTCRelationships.Count());
        line.TTCRelationships.Add(name, "Orders", std::move(columns), name);
    }

    std::string Methods() { return Lines(generation.WriteClassMethods(order, classes)); }

    // Whether Add and Update end with the warning, each after a message.
    void ExpectWarnings()
    {
        for (const char* name : {"Add", "Update"}) {
            AddMethod(order, name, true);
            const std::string text = Methods();
            order.TTCMethods.Remove(name);
            EXPECT_TRUE(text.ends_with("alert|!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!|\n"
                                       "alert|THERE WAS AN ERROR GENERATING CODE DUE TO A CHANGE IN THE UNDERLYING DATASOURCE TABLES. YOU WILL NEED TO VERIFY YOUR "
                                       "DATASOURCE AGAINST THIS PROJECT DEFINITION.|\n"))
                << text;
            ASSERT_EQ(messages.Asked().size(), 1U) << name;
            EXPECT_EQ(messages.Asked().front().Title, "Datasource Error");
            EXPECT_EQ(messages.Asked().front().Text, "An error occurred while generating your code. The error is due to a change in the underlying datasource tables. You will "
                                                     "need to verify your datasource against this project definition.");
            messages.Forget();
        }
    }

    KZMClass& order = AddClass("Order");
    KZMClass& line = AddClass("Line", "Order");
};

TEST_F(DataMethods, WarnOfAChildThatHasLostItsColumnOfAJoin)
{
    line.TTCProperties.Remove("OrderNo");
    ExpectWarnings();
}

TEST_F(DataMethods, WarnOfAParentThatHasLostItsColumnOfAJoin)
{
    order.TTCProperties.Remove("OrderNo");
    AddProperty(order, "Remark", "String");
    ExpectWarnings();
}

TEST_F(DataMethods, KeepWhatStoodBeforeTheWarning)
{
    line.TTCProperties.Remove("OrderNo");
    AddMethod(order, "Add", true);
    EXPECT_NE(Methods().find("code|    For Each qLine in mcolLines|\nalert|!!!!"), std::string::npos);
}

TEST_F(DataMethods, PassOverAJoinOfColumnsThatNeitherClassHas)
{
    Join("HeadOrder", "LineNo");
    AddMethod(order, "Add", true);
    AddMethod(order, "Update", true);
    const std::string text = Methods();
    EXPECT_NE(text.find("code|        qLine.OrderNo = mlngOrderNo|\ncode|        If qLine.Add = 0 then Exit Function|"), std::string::npos);
    EXPECT_NE(text.find("code|        If zLine.Modified Then zLine.OrderNo = mlngOrderNo|\ncode|        If Not zLine.Update Then Exit Function|"), std::string::npos);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(DataMethods, NeedNoJoinOfTheParentForTheComponent)
{
    project.MTSEnabled = true;
    line.TTCProperties.Remove("OrderNo");
    AddMethod(order, "Add", true);
    AddMethod(order, "Update", true);
    EXPECT_EQ(Methods().find("alert|"), std::string::npos);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(DataMethods, TellOfTooManyJoinsAndGoOnWithAnEmptyStatement)
{
    for (int number = 1; number <= 16; ++number) {
        TTCProperty& property = AddProperty(order, "Key" + std::to_string(number), "Long");
        property.LookupTable = "Table" + std::to_string(number);
        property.LookupJoinField = "ID";
    }
    const std::string text = Methods();
    EXPECT_NE(text.find("code|    SQL = \"\"|\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("head|End Function|\n"));
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Join Limit Exceeded");
    EXPECT_EQ(messages.Asked().front().Text, "Unable to construct query. There are too many joins for SQL To handle. Please remove some Lookup fields from this class.");
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Critical);
}

TEST_F(DataMethods, JoinFifteenTables)
{
    for (int number = 1; number <= 15; ++number) {
        TTCProperty& property = AddProperty(order, "Key" + std::to_string(number), "Long");
        property.LookupTable = "T" + std::to_string(number);
        property.LookupJoinField = "ID";
    }
    EXPECT_NE(Methods().find("FROM (((((((((((((((Orders a INNER JOIN T1 b ON a.Key1=b.ID) INNER JOIN"), std::string::npos);
    EXPECT_NE(Methods().find("INNER JOIN T15 p ON a.Key15=p.ID) "), std::string::npos);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(DataMethods, CompareWithNullWhatMayBeNull)
{
    TTCProperty& property = AddProperty(order, "Remark", "Variant");
    property.AllowPropertyToBeNull = true;
    AddMethod(order, "Add", true);
    AddMethod(order, "Update", true);
    const std::string text = Methods();
    EXPECT_NE(text.find("code|            !Remark = IIF(IsNull(mvntRemark), Null, mvntRemark)|\n"), std::string::npos);
    EXPECT_NE(text.find("code|        If IsObject(mvntRemark) Then|\n"), std::string::npos) << "Add asks what it is";
    project.TrackPropertyChanges = true;
    EXPECT_NE(Methods().find("code|            If mblnzRemark Then !Remark = IIF(IsNull(mvntRemark), Null, mvntRemark)|\n"), std::string::npos);
}

TEST_F(DataMethods, SettleTheNamesByWhichFieldsAreRead)
{
    TTCProperty& property = AddProperty(order, "City", "String");
    property.LookupTable = "Cities";
    property.LookupJoinField = "ID";
    AddLookupField(property, "City", "String");
    AddLookupField(property, "Mayor", "String");
    const std::string first = Methods();
    EXPECT_EQ(property.FieldAlias, "aCity");
    EXPECT_EQ(property.FieldReference, "aCity");
    EXPECT_EQ(property.TTCLookupFields.Item(1)->FieldAlias, "bCity");
    EXPECT_EQ(property.TTCLookupFields.Item(2)->FieldAlias, "Mayor");
    EXPECT_EQ(property.TTCLookupFields.Item(2)->FieldReference, "b.Mayor");
    EXPECT_EQ(order.TTCProperties.Item("OrderNo")->FieldAlias, "OrderNo");
    EXPECT_EQ(Methods(), first) << "and settle them anew each time";
}

TEST_F(DataMethods, WriteNothingForAMissingStoredProcedure)
{
    const std::string before = Methods();
    AddMethod(order, "CloseDay", false);
    order.TTCMethods.Item("CloseDay")->MethodIsSP = true;
    EXPECT_EQ(Methods(), before);
}

TEST_F(DataMethods, NameTheArgumentsOfAJoin)
{
    EXPECT_EQ(generation.GetRelationshipArguments(line, classes), "ByVal OrderNo as Long");
    AddProperty(line, "Region", "String");
    Join("Region", "Region");
    Join("Gone", "Gone");
    EXPECT_EQ(generation.GetRelationshipArguments(line, classes), "ByVal OrderNo as Long, ByVal Region as String");
    EXPECT_EQ(generation.GetRelationshipArguments(order, classes), "");
}

TEST_F(DataMethods, AppendRetrieveRelatedToTheLinesOfAChild)
{
    TTCOutputs lines;
    generation.GenerateRetrieveRelatedMethod(lines, order, classes);
    EXPECT_EQ(lines.Count(), 0U) << "a top-level class has none";
    generation.GenerateRetrieveRelatedMethod(lines, line, classes);
    EXPECT_EQ(lines.Item(1).LineText, "Public Function RetrieveRelated(ByVal OrderNo as Long, Optional ByVal SQLWhereClause as String = \"\") as Boolean");
    lines = TTCOutputs();
    line.TableName.clear();
    generation.GenerateRetrieveRelatedMethod(lines, line, classes);
    EXPECT_EQ(lines.Count(), 0U) << "nor has one without a table";
}

} // namespace
} // namespace veldrane::testing
