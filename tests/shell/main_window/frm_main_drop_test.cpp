#include "frm_main_fixture.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrmMainDrop : public testing::FrmMainTest
{};

TEST_F(FrmMainDrop, ATableDroppedOnAGroupBecomesTheSelectedClass)
{
    StartOnShop();
    DropRow("Countries", Fixed(tree_key::kLookupClasses));
    EXPECT_EQ(SelectedKey(), "Country");
    EXPECT_TRUE(Form.Classes().Item("Country")->IsDomainTable);
    EXPECT_EQ(LineAt(1), "Class Name: Country");
    EXPECT_TRUE(Form.Project().Modified());
    EXPECT_TRUE(Form.actBar().IsEnabled("DeleteClass"));
}

TEST_F(FrmMainDrop, ATableDroppedOnAClassBecomesItsSelectedSubclass)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    EXPECT_EQ(SelectedKey(), "Order");
    EXPECT_EQ(Form.Classes().Item("Order")->ParentClassName, "Customer");
    for (auto above = Form.treMain().Nodes().at(Node(OfClass("Order"))).Parent; above;
         above = Form.treMain().Nodes().at(*above).Parent)
        EXPECT_TRUE(Form.treMain().IsExpanded(*above));
}

TEST_F(FrmMainDrop, ATableIsNotDroppedOnTheParentOfItsClass)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    const auto dragged = Form.DraggedFromRow(Row("Orders"));
    EXPECT_FALSE(Form.MayDrop(*dragged, Node(OfClass("Customer"))));
    EXPECT_FALSE(Form.MayDrop(*dragged, Node(Fixed(tree_key::kAdditionalClasses))));
    EXPECT_TRUE(Form.MayDrop(*dragged, Node(Fixed(tree_key::kLookupClasses))));
}

TEST_F(FrmMainDrop, AClassDroppedOnTheLookupClassesIsMovedAndSelected)
{
    StartWithCustomer();
    Click(Fixed(tree_key::kRoot));
    DropNode(OfClass("Customer"), Fixed(tree_key::kLookupClasses));
    EXPECT_EQ(SelectedKey(), "Customer");
    EXPECT_TRUE(Form.Classes().Item("Customer")->IsDomainTable);
    const auto parent = Form.treMain().Nodes().at(Node(OfClass("Customer"))).Parent;
    EXPECT_EQ(Form.treMain().Nodes().at(*parent).Id, Fixed(tree_key::kLookupClasses));
    EXPECT_EQ(LineAt(1), "Class Name: Customer");
    EXPECT_TRUE(Form.Project().Modified());
}

TEST_F(FrmMainDrop, AClassDroppedOnAClassIsMovedWithItsJoin)
{
    StartWithCustomer();
    DropRow("Orders", Fixed(tree_key::kParentClasses));
    DropNode(OfClass("Order"), OfClass("Customer"));
    EXPECT_EQ(SelectedKey(), "Order");
    EXPECT_EQ(Form.Classes().Item("Order")->ParentClassName, "Customer");
    EXPECT_TRUE(Form.Classes().Item("Order")->TTCRelationships.Contains("FK_Customer"));
}

TEST_F(FrmMainDrop, AClassThatIsGoneIsDroppedNowhere)
{
    StartWithCustomer();
    const auto dragged = Form.DraggedFromNode(Node(OfClass("Customer")));
    ASSERT_TRUE(dragged);
    World.Messages.Add(Answer::Ok);
    Click(OfClass("Customer"));
    Form.actbar_Click("DeleteClass");
    EXPECT_FALSE(Form.MayDrop(*dragged, Node(Fixed(tree_key::kLookupClasses))));
    EXPECT_THAT(Form.Targets(*dragged), IsEmpty());
    Form.DropOn(*dragged, Node(Fixed(tree_key::kLookupClasses)));
    EXPECT_EQ(Form.Classes().Count(), 0U);
}

TEST_F(FrmMainDrop, TheMenusOfferTheSamePlacesAsADrag)
{
    StartWithCustomer();
    Form.lst_ItemClick(Row("Orders"));
    const auto row = Form.DraggedFromSelection("AddClassTo");
    ASSERT_TRUE(row);
    std::vector<std::string> captions;
    for (const DropTarget& target : Form.Targets(*row))
        captions.push_back(target.Caption);
    EXPECT_THAT(captions, ElementsAre("Parent/Children Classes", "Lookup/Domain Classes", "Customer"));
    Form.DropOn(Form.Targets(*row).at(2));
    EXPECT_EQ(SelectedKey(), "Order");
    const auto moved = Form.DraggedFromSelection("MoveClassTo");
    ASSERT_TRUE(moved);
    EXPECT_EQ(std::get<NodeKey>(*moved), OfClass("Order"));
}

TEST_F(FrmMainDrop, ADropBuildsTheTreeAndThePreviewOnce)
{
    StartOnShop();
    std::vector<WindowPart> parts;
    const Connection listening = Form.Changed.Connect([&](WindowPart part) {
        if (part == WindowPart::Tree || part == WindowPart::Navigator)
            parts.push_back(part);
    });
    DropRow("Customers", Fixed(tree_key::kParentClasses));
    EXPECT_THAT(parts, ElementsAre(WindowPart::Tree, WindowPart::Navigator));
    parts.clear();
    DropNode(OfClass("Customer"), Fixed(tree_key::kLookupClasses));
    EXPECT_THAT(parts, ElementsAre(WindowPart::Tree, WindowPart::Navigator));
    parts.clear();
    Form.Classes().AddExisting(std::make_shared<KZMClass>(), "Note");
    EXPECT_THAT(parts, ElementsAre(WindowPart::Tree, WindowPart::Navigator));
}

