#include "projectfile/temp_files.h"

#include "projectfile/project_dialogs.h"

#include <algorithm>
#include <filesystem>

namespace veldrane {

TempFiles::TempFiles(Settings& settings, const FileSystem& files, RecoveryStore& store)
    : settings_(settings), files_(files), store_(store)
{}

void TempFiles::Add(const std::string& path)
{
    const TempFile copy{.Name = LastPart(path), .Path = path};
    GiveUp(copy);
    if (settings_.GetKeyValue(settings_section::kTempFiles, copy.Name) != copy.Path)
        settings_.SaveSetting(settings_section::kTempFiles, copy.Name, copy.Path);
}

// An empty name would delete the section.
std::vector<TempFile> TempFiles::Recoverable()
{
    std::vector<std::string> kept;
    std::vector<TempFile> recoverable;
    for (const auto& [name, path] : settings_.GetAllSettings(settings_section::kTempFiles)) {
        if (name.empty())
            continue;
        kept.push_back(path);
        const TempFile copy{.Name = name, .Path = path};
        if (files_.Kind(path) == FileKind::File)
            recoverable.push_back(copy);
        else
            DeleteUnlessOfOthers(copy);
    }
    store_.RemoveOld(kept);
    return recoverable;
}

// A folder that is not there may come back, and the copy with it; a program that runs writes its copy again. An entry
// that stays does no harm.
void TempFiles::DeleteUnlessOfOthers(const TempFile& copy)
{
    const std::filesystem::path path(copy.Path);
    if (path.is_absolute() && files_.Kind(path.parent_path()) == FileKind::Missing)
        return;
    try {
        if (store_.Hold(copy.Path))
            settings_.DeleteSetting(settings_section::kTempFiles, copy.Name);
    } catch (const RuntimeError&) {
    }
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
    GiveUp(copy); // for another try where this one fails
    settings_.DeleteSetting(settings_section::kTempFiles, copy.Name);
    std::erase(ours_, copy.Name);
    store_.StartDays(copy.Path);
}

void TempFiles::DeleteSection()
{
    while (!ours_.empty()) {
        settings_.DeleteSetting(settings_section::kTempFiles, ours_.back());
        ours_.pop_back();
    }
}

} // namespace veldrane
