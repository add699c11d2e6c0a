#include "shell/platform/settings_file.h"

#include "shell/platform/descriptor.h"
#include "shell/platform/file_lock.h"
#include "shell/platform/paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <utility>

namespace veldrane {
namespace {

constexpr std::size_t kMostBytes = 1024; // what a read gives at most

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// The value as a read gives it: up to its first NUL, at most kMostBytes, no character cut in two.
std::string ReadForm(const std::string& value)
{
    std::size_t size = std::min(value.find('\0'), value.size());
    if (size > kMostBytes) {
        size = kMostBytes;
        while (size > 0 && (static_cast<unsigned char>(value[size]) & 0xC0U) == 0x80U)
            --size;
    }
    return value.substr(0, size);
}

bool IsTaken(const std::string& path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0;
}

std::string FreeName(const std::string& path)
{
    std::string name = path + ".broken";
    for (int number = 2; IsTaken(name); ++number)
        name = path + ".broken-" + std::to_string(number);
    return name;
}

} // namespace

SettingsFile::SettingsFile(std::string path, FileSystem& files, Messages& messages)
    : path_(std::move(path)), files_(files), messages_(messages)
{}

std::string SettingsFile::GetKeyValue(std::string_view section, std::string_view name) const
{
    return ReadForm(Current().Find(section, name).value_or(std::string()));
}

void SettingsFile::UpdateKey(std::string_view section, std::string_view name, std::string_view value)
{
    // On purpose: what was emptied reads back as one blank.
    SaveSetting(section, name, value.empty() ? " " : value);
}

std::vector<std::pair<std::string, std::string>> SettingsFile::GetAllSettings(std::string_view section) const
{
    return Current().All(section);
}

void SettingsFile::SaveSetting(std::string_view section, std::string_view name, std::string_view value)
{
    Store([&](SettingsDocument& document) { document.Set(section, name, value); });
}

void SettingsFile::DeleteSetting(std::string_view section, std::string_view name)
{
    Store([&](SettingsDocument& document) {
        if (name.empty())
            document.RemoveSection(section);
        else
            document.Remove(section, name);
    });
}

SettingsFile::Content SettingsFile::Load() const
{
    const FileKind kind = files_.Kind(path_);
    if (kind == FileKind::Folder || kind == FileKind::Other) // never moved: it holds more than settings
        return {.Is = State::Unreadable, .Document = {}, .Reason = path_ + ": it is no plain file"};
    std::string text;
    try {
        text = files_.Read(path_);
    } catch (const RuntimeError& error) {
        if (error.Number == error_number::kFileNotFound)
            return {};
        return {.Is = State::Unreadable, .Document = {}, .Reason = error.Description()};
    }
    try {
        return {.Document = SettingsDocument::Parse(text), .Reason = {}};
    } catch (const RuntimeError& error) {
        return {.Is = State::Broken, .Document = {}, .Reason = error.Description()};
    }
}

SettingsDocument SettingsFile::Current() const
{
    Content content = Load();
    if (content.Is == State::Broken)
        return Recover();
    if (content.Is == State::Unreadable)
        NoteUnreadable(content.Reason);
    return std::move(content.Document);
}

// Looks again under the lock: another program may have set the file aside and begun a new one.
SettingsDocument SettingsFile::Recover() const
{
    std::string note;
    Content content;
    try {
        const FileLock lock(path_ + ".lock");
        content = Load();
        if (content.Is == State::Broken)
            note = SetAside(content.Reason);
    } catch (const RuntimeError& error) {
        NoteUnreadable(error.Description());
        return {};
    }
    if (!note.empty())
        Note(note);
    return std::move(content.Document);
}

std::string SettingsFile::SetAside(const std::string& reason) const
{
    const std::string aside = FreeName(path_);
    if (std::rename(path_.c_str(), aside.c_str()) != 0)
        throw WriteFailure(path_, errno);
    return "The settings in " + path_ + " can't be understood: " + reason + ".\r\nThey were set aside as " + aside +
           ", and the defaults are used.";
}

void SettingsFile::NoteUnreadable(const std::string& reason) const
{
    if (!std::exchange(notedUnreadable_, true))
        Note("The settings can't be read: " + reason + ".\r\nThe defaults are used.");
}

void SettingsFile::Note(const std::string& text) const
{
    messages_.Tell("Settings", text, MessageIcon::Warning);
}

// What can't be swept up stays: the settings are worth more.
void SettingsFile::Sweep() const
{
    try {
        files_.RemoveAbandoned(FolderOf(path_));
    } catch (const RuntimeError&) {
    }
}

// The note comes last: a person may take their time with it, and the lock must not wait for that.
template <class Change>
void SettingsFile::Store(Change&& change)
{
    std::string note;
    MakeFolder(FolderOf(path_));
    {
        const FileLock lock(path_ + ".lock");
        Content content = Load();
        if (content.Is == State::Unreadable)
            throw RuntimeError(error_number::kPathAccess, "Settings",
                               content.Reason + ". While the settings can't be read, none are stored");
        if (content.Is == State::Broken)
            note = SetAside(content.Reason);
        const std::string before = content.Document.Text();
        change(content.Document);
        if (const std::string after = content.Document.Text(); after != before) {
            Sweep();
            files_.Write(path_, after);
        }
    }
    if (!note.empty())
        Note(note);
}

} // namespace veldrane
