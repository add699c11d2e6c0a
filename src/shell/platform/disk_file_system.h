#pragma once

#include "ports/file_system.h"

namespace veldrane {

// The files of the machine, as POSIX has them.
//
// A write follows symbolic links: the link stays, its file is replaced. A replaced file keeps its permissions; a copy
// made anew takes those of its source; any other new file has what the umask leaves of 0666. Only plain files are
// written and replaced, and none that is write-protected for the user. Two paths of one file (links) are the same file
// for Copy.
//
// A write that fails leaves nothing behind. RemoveTemporariesOnSignal does the same for one that is interrupted, and
// RemoveAbandoned for one that was killed.
class DiskFileSystem : public FileSystem
{
  public:
    [[nodiscard]] FileKind Kind(const std::string& path) const override;
    [[nodiscard]] bool IsLink(const std::string& path) const override;
    [[nodiscard]] std::string Read(const std::string& path) const override;
    [[nodiscard]] std::string ReadBeginning(const std::string& path, std::size_t most) const override;
    void Write(const std::string& path, std::string_view bytes) override;
    void Copy(const std::string& from, const std::string& to) override;
    void Remove(const std::string& path) override;
    [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override;
    [[nodiscard]] std::unique_ptr<FileBatch> StartBatch() override;
    void RemoveAbandoned(const std::string& folder) override;
};

} // namespace veldrane
