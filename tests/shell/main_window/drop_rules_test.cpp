#include "shell/main_window/drop_rules.h"

#include "model/xml_assist.h"
#include "project_fixture.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A drop in words, as the tables below have it.
std::string TextOf(const Drop& drop)
{
    struct Words
    {
        std::string operator()(const NoDrop& /*drop*/) const { return "-"; }
        std::string operator()(const NewClass& request) const
        {
            constexpr const char* kPlaces[] = {"root", "under ", "lookup"};
            return "add " + request.TableName + " " + kPlaces[static_cast<std::size_t>(request.Place)] +
                   request.ParentClassName + (request.Access == ClassAccess::ReadOnly ? " read only" : "");
        }
        std::string operator()(const ClassMove& move) const
        {
            return "move " + move.ClassName + " to '" + move.ParentClassName + "'" +
                   (move.IsDomainTable ? " lookup" : "") + (move.ClearsRelationships ? " unjoined" : "") +
                   (move.DropsCollection ? " uncollected" : "");
        }
        std::string operator()(const EditedMove& move) const
        {
            return "edit " + move.ClassName + " under " + move.ParentClassName;
        }
    };
    return std::visit(Words{}, drop);
}

DraggedRow TableRow(const std::string& name, RowList from = RowList::Tables)
{
    return {.Row = {.Key = name, .Text = name}, .From = from};
}

// Each kind of class, with and without a collection, on top and under a parent.
class DropRules : public testing::ProjectFixture
{
  protected:
    DropRules()
    {
        AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
        AddClass({.Name = "Product", .Table = "Products"});
        AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer", .Collection = "Orders"});
        AddClass({.Name = "Address", .Table = "Addresses", .Parent = "Customer"});
        AddClass({.Name = "Line", .Table = "Lines", .Parent = "Order"});
        AddClass({.Name = "Country", .Table = "Countries", .Collection = "Countries", .IsDomain = true});
        AddClass({.Name = "Unit", .Table = "Units", .IsDomain = true});
        AddClass({.Name = "Basket", .Table = "", .Collection = "Baskets"});
        AddClass({.Name = "Clerk", .Table = ""});
        AddClass({.Name = "Note", .Table = "", .Parent = "Clerk"});
        AddXmlAssist(Project, Classes);
        Rebuild();
    }

    void Rebuild() { Nodes = Tree(); }

    // A node in words: "Root" is fixed, "c:Orders" a collection, ":Order" a class.
    [[nodiscard]] std::size_t At(const std::string& name) const
    {
        NodeKey key{.Kind = NodeKind::Fixed, .Key = name};
        if (name.starts_with("c:"))
            key = {.Kind = NodeKind::Collection, .Key = name.substr(2)};
        else if (name.starts_with(":"))
            key = {.Kind = NodeKind::Class, .Key = name.substr(1)};
        const auto index = IndexOf(Nodes, key);
        EXPECT_TRUE(index) << name;
        return index.value_or(0);
    }

    [[nodiscard]] DropGround Ground() const { return {.Tree = Nodes, .Classes = Classes}; }

    [[nodiscard]] std::string Row(const std::string& target, const DraggedRow& row = TableRow("Letters")) const
    {
        return TextOf(DropOf(row, At(target), Ground()));
    }

    [[nodiscard]] std::string Move(const std::string& dragged, const std::string& target) const
    {
        return TextOf(DropOf(At(dragged), At(target), Ground()));
    }

    ProjectTree Nodes;
};

TEST_F(DropRules, ARowMakesAClassWhereTheTreeTakesTables)
{
    EXPECT_EQ(Row("KZMParent"), "add Letters root");
    EXPECT_EQ(Row("TypeOf"), "add Letters lookup");
    EXPECT_EQ(Row(":Product"), "add Letters under Product");
    EXPECT_EQ(Row(":Customer"), "add Letters under Customer");
    EXPECT_EQ(Row("c:Customers"), "add Letters under Customer");
    EXPECT_EQ(Row(":Line"), "add Letters under Line");
    EXPECT_EQ(Row(":Clerk"), "add Letters under Clerk"); // a parent already
}

TEST_F(DropRules, ARowIsRefusedEverywhereElse)
{
    for (const char* target :
         {"Root", "Class", "KZMRequired", "KZMRequiredProjects", "VBProjectFile", "VBProjectTestFile",
          "VBProjectGroupFile", "KZMRequiredModules", "KZMGlobals", "KZMRequiredClassModules", "KZMWRAPPER", ":Country",
          "c:Countries", ":Unit", ":Basket", "c:Baskets", ":Note", ":xmlAssist"})
        EXPECT_EQ(Row(target), "-") << target;
    EXPECT_EQ(TextOf(DropOf(TableRow("Letters"), std::nullopt, Ground())), "-");
}

TEST_F(DropRules, ALookupClassThatIsAParentTakesTables)
{
    AddClass({.Name = "Region", .Table = "Regions", .Parent = "Country"});
    Rebuild();
    EXPECT_EQ(Row(":Country"), "add Letters under Country");
    EXPECT_EQ(Row("c:Countries"), "add Letters under Country");
}

