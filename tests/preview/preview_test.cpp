#include "preview_fixture.h"

namespace veldrane::testing {
namespace {

using NodePreview = PreviewTest;

TEST_F(NodePreview, OfATypeBeyondTheLastIsNothing)
{
    for (const int number : {15, 16, 1000, -1}) {
        EXPECT_FALSE(PreviewOf({.Type = static_cast<NodeType>(number)}, {project, classes, generation, errors}).has_value()) << number;
    }
}

TEST_F(NodePreview, OfAClassOrACollectionWithoutItsClassIsNothing)
{
    for (const NodeType type : {NodeType::Class, NodeType::Collection})
        EXPECT_FALSE(PreviewOf({.Type = type}, {project, classes, generation, errors}).has_value());
}

TEST_F(NodePreview, OfEveryTypeHasLines)
{
    KZMClass& order = AddClass("Order");
    for (int number = 0; number <= 14; ++number)
        EXPECT_GT(Blocks(static_cast<NodeType>(number), &order).at(0).Count(), 0U) << number;
}

TEST_F(NodePreview, KeepsItsHeadingAndReportsWhenAWriterFails)
{
    project.ConnectSameDirectory = true; // without a connection string there is no file to look for
    const auto text = PreviewOf({.Type = NodeType::WrapperClass}, {project, classes, generation, errors});
    ASSERT_TRUE(text.has_value());
    EXPECT_FALSE(text->Whole);
    ASSERT_EQ(text->Blocks.size(), 1U);
    EXPECT_EQ(PreviewLines(text->Blocks[0]), R"(
head Class|Required Wrapper Class: Auto|
code File|File Name: cAuto.cls|
)");
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported[0].Place.ModuleName, "Preview");
    EXPECT_EQ(errors.Reported[0].Place.RoutineName, "DisplayPreview");
}

TEST_F(NodePreview, HasTheUsersColours)
{
    generation.Settings.Colors = {.ColorCode = 1, .ColorHeader = 2, .ColorHidden = 3, .ColorComment = 4, .ColorKey = 5};
    const TTCOutputs lines = Blocks(NodeType::RequiredModules).at(0);
    EXPECT_EQ(lines.Item(1).ForeColor, 2);
    EXPECT_EQ(lines.Item(2).ForeColor, 1);
    EXPECT_EQ(lines.Item(3).ForeColor, 4);
}

TEST_F(NodePreview, LeavesBackticksOfNamesAsTheyAre)
{
    project.VBProjectName = "`Shop`";
    EXPECT_EQ(Blocks(NodeType::ProjectFile).at(0).Item(1).LineText, "Required Visual Basic Project: `Shop`");
}

} // namespace
} // namespace veldrane::testing
