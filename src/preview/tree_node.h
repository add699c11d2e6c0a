#pragma once

#include "model/classes.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace veldrane {

// What the preview shows for a node of the project tree.
enum class NodeType : std::int32_t
{
    ProjectSummary = 0,
    ParentClasses = 1,
    LookupClasses = 2,
    AdditionalClasses = 3,
    Class = 4,
    Collection = 5,
    RequiredFiles = 6,
    RequiredModules = 7,
    RequiredClasses = 8,
    RequiredProjects = 9,
    GlobalsModule = 10,
    WrapperClass = 11,
    ProjectFile = 12,
    TestProjectFile = 13,
    TestProjectGroup = 14,
};

// A node as the preview needs it.
struct PreviewNode
{
    NodeType Type = NodeType::ProjectSummary;
    KZMClass* Class = nullptr; // whose code or whose collection's code is shown; nothing for any other node
};

// The node of the project tree with this tag and key; nothing if the preview has no view of it, or if it names a class
// that is not there. Tags and keys of the tree are compared exactly, names of classes and collections as the classes
// compare them.
[[nodiscard]] std::optional<PreviewNode> NodeOfTree(std::string_view tag, std::string_view key, const KZMClasses& classes);

// The node that a person names: a class, else a collection, else the key of a node that every tree has; letter case
// does not count. Nothing if there is none.
[[nodiscard]] std::optional<PreviewNode> FindNode(std::string_view name, const KZMClasses& classes);

// A node that every tree has, for a person who is to name one.
struct FixedNode
{
    std::string_view Key;
    std::string_view Shows; // in words
};

// In the order of the tree.
[[nodiscard]] std::vector<FixedNode> FixedNodes();

} // namespace veldrane