TEST_F(DropRules, ARowOfTheViewsMakesAReadOnlyClass)
{
    EXPECT_EQ(Row("KZMParent", TableRow("Totals", RowList::Views)), "add Totals root read only");
    EXPECT_EQ(Row(":Product", TableRow("Totals", RowList::Views)), "add Totals under Product read only");
}

TEST_F(DropRules, ATableOnItsOwnParentDoesNothing)
{
    EXPECT_EQ(Row(":Customer", TableRow("ORDERS")), "-");
    EXPECT_EQ(Row("c:Customers", TableRow("Orders")), "-");
    EXPECT_EQ(Row(":Product", TableRow("Orders")), "add Orders under Product");
    EXPECT_EQ(Move(":Order", ":Customer"), "-");
    EXPECT_EQ(Move("c:Orders", "c:Customers"), "-");
}

TEST_F(DropRules, RowsThatStandForNoTableStayWhereTheyAre)
{
    for (const ListRow& row :
         {ListRow{.Key = "NONE", .Text = "<no datasource defined>"}, ListRow{.Key = ":ADD", .Text = "<Add a Table>"}}) {
        EXPECT_FALSE(CanDrag(row));
        EXPECT_EQ(TextOf(DropOf({.Row = row}, At("KZMParent"), Ground())), "-");
        EXPECT_THAT(TargetsOf(DraggedRow{.Row = row}, Ground()), IsEmpty());
    }
    EXPECT_TRUE(CanDrag(TableRow("Letters").Row));
}

TEST_F(DropRules, OnlyClassesAndCollectionsAreDragged)
{
    EXPECT_TRUE(CanDrag(At(":Order"), Ground()));
    EXPECT_TRUE(CanDrag(At("c:Orders"), Ground()));
    for (const char* node : {"Root", "KZMParent", "Class", "KZMWRAPPER", ":xmlAssist"}) {
        EXPECT_FALSE(CanDrag(At(node), Ground())) << node;
        EXPECT_EQ(Move(node, "TypeOf"), "-") << node;
        EXPECT_EQ(Move(node, ":Clerk"), "-") << node;
    }
}

TEST_F(DropRules, ANodeMovesAsTheTableSays)
{
    struct Case
    {
        const char* Dragged;
        const char* Target;
        const char* Effect;
    };
    for (const Case& one : {
             Case{":Order", "KZMParent", "move Order to '' unjoined uncollected"},
             Case{"c:Orders", "KZMParent", "move Order to '' unjoined"},
             Case{":Line", "KZMParent", "move Line to '' unjoined uncollected"},
             Case{":Order", "TypeOf", "move Order to '' lookup unjoined uncollected"},
             Case{"c:Orders", "TypeOf", "move Order to '' lookup unjoined"},
             Case{":Product", "TypeOf", "move Product to '' lookup unjoined uncollected"},
             Case{":Order", ":Product", "edit Order under Product"},
             Case{"c:Orders", ":Product", "edit Order under Product"},
             Case{":Product", ":Customer", "edit Product under Customer"},
             Case{":Product", "c:Customers", "edit Product under Customer"},
             Case{":Line", ":Country", "edit Line under Country"},
             Case{":Line", "c:Baskets", "edit Line under Basket"},
             Case{":Order", "Class", "-"},
             Case{"c:Orders", "Class", "-"},
             Case{":Country", "KZMParent", "move Country to ''"},
             Case{"c:Countries", "KZMParent", "move Country to ''"},
             Case{":Unit", "KZMParent", "move Unit to ''"},
             Case{":Country", ":Product", "edit Country under Product"},
             Case{"c:Countries", "c:Orders", "edit Country under Order"},
             Case{":Unit", ":Country", "edit Unit under Country"},
             Case{":Unit", "TypeOf", "-"},
             Case{":Unit", "Class", "-"},
             Case{":Note", "Class", "move Note to ''"},
             Case{":Basket", ":Clerk", "move Basket to 'Clerk'"},
             Case{"c:Baskets", ":Clerk", "move Basket to 'Clerk'"},
             Case{":Note", ":Basket", "move Note to 'Basket'"},
         })
        EXPECT_EQ(Move(one.Dragged, one.Target), one.Effect) << one.Dragged << " on " << one.Target;
}

TEST_F(DropRules, AClassWithoutATableIsRefusedInSilenceAmongThoseWithOne)
{
    for (const char* dragged : {":Basket", "c:Baskets", ":Clerk", ":Note"})
        for (const char* target : {"KZMParent", "TypeOf", ":Product", ":Order", "c:Orders", ":Country", "c:Countries",
                                   ":Unit", "Root", "KZMRequired", "KZMWRAPPER"})
            EXPECT_EQ(Move(dragged, target), "-") << dragged << " on " << target;
}

TEST_F(DropRules, ANodeOnItselfDoesNothing)
{
    for (const char* node : {":Order", ":Country", ":Clerk"})
        EXPECT_EQ(Move(node, node), "-") << node;
    EXPECT_EQ(Move("c:Orders", "c:Orders"), "-");
    EXPECT_EQ(Move(":Order", "c:Orders"), "-");
    EXPECT_EQ(Move("c:Orders", ":Order"), "-");
    EXPECT_EQ(TextOf(DropOf(At(":Order"), std::nullopt, Ground())), "-");
}

