#pragma once

#include "ports/file_system.h"
#include "ports/messages.h"
#include "ports/settings.h"
#include "shell/platform/settings_document.h"

#include <string>
#include <string_view>

namespace veldrane {

// The settings in a readable file (see SettingsDocument), shared by all running programs: every read sees the file as
// it is now; every write reads it again under a lock (a file of the same name with ".lock" behind it), changes its one
// value and replaces the file whole. The file's folder is made when the first value is stored, for its user alone.
//
// A file that can't be understood is moved aside to the same name with ".broken" behind it (".broken-2" and so on if
// that is taken). One that can't be read stays, and so does whatever is no plain file. Both times a note says so and
// the values are empty, which gives the defaults. While the file can't be read, storing fails with RuntimeError (75).
class SettingsFile : public Settings
{
  public:
    SettingsFile(std::string path, FileSystem& files, Messages& messages);

    [[nodiscard]] std::string GetKeyValue(std::string_view section, std::string_view name) const override;
    void UpdateKey(std::string_view section, std::string_view name, std::string_view value) override;
    [[nodiscard]] std::vector<std::pair<std::string, std::string>>
    GetAllSettings(std::string_view section) const override;
    void SaveSetting(std::string_view section, std::string_view name, std::string_view value) override;
    void DeleteSetting(std::string_view section, std::string_view name) override;

  private:
    enum class State
    {
        Usable,
        Broken,
        Unreadable,
    };
    struct Content
    {
        State Is = State::Usable;
        SettingsDocument Document;
        std::string Reason; // where it is not usable
    };

    [[nodiscard]] Content Load() const;
    [[nodiscard]] SettingsDocument Current() const;
    [[nodiscard]] std::string SetAside(const std::string& reason) const;
    [[nodiscard]] SettingsDocument Recover() const;
    void NoteUnreadable(const std::string& reason) const;
    void Note(const std::string& text) const;
    void Sweep() const;
    template <class Change>
    void Store(Change&& change);

    std::string path_;
    FileSystem& files_;
    Messages& messages_;
    mutable bool notedUnreadable_ = false; // one note is enough
};

} // namespace veldrane
