#include "preview/preview.h"

#include "preview/views.h"

#include <array>
#include <cstddef>

namespace veldrane {
namespace {

using ShowNode = void (*)(const View& view);

// In the order of NodeType.
constexpr auto kViews = std::to_array<ShowNode>({
    ShowProjectSummary,
    ShowClassGroup,
    ShowClassGroup,
    ShowClassGroup,
    ShowClass,
    ShowCollection,
    ShowRequiredFiles,
    ShowRequiredModules,
    ShowRequiredClasses,
    ShowRequiredProjects,
    ShowProjectPart,
    ShowProjectPart,
    ShowProjectPart,
    ShowProjectPart,
    ShowProjectPart,
});
static_assert(kViews.size() == static_cast<std::size_t>(NodeType::TestProjectGroup) + 1);

bool NeedsClass(NodeType type)
{
    return type == NodeType::Class || type == NodeType::Collection;
}

} // namespace

std::optional<PreviewText> PreviewOf(const PreviewNode& node, const PreviewSource& source)
{
    const auto number = static_cast<std::size_t>(node.Type);
    if (number >= kViews.size() || (NeedsClass(node.Type) && node.Class == nullptr))
        return std::nullopt;
    PreviewText text;
    text.Whole = Guarded(source.Errors, "Preview", "DisplayPreview", [&] { kViews.at(number)({source, node, text.Blocks}); });
    return text;
}

} // namespace veldrane
