#include "projectfile/temp_files.h"

#include "projectfile/project_dialogs.h"

#include <algorithm>

namespace veldrane {

TempFiles::TempFiles(Settings& settings, const FileSystem& files, RecoveryStore& store)
    : settings_(settings), files_(files), store_(store)
{}

void TempFiles::Add(const std::string& path)
{
    if (IsOurs(LastPart(path)))
        return;
    settings_.SaveSetting(settings_section::kTempFiles, LastPart(path), path);
    GiveUp(path);
}

std::vector<std::string> TempFiles::Recoverable()
{
    std::vector<std::string> kept;
    std::vector<std::string> recoverable;
    for (const auto& [name, path] : settings_.GetAllSettings(settings_section::kTempFiles)) {
        if (files_.Kind(path) == FileKind::Missing) {
            settings_.DeleteSetting(settings_section::kTempFiles, name);
            continue;
        }
        kept.push_back(path);
        // Whoever held it until now may have recovered it meanwhile.
        if (store_.Hold(path) && !settings_.GetKeyValue(settings_section::kTempFiles, name).empty())
            recoverable.push_back(path);
    }
    store_.RemoveOld(kept);
    return recoverable;
}

void TempFiles::GiveUp(const std::string& path)
{
    if (!IsOurs(LastPart(path)))
        ours_.push_back(LastPart(path));
}

bool TempFiles::IsOurs(const std::string& name) const
{
    return std::find(ours_.begin(), ours_.end(), name) != ours_.end();
}

void TempFiles::Delete(const std::string& path)
{
    const std::string name = LastPart(path);
    settings_.DeleteSetting(settings_section::kTempFiles, name);
    std::erase(ours_, name);
}

void TempFiles::DeleteSection()
{
    while (!ours_.empty()) {
        settings_.DeleteSetting(settings_section::kTempFiles, ours_.back());
        ours_.pop_back();
    }
}

} // namespace veldrane
