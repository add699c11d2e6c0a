#include "support/memory_settings.h"

#include "text/case_folding.h"
#include "text/characters.h"

namespace veldrane::testing {
namespace {

// As many whole characters as fit into 1024 bytes.
std::string ReadForm(const std::string& value)
{
    constexpr std::size_t kMostBytes = 1024;
    std::size_t size = 0;
    while (size < value.size() && size + text::CharacterSize(value, size) <= kMostBytes)
        size += text::CharacterSize(value, size);
    return value.substr(0, size);
}

} // namespace

std::string MemorySettings::GetKeyValue(std::string_view section, std::string_view name) const
{
    for (const auto& [key, value] : GetAllSettings(section))
        if (text::EqualFolded(key, name))
            return ReadForm(value.substr(0, value.find('\0')));
    return {};
}

void MemorySettings::UpdateKey(std::string_view section, std::string_view name, std::string_view value)
{
    SaveSetting(section, name, value.empty() ? " " : value);
}

std::vector<std::pair<std::string, std::string>> MemorySettings::GetAllSettings(std::string_view section) const
{
    const auto found = sections_.find(text::Fold(section));
    return found == sections_.end() ? Values{} : found->second;
}

void MemorySettings::SaveSetting(std::string_view section, std::string_view name, std::string_view value)
{
    Values& values = sections_[text::Fold(section)];
    for (auto& [key, stored] : values)
        if (text::EqualFolded(key, name)) {
            stored = value;
            return;
        }
    values.emplace_back(name, value);
}

void MemorySettings::DeleteSetting(std::string_view section, std::string_view name)
{
    if (name.empty())
        sections_.erase(text::Fold(section));
    else if (const auto found = sections_.find(text::Fold(section)); found != sections_.end())
        std::erase_if(found->second, [&](const auto& entry) { return text::EqualFolded(entry.first, name); });
}

} // namespace veldrane::testing
