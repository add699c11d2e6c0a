#include "shell/main_window/class_marks.h"

#include "project_fixture.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ListRow TableRow(const std::string& name)
{
    return {.Key = name, .Text = name};
}

class ClassMarks : public testing::ProjectFixture
{
  protected:
    void AddProcedure(KZMClass& item, const std::string& name)
    {
        const auto method = item.TTCMethods.Add(name, false, {}, "", "Public", false, name);
        method->MethodIsSP = true;
        method->StoredProcedure = std::make_shared<SP>();
        method->StoredProcedure->SPName = name + ";1";
    }

    [[nodiscard]] std::vector<std::string> Keys(const std::vector<std::size_t>& nodes) const
    {
        const ProjectTree tree = Tree();
        std::vector<std::string> keys;
        for (const std::size_t node : nodes)
            keys.push_back(tree.at(node).Id.Key);
        return keys;
    }

    [[nodiscard]] std::vector<std::string> OnTable(const ListRow& row) const
    {
        return Keys(ClassesOnTable(row, Tree(), Classes));
    }

    [[nodiscard]] std::vector<std::string> Calling(const ListRow& row) const
    {
        return Keys(ClassesCallingProcedure(row, Tree(), Classes));
    }
};

TEST_F(ClassMarks, ATableMarksTheClassesThatStandOnIt)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
    AddClass({.Name = "Client", .Table = "CUSTOMERS", .Parent = "Customer"});
    AddClass({.Name = "Order", .Table = "Orders"});
    EXPECT_THAT(OnTable(TableRow("Customers")), ElementsAre("Customer", "Client"));
    EXPECT_THAT(OnTable(TableRow("Lines")), IsEmpty());
}

TEST_F(ClassMarks, AProcedureMarksTheClassesWithAMethodBoundToIt)
{
    AddProcedure(*AddClass({.Name = "Order", .Table = "Orders"}), "GetOrders");
    const auto plain = AddClass({.Name = "Report", .Table = ""});
    plain->TTCMethods.Add("GetOrders", false, {}, "", "Public", false, "GetOrders");
    EXPECT_THAT(Calling(TableRow("GetOrders;1")), ElementsAre("Order"));
    EXPECT_THAT(Calling(TableRow("GetOrders")), IsEmpty());
}

TEST_F(ClassMarks, RowsThatStandForNoTableMarkNothing)
{
    AddClass({.Name = "None", .Table = "<no datasource defined>"});
    AddClass({.Name = "Add", .Table = "<Add a Table>"});
    for (const ListRow& row :
         {ListRow{.Key = "NONE", .Text = "<no datasource defined>"}, ListRow{.Key = ":ADD", .Text = "<Add a Table>"}}) {
        EXPECT_FALSE(IsRealRow(row));
        EXPECT_THAT(OnTable(row), IsEmpty());
        EXPECT_THAT(Calling(row), IsEmpty());
    }
    EXPECT_TRUE(IsRealRow(TableRow("Customers")));
}

TEST_F(ClassMarks, AnEmptyNameMarksNoClassWithoutATable)
{
    AddClass({.Name = "Basket", .Table = ""});
    EXPECT_THAT(OnTable(TableRow("")), IsEmpty());
}

} // namespace
} // namespace veldrane
