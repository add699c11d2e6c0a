#pragma once

#include "shell/platform/descriptor.h"
#include "shell/platform/temporary_registry.h"

#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace veldrane {

// Where a write ends: the file that will stand there, and what stands there now.
struct WriteTarget
{
    std::string Path; // as it was named, for failures
    std::string Folder;
    std::string Name;
    bool Exists = false;
    mode_t Mode = 0666; // permissions: those of the file that stands there, else those of a new one before the umask
    uid_t User = 0;     // of the file that stands there
    gid_t Group = 0;

    // Symbolic links are followed, so that the link stays and its file is replaced. A file that stands there keeps its
    // permissions; a new one takes `newMode`. Throws WriteFailure if something else than a plain file stands there, or
    // one that the user may not write.
    [[nodiscard]] static WriteTarget Find(const std::string& path, mode_t newMode = 0666);
};

// The files of one folder that are written together: made under private names, synced, renamed. Destroying it removes
// what was not renamed. Its lock, a file of its own, is held all the while, so that RemoveAbandoned of another process
// leaves its files alone.
class StagingFolder
{
  public:
    // `path` is for the failure's text. Throws WriteFailure.
    StagingFolder(const std::string& folder, const std::string& path);
    ~StagingFolder();
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    // Writes the bytes under a private name. A failed one is gone again.
    void Stage(const WriteTarget& target, std::string_view bytes);

    // Brings what was staged to the disk: a few files one by one, many by one sync of their file system.
    void Sync();

    // Renames all files into place, in the order of their staging, and appends their paths; the first that fails ends
    // it.
    void Rename(std::vector<std::string>& inPlace);

    // Brings the names to the disk.
    void SyncNames();

  private:
    struct StagedFile
    {
        std::string PrivateName;
        std::string Name;
        std::string Path;
        Descriptor File; // closed already where there are many
    };

    void TakeLock(const std::string& path);
    [[nodiscard]] std::string NextName();
    void Fill(StagedFile& file, const WriteTarget& target, std::string_view bytes);

    std::string path_;
    Descriptor folder_;
    std::string owner_;
    std::unique_ptr<RegisteredTemporaries> registered_;
    Descriptor lock_;
    unsigned last_ = 0;
    std::vector<StagedFile> staged_;
};

} // namespace veldrane
