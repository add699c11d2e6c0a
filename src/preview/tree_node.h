#pragma once

#include "model/classes.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace veldrane {

// The keys of the nodes that every project tree has.
namespace tree_key {
inline constexpr std::string_view kRoot = "Root";
inline constexpr std::string_view kParentClasses = "KZMParent";
inline constexpr std::string_view kLookupClasses = "TypeOf";
inline constexpr std::string_view kAdditionalClasses = "Class";
inline constexpr std::string_view kRequired = "KZMRequired";
inline constexpr std::string_view kRequiredProjects = "KZMRequiredProjects";
inline constexpr std::string_view kProjectFile = "VBProjectFile";
inline constexpr std::string_view kTestProjectFile = "VBProjectTestFile";
inline constexpr std::string_view kTestProjectGroup = "VBProjectGroupFile";
inline constexpr std::string_view kRequiredModules = "KZMRequiredModules";
inline constexpr std::string_view kGlobals = "KZMGlobals";
inline constexpr std::string_view kRequiredClassModules = "KZMRequiredClassModules";
inline constexpr std::string_view kWrapper = "KZMWRAPPER";
} // namespace tree_key

// The tags of the nodes that are named after a class or its collection.
namespace tree_tag {
inline constexpr std::string_view kClass = "Class"; // stands on no table
inline constexpr std::string_view kTable = "Table";
inline constexpr std::string_view kDomain = "Domain"; // a lookup class
inline constexpr std::string_view kClassCollection = "ClassCollection";
inline constexpr std::string_view kTableCollection = "TableCollection";
inline constexpr std::string_view kDomainCollection = "DomainCollection";
} // namespace tree_tag

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

// A node that every tree has.
struct FixedNode
{
    std::string_view Key;
    std::string_view Tag;
    std::string_view Shows; // in words, for a person who is to name one
};

// In the order of the tree.
[[nodiscard]] std::vector<FixedNode> FixedNodes();

} // namespace veldrane
