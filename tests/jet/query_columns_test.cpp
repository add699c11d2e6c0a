#include "jet/query_columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace veldrane::jet {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

QueryPart Kind(int kind)
{
    return {.Attribute = 1, .Flag = kind};
}

QueryPart Source(const std::string& name, const std::string& alias = "")
{
    return {.Attribute = 5, .Name1 = name, .Name2 = alias};
}

QueryPart Output(const std::string& expression, const std::string& name = "")
{
    return {.Attribute = 6, .Name1 = name, .Expression = expression};
}

const QueryPart kAllOfAll{.Attribute = 3, .Flag = 1};
const QueryPart kParameter{.Attribute = 2, .Flag = 10, .Name1 = "Which"};

class QueryColumns : public ::testing::Test
{
  protected:
    void Add(const std::string& name, const std::vector<QueryPart>& parts)
    {
        const auto id = static_cast<std::int32_t>(objects_.size()) + 1;
        objects_.push_back({.Name = name, .Id = id, .Type = kQueryObject});
        parts_[id] = parts;
    }

    [[nodiscard]] std::vector<Query> Describe() const { return DescribeQueries(objects_, parts_, tables_); }

    // The columns of the query added last, each as "name type size".
    [[nodiscard]] std::vector<std::string> Columns() const
    {
        std::vector<std::string> described;
        const std::vector<Query> queries = Describe();
        for (const Column& column : queries.back().Columns)
            described.push_back(column.Name + " " + std::to_string(column.AdoType) + " " +
                                std::to_string(column.DefinedSize));
        return described;
    }

    std::vector<Table> tables_{
        {.Name = "Orders",
         .Type = "TABLE",
         .Columns = {{.Name = "ID", .AdoType = 3, .DefinedSize = 4, .Attributes = 96, .AutoNumber = true},
                     {.Name = "City", .AdoType = 202, .DefinedSize = 50}}},
        {.Name = "Order Lines",
         .Type = "TABLE",
         .Columns = {{.Name = "ID", .AdoType = 2, .DefinedSize = 2},
                     {.Name = "Price", .AdoType = 6, .DefinedSize = 8}}},
        {.Name = "Far", .Type = "LINK"}};

  private:
    std::vector<Object> objects_;
    std::map<std::int32_t, std::vector<QueryPart>> parts_;
};

TEST_F(QueryColumns, APlainColumnIsThatOfItsTable)
{
    Add("Q", {Kind(1), Source("Orders"), Source("Order Lines"), Output("Orders.ID"), Output("[order lines].[price]"),
              Output("City")});
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4", "Price 6 8", "City 202 50"));
    const Column first = Describe().back().Columns.front();
    EXPECT_EQ(first.Attributes, 96);
    EXPECT_TRUE(first.AutoNumber);
    EXPECT_EQ(Describe().back().Columns.back().Attributes, 0);
}

TEST_F(QueryColumns, AColumnMayHaveAnotherName)
{
    Add("Q", {Source("Orders", "o"), Output("o.ID", "Number"), Output("Orders.ID")});
    EXPECT_THAT(Columns(), ElementsAre("Number 3 4", "Expr1001 202 255")) << "the table has only its other name here";
}

TEST_F(QueryColumns, AnExpressionIsText)
{
    Add("Q", {Source("Orders"), Output("Max(ID)", "Latest"), Output("ID"), Output("[ID]*2"), Output("Town")});
    EXPECT_THAT(Columns(), ElementsAre("Latest 202 255", "ID 3 4", "Expr1002 202 255", "Expr1003 202 255"));
}

TEST_F(QueryColumns, AllColumnsAreThoseOfOneOrOfEverySource)
{
    Add("OfOne", {Source("Orders"), Source("Order Lines"), Output("Orders.*"), Output("Price")});
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4", "City 202 50", "Price 6 8"));
    Add("OfBoth", {Source("Orders"), Source("Order Lines"), Output("*")});
    EXPECT_THAT(Columns(), ElementsAre("Orders.ID 3 4", "City 202 50", "Order Lines.ID 2 2", "Price 6 8"));
    Add("ByOption", {kAllOfAll, Source("Orders"), Output("City", "Town")});
    EXPECT_THAT(Columns(), ElementsAre("Town 202 50", "ID 3 4", "City 202 50"));
}

TEST_F(QueryColumns, ColumnsOfOneNameAreToldApartByTheirTables)
{
    Add("Q",
        {Source("Orders", "o"), Source("Order Lines"), Output("o.ID"), Output("[Order Lines].ID"), Output("o.City")});
    EXPECT_THAT(Columns(), ElementsAre("o.ID 3 4", "Order Lines.ID 2 2", "City 202 50"));
    Add("Named", {Source("Orders"), Output("City", "id"), Output("ID")});
    EXPECT_THAT(Columns(), ElementsAre("id 202 50", "Orders.ID 3 4"));
}

