#include "projectfile/temp_files.h"

#include "projectfile/project_dialogs.h"

#include <algorithm>

namespace veldrane {

TempFiles::TempFiles(Settings& settings, const FileSystem& files, RecoveryStore& store)
    : settings_(settings), files_(files), store_(store)
{}

void TempFiles::Add(const std::string& path)
{
    const TempFile copy{.Name = LastPart(path), .Path = path};
    if (IsOurs(copy.Name))
        return;
    settings_.SaveSetting(settings_section::kTempFiles, copy.Name, copy.Path);
    GiveUp(copy);
}

// An empty name would delete the section.
std::vector<TempFile> TempFiles::Recoverable()
{
    std::vector<std::string> kept;
    std::vector<TempFile> recoverable;
    for (const auto& [name, path] : settings_.GetAllSettings(settings_section::kTempFiles)) {
        if (name.empty())
            continue;
        if (files_.Kind(path) != FileKind::File) {
            settings_.DeleteSetting(settings_section::kTempFiles, name);
            continue;
        }
        kept.push_back(path);
        recoverable.push_back({.Name = name, .Path = path});
    }
    store_.RemoveOld(kept);
    return recoverable;
}

// Whoever held it until now may have recovered it, and its entry is gone then.
bool TempFiles::Take(const TempFile& copy)
{
    return store_.Hold(copy.Path) && !settings_.GetKeyValue(settings_section::kTempFiles, copy.Name).empty();
}

void TempFiles::GiveUp(const TempFile& copy)
{
    if (!IsOurs(copy.Name))
        ours_.push_back(copy.Name);
}

bool TempFiles::IsOurs(const std::string& name) const
{
    return std::find(ours_.begin(), ours_.end(), name) != ours_.end();
}

void TempFiles::Delete(const TempFile& copy)
{
    settings_.DeleteSetting(settings_section::kTempFiles, copy.Name);
    std::erase(ours_, copy.Name);
}

void TempFiles::DeleteSection()
{
    while (!ours_.empty()) {
        settings_.DeleteSetting(settings_section::kTempFiles, ours_.back());
        ours_.pop_back();
    }
}

} // namespace veldrane
