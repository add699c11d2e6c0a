#pragma once

#include "shell/assembly.h"
#include "shell/main_window/autosave.h"
#include "shell/main_window/recent_menu.h"
#include "shell/main_window/recovery.h"
#include "shell/platform/disk_file_system.h"
#include "support/memory_application.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace veldrane::testing {

// Where files live in memory, if there is such a place: a kill is the same there, and a sync costs nothing.
[[nodiscard]] std::filesystem::path QuickFolder();

// A folder with all that a person has on the disk: project files, the target folder "out", the settings and the copies
// for recovery. The environment points the program there. It goes with the object.
class PersonsFolder
{
  public:
    // Made below this folder. Throws std::runtime_error.
    explicit PersonsFolder(const std::filesystem::path& below = QuickFolder());
    ~PersonsFolder();
    PersonsFolder(const PersonsFolder&) = delete;
    PersonsFolder& operator=(const PersonsFolder&) = delete;

    [[nodiscard]] std::string Path(const std::string& name) const { return (path_ / name).string(); }
    [[nodiscard]] std::string Document() const { return Path("work/Shop.kzm"); }
    [[nodiscard]] std::string Out() const { return Path("out"); }
    [[nodiscard]] std::string SettingsFolder() const { return Path("config"); }
    [[nodiscard]] std::string Settings() const { return Path("config/settings.ini"); }
    [[nodiscard]] std::string Recovery() const { return Path("state/veldrane/recovery"); }

    // Empties it, but for the folders "work" and "out".
    void Clear() const;

    // The files of a folder by their names, private ones aside; empty for a folder that is missing.
    using Contents = std::map<std::string, std::string>;
    [[nodiscard]] static Contents FilesIn(const std::string& folder);

    // How many private files, those that are being written, lie in the folder.
    [[nodiscard]] static int PrivateFilesIn(const std::string& folder);

  private:
    std::filesystem::path path_;
};

// The bytes of the file; nothing if it can't be read.
[[nodiscard]] std::optional<std::string> BytesIn(const std::string& path);

// The program over real files, with a person who answers by script, and whose project comes in numbered versions that
// differ in their descriptions. Destroying it is an orderly end of the process, but not of the session: entries stay.
class DiskProgram
{
  public:
    explicit DiskProgram(const PersonsFolder& folder);

    [[nodiscard]] const Application& World() const { return assembly_.World(); }

    // The start: looks for work that was not saved, with an empty command line or with this one.
    AfterRecovery Start(const StartCommand& command = {}) { return RecoverProject(World(), Session, command); }

    // A new project of that version, whose code goes to the target folder.
    void New(int version);
    void Open() { Session.Open(folder_.Document(), DataSourceOnOpen::LeaveClosed); }

    // The person makes the version of the project, and it is modified.
    void ChangeTo(int version);

    bool Save() { return Session.Save(); }
    bool SaveAs(const std::string& path);

    // Time passes until the project is saved behind the person's back.
    void TickToAutosave();

    // The wizard is gone through, with backups of the files in the way; what it says in the end.
    std::string Generate();

    void Store(const std::string& name, const std::string& value)
    {
        assembly_.World().UserSettings.UpdateKey(settings_section::kOptions, name, value);
    }
    [[nodiscard]] std::string Stored(const std::string& name) const
    {
        return assembly_.World().UserSettings.GetKeyValue(settings_section::kOptions, name);
    }
    [[nodiscard]] auto Entries() const
    {
        return assembly_.World().UserSettings.GetAllSettings(settings_section::kTempFiles);
    }

    MemoryApplication Twins; // of the person; the files, settings and copies are real

  private:
    const PersonsFolder& folder_;
    DiskFileSystem files_;
    Assembly assembly_;

  public:
    ProjectSession Session;

  private:
    RecentMenu recent_;
    StatusBar status_;
    Autosave autosave_;
    Connection used_;
};

// The version that was saved as `file` (a file tells its own path), byte for byte; nothing for anything else.
[[nodiscard]] std::optional<int> WholeVersion(const PersonsFolder& folder, const std::string& bytes,
                                              const std::string& file);

// The version that the program has open, with all that belongs to it; nothing for anything else.
[[nodiscard]] std::optional<int> VersionIn(const PersonsFolder& folder, ProjectSession& session);

} // namespace veldrane::testing
