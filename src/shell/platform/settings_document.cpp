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
    if (text.empty())
        return document;
    if (text.ends_with('\n'))
        text.remove_suffix(1);
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
    const std::string read = settings_notation::ReadName(settings_notation::Stripped(name));
    Section* section = FindSection(read);
    if (section == nullptr)
        section = &AddSection(std::string(line), read);
    open_ = static_cast<std::size_t>(section - sections_.data());
}

SettingsDocument::Section& SettingsDocument::AddSection(std::string header, std::string_view name)
{
    names_.emplace(text::Fold(name), sections_.size());
    sections_.push_back({.Header = std::move(header), .Lines = {}, .Names = {}});
    return sections_.back();
}

void SettingsDocument::AddEntry(std::string_view line)
{
    const std::size_t equals = line.find('=');
    Section& section = sections_[open_];
    Put(section,
        {.Text = std::string(line),
         .Name = settings_notation::ReadName(settings_notation::Stripped(line.substr(0, equals))),
         .Value = settings_notation::ReadValue(settings_notation::Stripped(line.substr(equals + 1)))},
        section.Lines.size());
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
    const Section* found = FindSection(section);
    if (found == nullptr)
        return std::nullopt;
    const auto place = found->Names.find(text::Fold(name));
    return place == found->Names.end() ? std::nullopt : std::optional(found->Lines[place->second].Value);
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
        found = &AddSection(std::string("[").append(settings_notation::WriteName(section)).append("]"), section);
    }
    // Behind the last line that is not blank: what parts two sections stays between them.
    const std::vector<Line>& lines = found->Lines;
    const auto last = std::find_if(lines.rbegin(), lines.rend(), [](const Line& other) { return !other.Text.empty(); });
    Put(*found,
        {.Text = settings_notation::WriteName(name) + "=" + settings_notation::WriteValue(value),
         .Name = std::string(name),
         .Value = std::string(value)},
        static_cast<std::size_t>(last.base() - lines.begin()));
}

// No line behind the place has a name, or those of the others would move.
void SettingsDocument::Put(Section& section, Line line, std::size_t place)
{
    const auto [found, isNew] = section.Names.try_emplace(text::Fold(*line.Name), place);
    if (isNew)
        section.Lines.insert(section.Lines.begin() + static_cast<std::ptrdiff_t>(place), std::move(line));
    else
        section.Lines[found->second] = std::move(line);
}

void SettingsDocument::Remove(std::string_view section, std::string_view name)
{
    Section* found = FindSection(section);
    if (found == nullptr)
        return;
    const auto place = found->Names.find(text::Fold(name));
    if (place == found->Names.end())
        return;
    found->Lines.erase(found->Lines.begin() + static_cast<std::ptrdiff_t>(place->second));
    Forget(found->Names, place);
}

void SettingsDocument::RemoveSection(std::string_view section)
{
    const auto place = names_.find(text::Fold(section));
    if (place == names_.end())
        return;
    sections_.erase(sections_.begin() + static_cast<std::ptrdiff_t>(place->second));
    Forget(names_, place);
}

void SettingsDocument::Forget(Places& places, Places::const_iterator name)
{
    const std::size_t freed = name->second;
    places.erase(name);
    for (auto& [other, place] : places)
        if (place > freed)
            --place;
}

const SettingsDocument::Section* SettingsDocument::FindSection(std::string_view name) const
{
    const auto found = names_.find(text::Fold(name));
    return found == names_.end() ? nullptr : &sections_[found->second];
}

SettingsDocument::Section* SettingsDocument::FindSection(std::string_view name)
{
    return const_cast<Section*>(std::as_const(*this).FindSection(name)); // NOLINT: this one is not const
}

} // namespace veldrane
