#include "shell/main_window/project_tree.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(ProjectTree, ANodeIsFoundByKindAndKey)
{
    const ProjectTree tree{{.Id = {NodeKind::Fixed, "Root"}}, {.Id = {NodeKind::Class, "Root"}}};
    EXPECT_EQ(IndexOf(tree, {NodeKind::Fixed, "Root"}), 0U);
    EXPECT_EQ(IndexOf(tree, {NodeKind::Class, "Root"}), 1U);
    EXPECT_EQ(IndexOf(tree, {NodeKind::Collection, "Root"}), std::nullopt);
}

} // namespace
} // namespace veldrane
