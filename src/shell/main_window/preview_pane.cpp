#include "shell/main_window/preview_pane.h"

#include <utility>

namespace veldrane {
namespace {

bool TakesAWhile(const PreviewNode& node)
{
    return node.Type == NodeType::Class && node.Class != nullptr && node.Class->TTCProperties.Count() > 0;
}

std::string TitleOf(const PreviewNode& node)
{
    if (node.Type == NodeType::Class)
        return node.Class->ClassName;
    return node.Type == NodeType::Collection ? node.Class->CollectionName : "Preview";
}

std::vector<const TTCOutput*> RowsOf(const PreviewText& text)
{
    std::size_t count = 0;
    for (const TTCOutputs& block : text.Blocks)
        count += block.Count();
    std::vector<const TTCOutput*> rows;
    rows.reserve(count);
    for (const TTCOutputs& block : text.Blocks)
        for (const TTCOutput& line : block)
            rows.push_back(&line);
    return rows;
}

} // namespace

bool PreviewPane::DisplayPreview(const std::optional<PreviewNode>& node, const PreviewSource& source,
                                 MousePointer& pointer)
{
    if (!Available || !node)
        return false;
    std::optional<PointerWhile> hourglass;
    if (TakesAWhile(*node))
        hourglass.emplace(pointer, PointerShape::Hourglass);
    source.Generation.ErrorText.clear();
    std::optional<PreviewText> text = PreviewOf(*node, source);
    if (!text)
        return false;
    Show(std::move(*text), TitleOf(*node));
    return true;
}

void PreviewPane::Show(PreviewText text, std::string title)
{
    Replacing.Raise();
    text_ = std::move(text);
    rows_ = RowsOf(text_);
    title_ = std::move(title);
    selected_ = rows_.empty() ? std::nullopt : std::optional<std::size_t>(0);
    Replaced.Raise();
    if (selected_)
        SelectionChanged.Raise(*selected_);
}

std::optional<std::size_t> PreviewPane::RowWith(std::string_view words, std::size_t from) const
{
    for (std::size_t row = from; row < rows_.size(); ++row)
        if (rows_[row]->LineText.find(words) != std::string::npos)
            return row;
    return std::nullopt;
}

void PreviewPane::Select(std::size_t row)
{
    if (row >= rows_.size())
        return;
    selected_ = row;
    SelectionChanged.Raise(row);
}

} // namespace veldrane
