#include "shell/define_plan.h"

#include <gmock/gmock.h>

#include <map>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<CatalogTable> kShop{{"Lines", "TABLE"},     {"Orders", "TABLE"},    {"Customers", "TABLE"},
                                      {"Countries", "TABLE"}, {"OpenOrders", "VIEW"}, {"sqlite_stat", "SYSTEM TABLE"}};

const std::map<std::string, std::vector<std::string>> kKeys{
    {"Lines", {"Orders"}}, {"Orders", {"Customers", "Customers"}}, {"Customers", {"Countries", "Customers"}}};

std::vector<std::string> Related(const std::string& table)
{
    const auto found = kKeys.find(table);
    return found == kKeys.end() ? std::vector<std::string>{} : found->second;
}

// Each class of the plan as "Table", "Table<Parent" or "Table?" for a lookup; a view carries "*".
std::vector<std::string> Shown(const DefinePlan& plan)
{
    std::vector<std::string> shown;
    for (const PlannedClass& item : plan.Classes) {
        std::string text = item.TableName + (item.IsView ? "*" : "");
        if (item.Place == PlannedPlace::Child)
            text += "<" + item.Parent;
        if (item.Place == PlannedPlace::Lookup)
            text += "?";
        shown.push_back(text);
    }
    return shown;
}

std::vector<std::string> Planned(const std::vector<CatalogTable>& tables, const DefineRequest& request,
                                 const RelatedTables& related = Related)
{
    return Shown(PlanDefinition(tables, request, related));
}

TEST(DefinePlan, AllTakesTablesAloneAndPutsParentsFirst)
{
    EXPECT_THAT(Planned(kShop, {.All = true}),
                ElementsAre("Countries", "Customers<Countries", "Orders<Customers", "Lines<Orders"));
}

TEST(DefinePlan, ALookupTableIsNobodysParent)
{
    EXPECT_THAT(Planned(kShop, {.Lookups = {"Countries"}, .All = true}),
                ElementsAre("Customers", "Orders<Customers", "Lines<Orders", "Countries?"));
}

TEST(DefinePlan, ATableIsAlsoFoundWithTheSchemaThatItsNameLeavesOut)
{
    const std::vector<CatalogTable> tables{{.Name = "orders", .Type = "TABLE", .WithSchema = "public.orders"},
                                           {.Name = "lines", .Type = "TABLE", .WithSchema = "public.lines"},
                                           {.Name = "public.lines", .Type = "TABLE"}};
    EXPECT_THAT(Planned(tables, {.Tables = {"public.lines=PUBLIC.Orders", "public.orders"}}),
                ElementsAre("orders", "public.lines<orders"));
    EXPECT_THAT(Planned(tables, {.Tables = {"Lines=orders"}, .Lookups = {"public.Orders"}}),
                ElementsAre("orders?", "lines<orders"));
}

TEST(DefinePlan, ATableWithKeysToTwoTablesIsARoot)
{
    const std::vector<CatalogTable> tables{{"A", "TABLE"}, {"B", "TABLE"}, {"AB", "TABLE"}};
    const auto related = [](const std::string& table) {
        return table == "AB" ? std::vector<std::string>{"A", "B"} : std::vector<std::string>{};
    };
    EXPECT_THAT(Planned(tables, {.All = true}, related), ElementsAre("A", "B", "AB"));
    EXPECT_THAT(Planned(tables, {.Tables = {"AB=B"}, .All = true}, related), ElementsAre("A", "B", "AB<B"));
}

TEST(DefinePlan, KeysToTheTableItselfToViewsAndToTablesOutsideTheRunDoNotCount)
{
    const std::vector<CatalogTable> tables{{"A", "TABLE"}, {"B", "TABLE"}, {"V", "VIEW"}};
    const auto related = [](const std::string& table) {
        return table == "B" ? std::vector<std::string>{"B", "V", "Elsewhere", "A"} : std::vector<std::string>{};
    };
    EXPECT_THAT(Planned(tables, {.Tables = {"V"}, .All = true}, related), ElementsAre("A", "B<A", "V*"));
}

TEST(DefinePlan, InACircleTheFirstTableOfTheCatalogBecomesARoot)
{
    const std::vector<CatalogTable> tables{{"C", "TABLE"}, {"A", "TABLE"}, {"B", "TABLE"}, {"Tail", "TABLE"}};
    const auto related = [](const std::string& table) {
        const std::map<std::string, std::string> keys{{"A", "B"}, {"B", "C"}, {"C", "A"}, {"Tail", "B"}};
        return std::vector<std::string>{keys.at(table)};
    };
    EXPECT_THAT(Planned(tables, {.All = true}, related), ElementsAre("C", "B<C", "A<B", "Tail<B"));
}

TEST(DefinePlan, TablesThatAreNamedAreTakenAlone)
{
    EXPECT_THAT(Planned(kShop, {.Tables = {"Customers", "Orders"}}), ElementsAre("Orders", "Customers"));
}

TEST(DefinePlan, AParentOutsideTheRunIsLeftToTheProject)
{
    EXPECT_THAT(Planned(kShop, {.Tables = {"Orders=Customer"}}), ElementsAre("Orders<Customer"));
}

TEST(DefinePlan, AnArgumentThatIsATablesNameIsTakenWhole)
{
    const std::vector<CatalogTable> tables{{"a=b", "TABLE"}, {"a", "TABLE"}};
    EXPECT_THAT(Planned(tables, {.Tables = {"a=b"}}), ElementsAre("a=b"));
    EXPECT_THAT(Planned(tables, {.Tables = {"a=b=a"}}), ElementsAre("a<b=a"));
    EXPECT_THAT(Planned({tables[0]}, {.Tables = {"a=b=Parent"}}), ElementsAre("a=b<Parent"));
}

TEST(DefinePlan, AnEmptyParentMeansARoot)
{
    EXPECT_THAT(Planned(kShop, {.Tables = {"Orders="}, .All = false}), ElementsAre("Orders"));
}

TEST(DefinePlan, NamesAreFoundInAnyCaseButTheExactOneFirst)
{
    const std::vector<CatalogTable> tables{{"orders", "TABLE"}, {"Orders", "TABLE"}};
    EXPECT_THAT(Planned(tables, {.Tables = {"Orders"}}), ElementsAre("Orders"));
    EXPECT_THAT(Planned(tables, {.Tables = {"ORDERS"}}), ElementsAre("orders"));
}

TEST(DefinePlan, UnknownNamesAreGivenBack)
{
    const DefinePlan plan = PlanDefinition(kShop, {.Tables = {"Nope", "Nada=Customers"}, .Lookups = {"Nil"}}, Related);
    EXPECT_THAT(plan.Classes, IsEmpty());
    EXPECT_THAT(plan.Unknown, ElementsAre("Nil", "Nope", "Nada"));
}

TEST(DefinePlan, AChainOfManyTablesIsFollowedToItsEnd)
{
    std::vector<CatalogTable> tables;
    constexpr int kTables = 5000;
    for (int i = 0; i < kTables; ++i)
        tables.push_back({"T" + std::to_string(i), "TABLE"});
    const auto related = [](const std::string& table) {
        return std::vector<std::string>{"T" + std::to_string(std::stoi(table.substr(1)) + 1)};
    };
    const DefinePlan plan = PlanDefinition(tables, {.All = true}, related);
    ASSERT_EQ(plan.Classes.size(), static_cast<std::size_t>(kTables));
    EXPECT_EQ(plan.Classes.front().TableName, "T4999");
    EXPECT_EQ(plan.Classes.back().TableName, "T0");
}

} // namespace
} // namespace veldrane
