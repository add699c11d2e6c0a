#include "generator/outputs.h"

#include "text/case_folding.h"
#include "text/characters.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <cmath>

namespace veldrane {

TTCOutput& TTCOutputs::Add(std::string lineText, bool bold, Color& foreColor, std::string_view icon, std::string_view key)
{
    if (foreColor == kCodeColor)
        foreColor = colors_.ColorCode;
    if (!key.empty() && !keys_.try_emplace(text::Fold(key), lines_.size()).second)
        throw RuntimeError(error_number::kDuplicateKey, "TTCOutputs", "This key is already associated with a line: '" + std::string(key) + "'");
    return lines_.emplace_back(TTCOutput{.Icon = std::string(icon), .ForeColor = foreColor, .Bold = bold, .LineText = std::move(lineText)});
}

TTCOutput& TTCOutputs::Add(std::string lineText, LineClass lineClass)
{
    LineLook look = LookOf(lineClass, colors_);
    return Add(std::move(lineText), look.Bold, look.ForeColor, look.Icon);
}

void TTCOutputs::Append(const TTCOutputs& lines)
{
    lines_.insert(lines_.end(), lines.lines_.begin(), lines.lines_.end());
}

const TTCOutput& TTCOutputs::Item(std::size_t position) const
{
    if (position < 1 || position > lines_.size())
        throw RuntimeError(error_number::kSubscript, "TTCOutputs", "There is no line at position " + std::to_string(position) + ".");
    return lines_[position - 1];
}

const TTCOutput& TTCOutputs::Item(std::string_view key) const
{
    return lines_[PositionOf(key)];
}

void TTCOutputs::Remove(std::size_t position)
{
    static_cast<void>(Item(position));
    const std::size_t index = position - 1;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(index));
    std::erase_if(keys_, [&](const auto& entry) { return entry.second == index; });
    for (auto& [key, at] : keys_)
        at -= at > index ? 1 : 0;
}

void TTCOutputs::Remove(std::string_view key)
{
    Remove(PositionOf(key) + 1);
}

std::size_t TTCOutputs::PositionOf(std::string_view key) const
{
    const auto found = keys_.find(text::Fold(key));
    if (found == keys_.end())
        throw RuntimeError(error_number::kInvalidCall, "TTCOutputs", "There is no line with the key '" + std::string(key) + "'.");
    return found->second;
}

std::string ConvertQuotes(std::string text)
{
    for (std::size_t at = text.find('`'); at != std::string::npos; at = text.find('`', at + 1))
        text[at] = '"';
    return text;
}

std::string OutputsToText(const TTCOutputs& lines)
{
    std::string text;
    AppendOutputs(text, lines);
    return text;
}

void AppendOutputs(std::string& text, const TTCOutputs& lines)
{
    for (const TTCOutput& line : lines)
        text.append(line.LineText).append("\r\n");
}

} // namespace veldrane
