#include "shell/platform/settings_document.h"

#include "shell/platform/settings_notation.h"
#include "text/case_folding.h"
#include "text/characters.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <algorithm>

namespace veldrane {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void Refuse(std::size_t line, const std::string& why)
{
    throw RuntimeError(error_number::kInvalidCall, "Settings", "line " + std::to_string(line) + " " + why);
}

bool HoldsControlCharacters(std::string_view line)
{
    return std::any_of(line.begin(), line.end(),
                       [](char byte) { return byte != '\t' && settings_notation::IsControl(byte); });
}

void CheckText(std::string_view line, std::size_t number)
{
    if (!text::IsWellFormed(line))
        Refuse(number, "is not UTF-8");
    if (HoldsControlCharacters(line))
        Refuse(number, "holds control characters");
}

} // namespace

SettingsDocument SettingsDocument::Parse(std::string_view text)
{
    SettingsDocument document;
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    if (text.empty())
        return document;
    std::size_t number = 0;
    for (std::string_view line : text::Split(text, "\n")) {
        ++number;
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        CheckText(line, number);
        document.ParseLine(line, number);
    }
    return document;
}

void SettingsDocument::ParseLine(std::string_view line, std::size_t number)
{
    const std::string_view stripped = settings_notation::Stripped(line);
    if (stripped.starts_with('[') && stripped.ends_with(']'))
        OpenSection(line, stripped.substr(1, stripped.size() - 2));
    else if (stripped.empty() || stripped.starts_with(';') || stripped.starts_with('#'))
        (sections_.empty() ? preamble_ : sections_[open_].Lines)
            .push_back({.Text = std::string(line), .Name = {}, .Value = {}});
    else if (stripped.starts_with('[') || stripped.find('=') == std::string_view::npos)
        Refuse(number, "is no section and no value");
    else if (sections_.empty())
        Refuse(number, "stands before the first section");
    else
        AddEntry(line);
}

void SettingsDocument::OpenSection(std::string_view line, std::string_view name)
{
    std::string read = settings_notation::ReadName(settings_notation::Stripped(name));
    if (const Section* section = FindSection(read)) {
        open_ = static_cast<std::size_t>(section - sections_.data());
        return;
    }
    open_ = sections_.size();
    sections_.push_back({.Header = std::string(line), .Name = std::move(read), .Lines = {}});
}

void SettingsDocument::AddEntry(std::string_view line)
{
    const std::size_t equals = line.find('=');
    Put(sections_[open_].Lines,
        {.Text = std::string(line),
         .Name = settings_notation::ReadName(settings_notation::Stripped(line.substr(0, equals))),
         .Value = settings_notation::ReadValue(settings_notation::Stripped(line.substr(equals + 1)))},
        sections_[open_].Lines.end());
}

std::string SettingsDocument::Text() const
{
    std::string text;
    for (const Line& line : preamble_)
        text.append(line.Text).append("\n");
    for (const Section& section : sections_) {
        text.append(section.Header).append("\n");
        for (const Line& line : section.Lines)
            text.append(line.Text).append("\n");
    }
    return text;
}

std::optional<std::string> SettingsDocument::Find(std::string_view section, std::string_view name) const
{
    if (const Section* found = FindSection(section))
        for (const Line& line : found->Lines)
            if (line.Name && text::EqualFolded(*line.Name, name))
                return line.Value;
    return std::nullopt;
}

std::vector<std::pair<std::string, std::string>> SettingsDocument::All(std::string_view section) const
{
    std::vector<std::pair<std::string, std::string>> values;
    if (const Section* found = FindSection(section))
        for (const Line& line : found->Lines)
            if (line.Name)
                values.emplace_back(*line.Name, line.Value);
    return values;
}

void SettingsDocument::Set(std::string_view section, std::string_view name, std::string_view value)
{
    Section* found = FindSection(section);
    if (found == nullptr) {
        if (!sections_.empty() && (sections_.back().Lines.empty() || !sections_.back().Lines.back().Text.empty()))
            sections_.back().Lines.push_back({}); // a blank line between sections
        const std::string header = std::string("[").append(settings_notation::WriteName(section)).append("]");
        sections_.push_back({.Header = header, .Name = std::string(section), .Lines = {}});
        found = &sections_.back();
    }
    // Behind the last line that is not blank: what parts two sections stays between them.
    std::vector<Line>& lines = found->Lines;
    const auto last = std::find_if(lines.rbegin(), lines.rend(), [](const Line& other) { return !other.Text.empty(); });
    Put(lines,
        {.Text = settings_notation::WriteName(name) + "=" + settings_notation::WriteValue(value),
         .Name = std::string(name),
         .Value = std::string(value)},
        last.base());
}

void SettingsDocument::Put(std::vector<Line>& lines, Line line, std::vector<Line>::iterator place)
{
    const auto sameName = [&](const Line& other) { return other.Name && text::EqualFolded(*other.Name, *line.Name); };
    if (const auto found = std::find_if(lines.begin(), lines.end(), sameName); found != lines.end())
        *found = std::move(line);
    else
        lines.insert(place, std::move(line));
}

void SettingsDocument::Remove(std::string_view section, std::string_view name)
{
    if (Section* found = FindSection(section))
        std::erase_if(found->Lines, [&](const Line& line) { return line.Name && text::EqualFolded(*line.Name, name); });
}

void SettingsDocument::RemoveSection(std::string_view section)
{
    std::erase_if(sections_, [&](const Section& other) { return text::EqualFolded(other.Name, section); });
}

const SettingsDocument::Section* SettingsDocument::FindSection(std::string_view name) const
{
    const auto found = std::find_if(sections_.begin(), sections_.end(),
                                    [&](const Section& section) { return text::EqualFolded(section.Name, name); });
    return found == sections_.end() ? nullptr : &*found;
}

SettingsDocument::Section* SettingsDocument::FindSection(std::string_view name)
{
    return const_cast<Section*>(std::as_const(*this).FindSection(name)); // NOLINT: this one is not const
}

} // namespace veldrane
