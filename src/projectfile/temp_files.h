#pragma once

#include "ports/file_system.h"
#include "ports/recovery_store.h"
#include "ports/settings.h"

#include <string>
#include <vector>

namespace veldrane {

// An entry of the section TempFiles.
struct TempFile
{
    std::string Name;
    std::string Path;

    friend bool operator==(const TempFile&, const TempFile&) = default;
};

// The section TempFiles of the settings: for each copy of a document that was not saved an entry, its bare name with
// its path. Several programs that run have their entries there; each leaves those of the others alone.
class TempFiles
{
  public:
    // All must outlive this object.
    TempFiles(Settings& settings, const FileSystem& files, RecoveryStore& store);

    // The path of a new copy, which has no entry yet. Throws RuntimeError (75) if it can't be made.
    [[nodiscard]] std::string NewCopy() { return store_.GetTempName(); }

    // Makes an entry of this program's own, unless the settings have it. Throws RuntimeError (75) if the settings can't
    // be written.
    void Add(const std::string& path);

    // The copies that may have been left by programs that came to no orderly end, in the order of their entries; those
    // that another running program holds are among them, see Take. Entries whose file is gone from its folder
    // are deleted, but for those of programs that run; those without a name are passed over, and copies that have had
    // no entry for long are removed.
    [[nodiscard]] std::vector<TempFile> Recoverable();

    // Takes one of them over, so that no other program does. False if another running program holds it, or if one has
    // recovered it meanwhile. Throws RuntimeError (75) if that can't be found out.
    [[nodiscard]] bool Take(const TempFile& copy);

    // The entry of the copy goes with the next DeleteSection: it was recovered, or the person gave it up.
    void GiveUp(const TempFile& copy);

    // Deletes one entry; its copy is kept for the days that the store says. Throws as Add does; DeleteSection tries it
    // again then.
    void Delete(const TempFile& copy);

    // Deletes this program's own entries and those that were given up. The copies stay. Throws as Add does.
    void DeleteSection();

  private:
    void DeleteUnlessOfOthers(const TempFile& copy);
    [[nodiscard]] bool IsOurs(const std::string& name) const;

    Settings& settings_;
    const FileSystem& files_;
    RecoveryStore& store_;
    std::vector<std::string> ours_; // names of entries
};

} // namespace veldrane