TEST_F(DropRules, AClassThatStandsThereAlreadyStays)
{
    EXPECT_EQ(Move(":Product", "KZMParent"), "-");
    EXPECT_EQ(Move("c:Customers", "KZMParent"), "-");
    EXPECT_EQ(Move(":Clerk", "Class"), "-");
    EXPECT_EQ(Move(":Note", ":Clerk"), "-");
    EXPECT_EQ(Move(":Customer", "KZMParent"), "move Customer to '' unjoined uncollected"); // out of its collection
}

TEST_F(DropRules, NoClassMovesUnderItsOwnSubclasses)
{
    EXPECT_EQ(Move(":Customer", ":Order"), "-");
    EXPECT_EQ(Move(":Customer", "c:Orders"), "-");
    EXPECT_EQ(Move("c:Customers", ":Line"), "-");
    EXPECT_EQ(Move(":Clerk", ":Note"), "-");
    EXPECT_EQ(Move(":Line", ":Address"), "edit Line under Address");
}

TEST_F(DropRules, ARingOfParentsHasAnEnd)
{
    Classes.Item("Customer")->ParentClassName = "Line";
    Rebuild();
    EXPECT_EQ(Move(":Product", ":Line"), "edit Product under Line");
    EXPECT_EQ(Move(":Order", ":Address"), "-");
    EXPECT_EQ(Move(":Order", "KZMParent"), "move Order to '' unjoined uncollected");
}

TEST_F(DropRules, ARequiredClassIsNoParent)
{
    for (const char* dragged : {":Product", ":Unit", ":Clerk"})
        EXPECT_EQ(Move(dragged, ":xmlAssist"), "-") << dragged;
}

TEST_F(DropRules, AClassNamedLikeAGroupIsAClass)
{
    AddClass({.Name = "TypeOf", .Table = "Types"});
    AddClass({.Name = "Class", .Table = ""});
    Rebuild();
    EXPECT_EQ(Row(":TypeOf"), "add Letters under TypeOf");
    EXPECT_EQ(Move(":Product", ":TypeOf"), "edit Product under TypeOf");
    EXPECT_EQ(Move(":Clerk", ":Class"), "move Clerk to 'Class'");
}

TEST_F(DropRules, ThePointerHasAPictureForEitherCase)
{
    const auto iconOf = [](const Drop& drop) { return std::holds_alternative<NoDrop>(drop) ? kNoDropIcon : kDragIcon; };
    EXPECT_EQ(iconOf(DropOf(TableRow("Letters"), At("KZMParent"), Ground())), "DragTable");
    EXPECT_EQ(iconOf(DropOf(TableRow("Letters"), At("Root"), Ground())), "DragTableNoDrop");
    EXPECT_EQ(iconOf(DropOf(At(":Order"), At(":Product"), Ground())), "DragTable");
    EXPECT_EQ(iconOf(DropOf(At(":Order"), At(":Line"), Ground())), "DragTableNoDrop");
}

TEST_F(DropRules, AllPlacesOfAThingAreListedForAMenu)
{
    const auto captions = [](const std::vector<DropTarget>& targets) {
        std::vector<std::string> text;
        for (const DropTarget& target : targets)
            text.push_back(target.Caption + ": " + TextOf(target.Effect));
        return text;
    };
    EXPECT_THAT(captions(TargetsOf(TableRow("Lines"), Ground())),
                ElementsAre("Parent/Children Classes: add Lines root", "Lookup/Domain Classes: add Lines lookup",
                            "Customer: add Lines under Customer", "Product: add Lines under Product",
                            "Clerk: add Lines under Clerk", "Address: add Lines under Address",
                            "Line: add Lines under Line"));
    EXPECT_THAT(captions(TargetsOf(At("c:Baskets"), Ground())),
                ElementsAre("Clerk: move Basket to 'Clerk'", "Note: move Basket to 'Note'"));
    EXPECT_THAT(TargetsOf(At("Root"), Ground()), IsEmpty());
}

TEST_F(DropRules, AMenuTellsThePlaceThatTakesTheCollectionAway)
{
    const auto firstCaption = [&](const char* dragged) { return TargetsOf(At(dragged), Ground()).at(0).Caption; };
    EXPECT_EQ(firstCaption(":Customer"), "Parent/Children Classes (without its collection)");
    EXPECT_EQ(firstCaption("c:Customers"), "Lookup/Domain Classes");
    EXPECT_EQ(firstCaption(":Line"), "Parent/Children Classes"); // it has none
}

TEST_F(DropRules, EveryPlaceOfAMenuTakesADropToo)
{
    for (std::size_t dragged = 0; dragged < Nodes.size(); ++dragged)
        for (const DropTarget& target : TargetsOf(dragged, Ground()))
            EXPECT_EQ(TextOf(DropOf(dragged, target.Node, Ground())), TextOf(target.Effect));
}

} // namespace
} // namespace veldrane
