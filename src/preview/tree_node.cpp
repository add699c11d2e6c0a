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
    {"Root", "Root", NodeType::ProjectSummary, "the project, its settings and its members"},
    {"KZMParent", "KZMParent", NodeType::ParentClasses, "parent and child classes"},
    {"TypeOf", "TypeOf", NodeType::LookupClasses, "lookup classes"},
    {"TypeOf", "Class", NodeType::AdditionalClasses, "additional classes, those without a table"},
    {"KZMRequired", "KZMRequired", NodeType::RequiredFiles, "the required files"},
    {"KZMRequiredProjects", "KZMRequiredProjects", NodeType::RequiredProjects, "the required projects"},
    {"VBProjectFile", "VBProjectFile", NodeType::ProjectFile, "the text of the project file"},
    {"VBProjectTestFile", "VBProjectTestFile", NodeType::TestProjectFile, "the text of the test project"},
    {"VBProjectGroupFile", "VBProjectGroupFile", NodeType::TestProjectGroup, "the text of the project group"},
    {"KZMRequiredModules", "KZMRequiredModules", NodeType::RequiredModules, "the required modules"},
    {"KZMGlobals", "KZMGlobals", NodeType::GlobalsModule, "the text of the globals module"},
    {"KZMRequiredClassModules", "KZMRequiredClassModules", NodeType::RequiredClasses, "the required classes"},
    {"KZMWRAPPER", "KZMWRAPPER", NodeType::WrapperClass, "the text of the wrapper class"},
    {"Class", "", NodeType::Class, ""},
    {"Table", "", NodeType::Class, ""},
    {"Domain", "", NodeType::Class, ""},
    {"ClassCollection", "", NodeType::Collection, ""},
    {"TableCollection", "", NodeType::Collection, ""},
    {"DomainCollection", "", NodeType::Collection, ""},
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
            nodes.push_back({.Key = node.Key, .Shows = node.Shows});
    return nodes;
}

} // namespace veldrane
