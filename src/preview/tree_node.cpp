#include "preview/tree_node.h"

#include "text/case_folding.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

struct TreeNodeRow
{
    std::string_view Tag;
    std::string_view Key; // of a node that every tree has; "" for one that is named after a class
    NodeType Type;
    std::string_view Shows;
};

// The lookup classes and the additional classes share a tag, because "Class" tells a class that has no table.
constexpr auto kNodes = std::to_array<TreeNodeRow>({
    {tree_key::kRoot, tree_key::kRoot, NodeType::ProjectSummary, "the project, its settings and its members"},
    {tree_key::kParentClasses, tree_key::kParentClasses, NodeType::ParentClasses, "parent and child classes"},
    {tree_key::kLookupClasses, tree_key::kLookupClasses, NodeType::LookupClasses, "lookup classes"},
    {tree_key::kLookupClasses, tree_key::kAdditionalClasses, NodeType::AdditionalClasses, "additional classes, those without a table"},
    {tree_key::kRequired, tree_key::kRequired, NodeType::RequiredFiles, "the required files"},
    {tree_key::kRequiredProjects, tree_key::kRequiredProjects, NodeType::RequiredProjects, "the required projects"},
    {tree_key::kProjectFile, tree_key::kProjectFile, NodeType::ProjectFile, "the text of the project file"},
    {tree_key::kTestProjectFile, tree_key::kTestProjectFile, NodeType::TestProjectFile, "the text of the test project"},
    {tree_key::kTestProjectGroup, tree_key::kTestProjectGroup, NodeType::TestProjectGroup, "the text of the project group"},
    {tree_key::kRequiredModules, tree_key::kRequiredModules, NodeType::RequiredModules, "the required modules"},
    {tree_key::kGlobals, tree_key::kGlobals, NodeType::GlobalsModule, "the text of the globals module"},
    {tree_key::kRequiredClassModules, tree_key::kRequiredClassModules, NodeType::RequiredClasses, "the required classes"},
    {tree_key::kWrapper, tree_key::kWrapper, NodeType::WrapperClass, "the text of the wrapper class"},
    {tree_tag::kClass, "", NodeType::Class, ""},
    {tree_tag::kTable, "", NodeType::Class, ""},
    {tree_tag::kDomain, "", NodeType::Class, ""},
    {tree_tag::kClassCollection, "", NodeType::Collection, ""},
    {tree_tag::kTableCollection, "", NodeType::Collection, ""},
    {tree_tag::kDomainCollection, "", NodeType::Collection, ""},
});

KZMClass* ClassNamed(std::string_view name, const KZMClasses& classes)
{
    return classes.Item(name).get();
}

KZMClass* ClassOfCollection(std::string_view name, const KZMClasses& classes)
{
    const auto found = std::find_if(classes.begin(), classes.end(), [&](const KZMClass& item) { return item.CreateCollection && text::EqualFolded(item.CollectionName, name); });
    return found == classes.end() ? nullptr : &*found;
}

} // namespace

std::optional<PreviewNode> NodeOfTree(std::string_view tag, std::string_view key, const KZMClasses& classes)
{
    const auto* const row = std::find_if(kNodes.begin(), kNodes.end(), [&](const TreeNodeRow& node) { return node.Tag == tag && (node.Key.empty() || node.Key == key); });
    if (row == kNodes.end())
        return std::nullopt;
    if (!row->Key.empty())
        return PreviewNode{.Type = row->Type};
    KZMClass* const item = row->Type == NodeType::Class ? ClassNamed(key, classes) : ClassOfCollection(key, classes);
    return item == nullptr ? std::nullopt : std::optional(PreviewNode{.Type = row->Type, .Class = item});
}

std::optional<PreviewNode> FindNode(std::string_view name, const KZMClasses& classes)
{
    if (name.empty())
        return std::nullopt;
    if (KZMClass* const item = ClassNamed(name, classes))
        return PreviewNode{.Type = NodeType::Class, .Class = item};
    if (KZMClass* const item = ClassOfCollection(name, classes))
        return PreviewNode{.Type = NodeType::Collection, .Class = item};
    const auto* const row = std::find_if(kNodes.begin(), kNodes.end(), [&](const TreeNodeRow& node) { return text::EqualFolded(node.Key, name); });
    return row == kNodes.end() ? std::nullopt : std::optional(PreviewNode{.Type = row->Type});
}

std::vector<FixedNode> FixedNodes()
{
    std::vector<FixedNode> nodes;
    for (const TreeNodeRow& node : kNodes)
        if (!node.Key.empty())
            nodes.push_back({.Key = node.Key, .Tag = node.Tag, .Shows = node.Shows});
    return nodes;
}

} // namespace veldrane