TEST_F(FrmMainDrop, AMenuWithNothingToChooseIsOff)
{
    StartWithCustomer();
    EXPECT_FALSE(Form.actBar().IsEnabled("AddClassTo"));
    Form.lst_ItemClick(Row(":ADD"));
    EXPECT_FALSE(Form.actBar().IsEnabled("AddClassTo"));
    Form.lst_ItemClick(Row("Orders"));
    EXPECT_TRUE(Form.actBar().IsEnabled("AddClassTo"));
    Form.tabDatasource_Click(DataSourceTab::StoredProcedures);
    EXPECT_FALSE(Form.actBar().IsEnabled("AddClassTo"));
    Form.lst_ItemClick(Row("GetTotals"));
    EXPECT_FALSE(Form.actBar().IsEnabled("AddClassTo"));
    EXPECT_TRUE(Form.actBar().IsEnabled("MoveClassTo"));
    Form.Classes().Item("Customer")->IsMTSRequiredClass = true;
    Click(OfClass("Customer"));
    EXPECT_FALSE(Form.actBar().IsEnabled("MoveClassTo"));
}

TEST_F(FrmMainDrop, APointerWaitsWhileADropReadsTheDataSource)
{
    StartOnShop();
    std::vector<PointerShape> shapes;
    Database().Answering = [&](const std::string& /*call*/) { shapes.push_back(World.Pointer.Current); };
    DropRow("Customers", Fixed(tree_key::kParentClasses));
    EXPECT_FALSE(shapes.empty());
    EXPECT_THAT(shapes, Each(PointerShape::Hourglass));
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
}

TEST_F(FrmMainDrop, ATableThatWasDroppedInTheDatabaseIsToldAndNothingIsLost)
{
    StartWithCustomer();
    Database().Content.erase("Orders");
    World.Messages.Add(Answer::No);
    DropRow("Orders", OfClass("Customer"));
    ASSERT_THAT(Titles(), Contains("Table Missing"));
    EXPECT_EQ(World.Messages.Asked().front().Text,
              "The table named 'Orders' cannot be found. Has this table been renamed?\r\n"
              "Click 'Yes' if the table has been renamed and you know what the new name is.\r\n"
              "Click 'No' if the table has been deleted\r\n"
              "Click 'Cancel' to cancel this operation.");
    EXPECT_EQ(Form.Classes().Count(), 1U);
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_THAT(Rows(), Contains("Orders"));
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
}

TEST_F(FrmMainDrop, AReadingThatIsCancelledAddsAndMovesNothingAndIsNoFailure)
{
    StartWithCustomer();
    DropRow("Orders", Fixed(tree_key::kParentClasses));
    Form.Project().SetModified(false);
    World.Messages.Forget();
    CancelIn("Fields");
    DropRow("Countries", Fixed(tree_key::kLookupClasses));
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: nothing has changed.");
    CancelIn("Keys");
    DropNode(OfClass("Order"), OfClass("Customer"));
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: nothing has changed.");
    EXPECT_EQ(Form.Classes().Count(), 2U);
    EXPECT_EQ(Form.Classes().Item("Order")->ParentClassName, "");
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_THAT(World.Errors.Reported, IsEmpty());
    EXPECT_THAT(Titles(), IsEmpty());
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
}

TEST_F(FrmMainDrop, TheStatusSaysThatADropReadsTheDataSource)
{
    StartOnShop();
    std::vector<std::string> status;
    const Connection listening = Form.Status().Changed.Connect([&] { status.push_back(Form.Status().Status()); });
    std::vector<std::string> whileRead;
    Database().Answering = [&](const std::string& /*call*/) { whileRead.push_back(Form.Status().Status()); };
    DropRow("Countries", Fixed(tree_key::kLookupClasses));
    EXPECT_FALSE(whileRead.empty());
    EXPECT_THAT(whileRead, Each("Reading the data source..."));
    EXPECT_EQ(status.front(), "Reading the data source...");
    EXPECT_EQ(status.back(), "Ready...");
}

TEST_F(FrmMainDrop, ADropOnANodeThatIsNotThereDoesNothing)
{
    StartOnShop();
    const auto dragged = Form.DraggedFromRow(Row("Customers"));
    ASSERT_TRUE(dragged);
    EXPECT_FALSE(Form.MayDrop(*dragged, Form.treMain().Nodes().size()));
    Form.DropOn(*dragged, Form.treMain().Nodes().size());
    EXPECT_EQ(Form.Classes().Count(), 0U);
}

TEST_F(FrmMainDrop, ACatalogThatCanNotBeOpenedIsToldOnce)
{
    StartWithCustomer();
    dynamic_cast<testing::FakeConnection&>(*World.State.ActiveConnection).CatalogFailure = "The server is gone.";
    DropRow("Orders", Fixed(tree_key::kParentClasses));
    ASSERT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(World.Errors.Reported[0].Error.Description(), "The server is gone.");
    EXPECT_EQ(World.Errors.Reported[0].Place.RoutineName, "OpenCatalog");
    EXPECT_EQ(Form.Classes().Item("Order"), nullptr);
    EXPECT_FALSE(Form.Project().Modified());
}

} // namespace
} // namespace veldrane
