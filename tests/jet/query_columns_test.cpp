#include "jet/query_columns.h"

#include "jet/refusal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
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

// The flags of an object that is a query of the kind.
constexpr std::uint32_t kUnionFlags = 0x80;
struct KindAndFlags
{
    int Kind;
    std::uint32_t Flags;
};
constexpr auto kOtherKinds = std::to_array<KindAndFlags>(
    {{2, 0x50}, {3, 0x40}, {4, 0x30}, {5, 0x20}, {6, 0x10}, {7, 0x60}, {8, 0x70}, {8, 0x90}});

const std::string kLongName(64, 'a');
const QueryPart kAllOfAll{.Attribute = 3, .Flag = 1};
const QueryPart kParameter{.Attribute = 2, .Flag = 10, .Name1 = "Which"};

class QueryColumns : public ::testing::Test
{
  protected:
    void Add(const std::string& name, const std::vector<QueryPart>& parts, std::uint32_t flags = 0)
    {
        const auto id = static_cast<std::int32_t>(objects_.size()) + 1;
        objects_.push_back({.Name = name, .Id = id, .Type = kQueryObject, .Flags = flags});
        parts_[id] = parts;
    }

    [[nodiscard]] std::vector<Query> Describe() const { return DescribeQueries(objects_, parts_, tables_); }

    void AddLevel(int level, const std::string& below)
    {
        Add("V" + std::to_string(level), {Source(below), Output("*")});
    }

    // A column of the view below, twice.
    void AddJoinOfTwo(const std::string& name, const std::string& below, const std::string& column)
    {
        Add(name, {Source(below, kLongName), Source(below, "b"), Output(kLongName + ".[" + column + "]"),
                   Output("b.[" + column + "]")});
    }

