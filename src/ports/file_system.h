#pragma once

#include "text/runtime_error.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

enum class FileKind
{
    Missing,
    File,
    Folder,
    Other, // a device, a socket and the like
};

// Several files that are written as one: each under a private name beside its target, all synced together, then
// renamed into place. A batch that is destroyed uncommitted leaves nothing behind.
class FileBatch
{
  public:
    virtual ~FileBatch() = default;

    // Writes the bytes beside `path` under a private name. Throws RuntimeError (75) naming the path; what was added
    // before stays ready to be committed.
    virtual void Add(const std::string& path, std::string_view bytes) = 0;

    // Syncs what was added since the last commit and renames it into place. Throws RuntimeError (75) if a sync or a
    // rename fails: files already renamed stay, the others are dropped and their targets are as they were.
    virtual void Commit() = 0;

    // The paths that the latest Commit has renamed into place, in their order; one that failed tells by it how far it
    // came.
    [[nodiscard]] virtual const std::vector<std::string>& InPlace() const = 0;
};

// The files of the machine. Paths are UTF-8. Every failure is a RuntimeError (53 for what is missing, 75 otherwise)
// whose description names the path and the system's own reason.
class FileSystem
{
  public:
    virtual ~FileSystem() = default;

    // What stands at the path, symbolic links followed. Never throws: what can't be seen is missing.
    [[nodiscard]] virtual FileKind Kind(const std::string& path) const = 0;

    // Whether a symbolic link stands at the path, wherever it leads. Never throws.
    [[nodiscard]] virtual bool IsLink(const std::string& path) const = 0;

    // The whole content.
    [[nodiscard]] virtual std::string Read(const std::string& path) const = 0;

    // The first bytes of the content, as many as there are up to `most`.
    [[nodiscard]] virtual std::string ReadBeginning(const std::string& path, std::size_t most) const = 0;

    // Writes beside the target under a private name, syncs, renames over the target and syncs the folder: afterwards
    // the file is the old or the new one, whole, whatever happens meanwhile.
    virtual void Write(const std::string& path, std::string_view bytes) = 0;

    // Writes a copy of `from` to `to` as Write does, over what stands there. `to` is untouched unless `from` could be
    // read whole. A file can't be copied onto itself.
    virtual void Copy(const std::string& from, const std::string& to) = 0;

    virtual void Remove(const std::string& path) = 0;

    // The names in a folder, sorted by their bytes, without "." and "..".
    [[nodiscard]] virtual std::vector<std::string> List(const std::string& folder) const = 0;

    [[nodiscard]] virtual std::unique_ptr<FileBatch> StartBatch() = 0;

    // Removes from the folder the private files of writers that no longer run.
    virtual void RemoveAbandoned(const std::string& folder) = 0;
};

} // namespace veldrane
