#include "preview_fixture.h"

namespace veldrane::testing {
namespace {

class ModuleView : public PreviewTest
{
  protected:
    // The blocks behind the heading, as their writers' tests show them.
    [[nodiscard]] std::vector<std::string> Sections(NodeType type, KZMClass* item = nullptr)
    {
        std::vector<std::string> sections;
        for (const TTCOutputs& block : Blocks(type, item))
            sections.push_back(PreviewLines(block));
        sections.erase(sections.begin());
        return sections;
    }
};

TEST_F(ModuleView, OfAClassOnATableHasTheTablesPicture)
{
    KZMClass& order = AddClass("Order");
    order.TableName = "Orders";
    EXPECT_EQ(Heading(NodeType::Class, &order), R"(
head|Preview Class Module Code|
head TableClass|Class Name: Order|
code File|FileName: cOrder.cls|
)");
}

TEST_F(ModuleView, OfAClassWithoutATableHasTheClasssPicture)
{
    KZMClass& order = AddClass("Order");
    EXPECT_EQ(Heading(NodeType::Class, &order), R"(
head|Preview Class Module Code|
head Class|Class Name: Order|
code File|FileName: cOrder.cls|
)");
}

TEST_F(ModuleView, OfARequiredClassSaysSo)
{
    KZMClass& assist = AddClass("xmlAssist");
    assist.IsMTSRequiredClass = true;
    EXPECT_EQ(Heading(NodeType::Class, &assist), R"(
head Class|Required Class: xmlAssist|
code File|FileName: cxmlAssist.cls|
)");
}

TEST_F(ModuleView, OfAClassShowsItsFourSections)
{
    KZMClass& order = AddClass("Order");
    AddProperty(order, "City", "String");
    AddMethod(order, "Clear", true);
    EXPECT_EQ(Sections(NodeType::Class, &order), (std::vector<std::string>{
                                                     PreviewLines(generation.WriteClassHeader(order, classes)),
                                                     PreviewLines(generation.WriteClassDeclarations(order, classes)),
                                                     PreviewLines(generation.WriteClassProperties(order, classes)),
                                                     PreviewLines(generation.WriteClassMethods(order, classes)),
                                                 }));
}

TEST_F(ModuleView, OfACollectionNamesIt)
{
    KZMClass& order = AddClass("Order");
    order.TableName = "Orders";
    EXPECT_EQ(Heading(NodeType::Collection, &order), R"(
head|Preview Collection Module Code|
head Collection|Collection Name: Orders|
code File|FileName: cOrders.cls|
)");
}

TEST_F(ModuleView, OfARequiredCollectionSaysSo)
{
    KZMClass& assist = AddClass("xmlAssist");
    assist.IsMTSRequiredClass = true;
    EXPECT_EQ(Heading(NodeType::Collection, &assist), R"(
head Collection|Required Collection: xmlAssists|
code File|FileName: cxmlAssists.cls|
)");
}

TEST_F(ModuleView, OfACollectionShowsItsFourSections)
{
    KZMClass& order = AddClass("Order");
    order.CreateCollection = true;
    AddProperty(order, "City", "String");
    EXPECT_EQ(Sections(NodeType::Collection, &order), (std::vector<std::string>{
                                                          PreviewLines(generation.WriteCollectionHeader(order, classes)),
                                                          PreviewLines(generation.WriteCollectionDeclarations(order, classes)),
                                                          PreviewLines(generation.WriteCollectionProperties(order, classes)),
                                                          PreviewLines(generation.WriteCollectionMethods(order, classes)),
                                                      }));
}

TEST_F(ModuleView, OfTheGlobalsModuleHasNoPictureAtItsFile)
{
    EXPECT_EQ(Heading(NodeType::GlobalsModule), R"(
head Module|Required: Global Module|
code|Globals File Name: mGlobals.bas|
)");
    EXPECT_EQ(Sections(NodeType::GlobalsModule), (std::vector<std::string>{PreviewLines(generation.GenerateGlobalsBasFile())}));
}

TEST_F(ModuleView, OfTheWrapperClassNamesIt)
{
    EXPECT_EQ(Heading(NodeType::WrapperClass), R"(
head Class|Required Wrapper Class: Auto|
code File|File Name: cAuto.cls|
)");
    AddClass("Order");
    EXPECT_EQ(Sections(NodeType::WrapperClass), (std::vector<std::string>{PreviewLines(generation.GenerateWrapperClass(classes))}));
}

TEST_F(ModuleView, OfTheProjectFileNamesTheProject)
{
    EXPECT_EQ(Heading(NodeType::ProjectFile), R"(
head Root|Required Visual Basic Project: Shop|
code File|FileName: Shop.vbp|
code||
)");
    AddClass("Order");
    EXPECT_EQ(Sections(NodeType::ProjectFile), (std::vector<std::string>{PreviewLines(generation.GenerateProjectFile(classes))}));
}

TEST_F(ModuleView, OfTheTestProjectNamesItsFile)
{
    EXPECT_EQ(Heading(NodeType::TestProjectFile), R"(
head Root|Required Visual Basic Test Project|
code File|FileName: TestShop.vbp|
code||
)");
    EXPECT_EQ(Sections(NodeType::TestProjectFile), (std::vector<std::string>{PreviewLines(generation.GenerateTestProjectFile(classes))}));
}

TEST_F(ModuleView, OfTheProjectGroupNamesItsFile)
{
    EXPECT_EQ(Heading(NodeType::TestProjectGroup), R"(
head Root|Required Visual Basic Test Project Group|
code File|FileName: TestShop.vbg|
code||
)");
    EXPECT_EQ(Sections(NodeType::TestProjectGroup), (std::vector<std::string>{PreviewLines(generation.GenerateTestProjectGroup())}));
}

} // namespace
} // namespace veldrane::testing
