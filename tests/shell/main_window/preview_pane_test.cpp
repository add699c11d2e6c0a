#include "shell/main_window/preview_pane.h"

#include "generator/generation_fixture.h"
#include "support/recorded_pointer.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ThePreviewPane : public testing::GenerationTest
{
  protected:
    bool Display(NodeType type, KZMClass* item = nullptr)
    {
        return pane.DisplayPreview(PreviewNode{.Type = type, .Class = item}, {project, classes, generation, errors},
                                   pointer);
    }

    [[nodiscard]] std::vector<std::string> Texts() const
    {
        std::vector<std::string> texts;
        for (std::size_t row = 0; row < pane.Count(); ++row)
            texts.push_back(pane.Row(row).LineText);
        return texts;
    }

    testing::RecordedPointer pointer;
    PreviewPane pane;
};

TEST_F(ThePreviewPane, HoldsNothingAtFirst)
{
    EXPECT_EQ(pane.Count(), 0U);
    EXPECT_EQ(pane.Selected(), std::nullopt);
    EXPECT_EQ(pane.Title(), "");
}

TEST_F(ThePreviewPane, HoldsTheLinesOfAllBlocksInTheirOrder)
{
    KZMClass& order = AddClass("Order");
    AddProperty(order, "City", "String");
    ASSERT_TRUE(Display(NodeType::Class, &order));
    const auto text = PreviewOf({.Type = NodeType::Class, .Class = &order}, {project, classes, generation, errors});
    std::vector<std::string> lines;
    for (const TTCOutputs& block : text->Blocks)
        for (const TTCOutput& line : block)
            lines.push_back(line.LineText);
    EXPECT_EQ(Texts(), lines);
    EXPECT_EQ(pane.Title(), "Order");
}

TEST_F(ThePreviewPane, KeepsALinesPictureColourAndWeight)
{
    AddClass("Order").TableName = "Orders";
    ASSERT_TRUE(Display(NodeType::ParentClasses));
    const TTCOutput& heading = pane.Row(2);
    EXPECT_EQ(heading.LineText, "Class Name:  Order");
    EXPECT_EQ(heading.Icon, "Class");
    EXPECT_EQ(heading.ForeColor, 0xFF0000);
    EXPECT_TRUE(heading.Bold);
}

TEST_F(ThePreviewPane, SelectsTheFirstRow)
{
    ASSERT_TRUE(Display(NodeType::RequiredModules));
    pane.Select(2);
    EXPECT_EQ(pane.Selected(), 2U);
    ASSERT_TRUE(Display(NodeType::RequiredClasses));
    EXPECT_EQ(pane.Selected(), 0U);
}

TEST_F(ThePreviewPane, SelectsNoRowThatIsNotThere)
{
    ASSERT_TRUE(Display(NodeType::RequiredModules));
    pane.Select(pane.Count());
    EXPECT_EQ(pane.Selected(), 0U);
}

TEST_F(ThePreviewPane, StaysAsItIsForANodeWithoutAView)
{
    ASSERT_TRUE(Display(NodeType::RequiredModules));
    const auto before = Texts();
    EXPECT_FALSE(Display(static_cast<NodeType>(15)));
    EXPECT_FALSE(Display(NodeType::Class));
    EXPECT_FALSE(pane.DisplayPreview(std::nullopt, {project, classes, generation, errors}, pointer));
    EXPECT_EQ(Texts(), before);
}

TEST_F(ThePreviewPane, StaysAsItIsWhileItIsHidden)
{
    pane.Available = false;
    EXPECT_FALSE(Display(NodeType::RequiredModules));
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(ThePreviewPane, ShowsTheHourglassForAClassWithProperties)
{
    KZMClass& order = AddClass("Order");
    ASSERT_TRUE(Display(NodeType::Class, &order));
    EXPECT_THAT(pointer.Shown, IsEmpty());
    AddProperty(order, "City", "String");
    ASSERT_TRUE(Display(NodeType::Collection, &order));
    EXPECT_THAT(pointer.Shown, IsEmpty());
    ASSERT_TRUE(Display(NodeType::Class, &order));
    EXPECT_THAT(pointer.Shown, ElementsAre(PointerShape::Hourglass, PointerShape::Default));
}

TEST_F(ThePreviewPane, DropsWhatAnEarlierRunSaid)
{
    generation.ErrorText = "Unable to write the file.";
    ASSERT_TRUE(Display(NodeType::RequiredModules));
    EXPECT_EQ(generation.ErrorText, "");
}

TEST_F(ThePreviewPane, ShowsWhatWasMadeBeforeAFailureWhichIsReported)
{
    project.ConnectSameDirectory = true; // without a connection string there is no file to look for
    ASSERT_TRUE(Display(NodeType::WrapperClass));
    EXPECT_THAT(Texts(), ElementsAre("Required Wrapper Class: Auto", "File Name: Auto.cls"));
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "Preview");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "DisplayPreview");
}

TEST_F(ThePreviewPane, TellsWhenRowsGoAndWhenTheNewOnesAreThere)
{
    std::vector<std::size_t> counts;
    const Connection going = pane.Replacing.Connect([&] { counts.push_back(pane.Count()); });
    const Connection there = pane.Replaced.Connect([&] { counts.push_back(pane.Count()); });
    std::vector<std::size_t> selected;
    const Connection selection = pane.SelectionChanged.Connect([&](std::size_t row) { selected.push_back(row); });
    ASSERT_TRUE(Display(NodeType::RequiredModules));
    EXPECT_THAT(counts, ElementsAre(0U, 4U));
    EXPECT_THAT(selected, ElementsAre(0U));
    pane.Clear();
    EXPECT_THAT(counts, ElementsAre(0U, 4U, 4U, 0U));
    EXPECT_THAT(selected, ElementsAre(0U));
    EXPECT_EQ(pane.Title(), "");
}

TEST_F(ThePreviewPane, FindsTheRowWithSomeWords)
{
    ASSERT_TRUE(Display(NodeType::RequiredClasses));
    EXPECT_EQ(pane.RowWith("Auto.cls"), 1U);
    EXPECT_EQ(pane.RowWith("Auto.cls", 2), 2U);
    EXPECT_EQ(pane.RowWith("auto.cls"), std::nullopt);
    EXPECT_EQ(pane.RowWith("Auto", 100), std::nullopt);
}

TEST_F(ThePreviewPane, IsTitledByWhatItShows)
{
    KZMClass& order = AddClass("Order");
    ASSERT_TRUE(Display(NodeType::Collection, &order));
    EXPECT_EQ(pane.Title(), "Orders");
    ASSERT_TRUE(Display(NodeType::ProjectSummary));
    EXPECT_EQ(pane.Title(), "Preview");
}

} // namespace
} // namespace veldrane