TEST_F(QueryColumns, AViewStandsOnAView)
{
    Add("Lower", {Source("Orders"), Output("City", "Town"), Output("ID")});
    Add("Upper", {Source("LOWER"), Output("*")});
    EXPECT_THAT(Columns(), ElementsAre("Town 202 50", "ID 3 4"));
    Add("Top", {Source("Upper", "u"), Output("u.Town"), Output("u.City")});
    EXPECT_THAT(Columns(), ElementsAre("Town 202 50", "Expr1001 202 255"));
}

TEST_F(QueryColumns, ATableIsFoundBeforeAQueryOfItsName)
{
    Add("Orders", {Source("Order Lines"), Output("Price")});
    Add("Q", {Source("Orders"), Output("*")});
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4", "City 202 50"));
}

TEST_F(QueryColumns, AllColumnsOfSomethingUnknownAreNone)
{
    Add("Union", {Kind(9), Source("", "X7YZ_____1"), kAllOfAll});
    EXPECT_THAT(Columns(), IsEmpty());
    for (const char* source : {"Far", "Union", "Missing", ""}) {
        Add("All", {Source("Orders"), Source(source), Output("*")});
        EXPECT_THAT(Columns(), IsEmpty()) << source;
        Add("Some", {Source("Orders"), Source(source, "s"), Output("ID"), Output("s.Kind", "Kind")});
        EXPECT_THAT(Columns(), ElementsAre("ID 3 4", "Kind 202 255")) << source;
    }
    Add("Misnamed", {Source("Orders"), Output("Missing.*")});
    EXPECT_THAT(Columns(), IsEmpty());
}

TEST_F(QueryColumns, ATableOfAnotherFileIsUnknown)
{
    QueryPart elsewhere = Source("Orders");
    elsewhere.Expression = "C:\\Data\\Old.mdb";
    Add("Q", {elsewhere, Output("*")});
    EXPECT_THAT(Columns(), IsEmpty());
    Add("Some", {elsewhere, Output("Orders.City")});
    EXPECT_THAT(Columns(), ElementsAre("Expr1000 202 255"));
}

TEST_F(QueryColumns, ViewsThatStandOnThemselvesHaveNone)
{
    Add("A", {Source("B"), Output("*")});
    Add("B", {Source("A"), Output("*")});
    for (const Query& query : Describe())
        EXPECT_THAT(query.Columns, IsEmpty()) << query.Name;
}

TEST_F(QueryColumns, ViewsStandOnOneAnotherFiftyLevelsHigh)
{
    Add("V49", {Source("Orders"), Output("*")});
    for (int level = 48; level >= 0; --level)
        Add("V" + std::to_string(level), {Source("V" + std::to_string(level + 1)), Output("*")});
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4", "City 202 50"));
}

TEST_F(QueryColumns, MoreColumnsThanTheEngineOpensAreNone)
{
    std::vector<QueryPart> parts{Source("Orders")};
    for (int i = 0; i < 255; ++i)
        parts.push_back(Output("City", "C" + std::to_string(i)));
    Add("Most", parts);
    EXPECT_EQ(Columns().size(), 255U);
    parts.push_back(Output("ID"));
    Add("TooMany", parts);
    EXPECT_THAT(Columns(), IsEmpty());
}

TEST_F(QueryColumns, SelectsAndUnionsWithoutParametersAreViews)
{
    Add("1", {Kind(1)});
    Add("9", {Kind(9)});
    Add("none", {});
    Add("1 with", {Kind(1), kParameter, Source("Orders"), Output("ID")});
    Add("9 with", {Kind(9), kParameter});
    for (int kind = 2; kind <= 8; ++kind)
        Add(std::to_string(kind), {Kind(kind), Source("Orders"), Output("ID")});
    std::string views;
    for (const Query& query : Describe()) {
        if (query.Kind == QueryKind::View)
            views += query.Name + ",";
        EXPECT_THAT(query.Columns, IsEmpty()) << query.Name;
    }
    EXPECT_EQ(views, "1,9,none,");
}

TEST_F(QueryColumns, QueriesOfFormsAreNotTold)
{
    Add("~sq_fOrders", {Source("Orders"), Output("ID")});
    Add("Q", {Source("~sq_fOrders"), Output("*")});
    ASSERT_EQ(Describe().size(), 1U);
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4"));
}

} // namespace
} // namespace veldrane::jet