    // The names of the queries that have columns.
    [[nodiscard]] std::string Told() const
    {
        std::string names;
        for (const Query& query : Describe())
            names += query.Columns.empty() ? "" : query.Name + ",";
        return names;
    }

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
    Add("Union", {Kind(9), Source("", "X7YZ_____1"), kAllOfAll}, kUnionFlags);
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

TEST_F(QueryColumns, ViewsThatStandOnThemselvesHaveNoneWhicheverComesFirst)
{
    const std::vector<QueryPart> a{Source("Orders"), Source("B"), Output("Orders.ID"), Output("B.City")};
    const std::vector<QueryPart> b{Source("A"), Source("Orders"), Output("Orders.City"), Output("A.ID", "Number")};
    const std::vector<QueryPart> above{Source("B"), Source("Orders"), Output("Orders.ID")};
    const std::vector<QueryPart> apart{Source("Orders"), Output("ID")};
    Add("A", a);
    Add("B", b);
    Add("Above", above);
    Add("Apart", apart);
    Add("Own", {Source("Own"), Output("1", "One")});
    EXPECT_EQ(Told(), "Apart,");
}

TEST_F(QueryColumns, ViewsThatStandOnThemselvesHaveNoneWhicheverComesLast)
{
    Add("Above", {Source("B"), Source("Orders"), Output("Orders.ID")});
    Add("B", {Source("A"), Source("Orders"), Output("Orders.City"), Output("A.ID", "Number")});
    Add("A", {Source("Orders"), Source("B"), Output("Orders.ID"), Output("B.City")});
    EXPECT_EQ(Told(), "");
}

TEST_F(QueryColumns, ViewsStandOnOneAnotherFiftyLevelsHigh)
{
    AddLevel(1, "Orders");
    for (int level = 2; level <= 50; ++level)
        AddLevel(level, "V" + std::to_string(level - 1));
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4", "City 202 50"));
    AddLevel(51, "V50");
    EXPECT_THAT(Columns(), IsEmpty());
    Add("V52", {Source("V51"), Source("Orders"), Output("Orders.ID")});
    EXPECT_THAT(Columns(), IsEmpty()) << "what it stands on does not open";
}

TEST_F(QueryColumns, TheOrderOfViewsThatStandOnOneAnotherDoesNotCount)
{
    for (int level = 51; level >= 2; --level)
        AddLevel(level, "V" + std::to_string(level - 1));
    AddLevel(1, "Orders");
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4", "City 202 50"));
    const std::vector<Query> queries = Describe();
    EXPECT_THAT(queries[0].Columns, IsEmpty()) << queries[0].Name;
    for (std::size_t i = 1; i < queries.size(); ++i)
        EXPECT_EQ(queries[i].Columns.size(), 2U) << queries[i].Name;
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
    Add("9", {Kind(9)}, kUnionFlags);
    Add("none", {});
    Add("1 with", {Kind(1), kParameter, Source("Orders"), Output("ID")});
    Add("9 with", {Kind(9), kParameter}, kUnionFlags);
    for (const auto& [kind, flags] : kOtherKinds)
        Add(std::to_string(kind), {Kind(kind), Source("Orders"), Output("ID")}, flags);
    std::string views;
    for (const Query& query : Describe()) {
        if (query.Kind == QueryKind::View)
            views += query.Name + ",";
        EXPECT_THAT(query.Columns, IsEmpty()) << query.Name;
    }
    EXPECT_EQ(views, "1,9,none,");
}

TEST_F(QueryColumns, AQueryWhosePartsAreLostIsOfTheKindOfItsObject)
{
    for (const auto& [kind, flags] : kOtherKinds) {
        Add(std::to_string(kind), {}, flags | 0x08);
        EXPECT_EQ(Describe().back().Kind, QueryKind::Procedure) << kind;
    }
    Add("9", {}, kUnionFlags);
    EXPECT_EQ(Describe().back().Kind, QueryKind::View);
}

TEST_F(QueryColumns, ASelectThatItsObjectDoesNotTellIsDamage)
{
    Add("Q", {Kind(1), Source("Orders"), Output("ID")}, 0x20);
    EXPECT_THROW(static_cast<void>(Describe()), Refusal);
}

TEST_F(QueryColumns, ADeleteQueryThatItsObjectTellsAsASelectIsDamage)
{
    Add("Q", {Kind(5), Source("Orders")});
    EXPECT_THROW(static_cast<void>(Describe()), Refusal);
}

TEST_F(QueryColumns, AQueryOfNoKnownKindIsDamage)
{
    for (const std::uint32_t flags : {0xB0U, 0xC0U, 0xD0U}) {
        const std::vector<Object> objects{{.Name = "Q", .Id = 1, .Type = kQueryObject, .Flags = flags}};
        EXPECT_THROW(static_cast<void>(DescribeQueries(objects, {}, tables_)), Refusal) << flags;
    }
}

TEST_F(QueryColumns, ACompoundQueryAProcedureAndAnActionAreProcedures)
{
    for (const std::uint32_t kind : {0xA0U, 0xE0U, 0xF0U})
        for (const std::vector<QueryPart>& parts :
             {std::vector<QueryPart>{}, {Kind(0), Source("Orders"), Output("ID")}, {Kind(10)}, {Kind(14)}}) {
            Add("Q", parts, kind);
            EXPECT_EQ(Describe().back().Kind, QueryKind::Procedure) << kind;
            EXPECT_THAT(Columns(), IsEmpty()) << kind;
        }
}

TEST_F(QueryColumns, AUnionThatItsObjectTellsAsACompoundQueryIsDamage)
{
    Add("Q", {Kind(9)}, kUnionFlags | 0x20U);
    EXPECT_THROW(static_cast<void>(Describe()), Refusal);
}

TEST_F(QueryColumns, AViewWhoseNamesGrewTooLongWithTheLevelsBelowHasNone)
{
    std::string below = "Orders";
    std::string column = "ID";
    for (int level = 1; level <= 15; ++level) {
        AddJoinOfTwo("V" + std::to_string(level), below, column);
        below = "V" + std::to_string(level);
        column.insert(0, kLongName + ".");
        EXPECT_THAT(Columns(), ElementsAre(column + " 3 4", "b" + column.substr(kLongName.size()) + " 3 4"));
    }
    AddJoinOfTwo("V16", below, column);
    EXPECT_THAT(Columns(), IsEmpty()) << "its first name has " << 16 * 65 + 2 << " bytes";
    AddLevel(17, "V16");
    EXPECT_THAT(Columns(), IsEmpty());
    Add("Apart", {Source(below), Output("[" + column + "]", "ID")});
    EXPECT_THAT(Columns(), ElementsAre("ID 3 4"));
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
