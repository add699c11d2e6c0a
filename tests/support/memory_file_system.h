#pragma once

#include "ports/file_system.h"

#include <map>
#include <set>

namespace veldrane::testing {

// Files in memory. A file can be written only into a folder that exists; "/" always does.
class MemoryFileSystem : public FileSystem
{
  public:
    [[nodiscard]] FileKind Kind(const std::string& path) const override;
    [[nodiscard]] bool IsLink(const std::string& path) const override { return Links.contains(path); }
    [[nodiscard]] std::string Read(const std::string& path) const override;
    [[nodiscard]] std::string ReadBeginning(const std::string& path, std::size_t most) const override
    {
        return Read(path).substr(0, most);
    }
    void Write(const std::string& path, std::string_view bytes) override;
    void Copy(const std::string& from, const std::string& to) override;
    void Remove(const std::string& path) override;
    [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override;
    [[nodiscard]] std::unique_ptr<FileBatch> StartBatch() override;
    void RemoveAbandoned(const std::string& folder) override { Swept.push_back(folder); }

    // Throws, as Write does, if the path is a folder or its folder is missing.
    void CheckWritable(const std::string& path) const;

    std::set<std::string> Folders{"/"};
    std::map<std::string, std::string> Files;
    std::set<std::string> Others;   // those of the files above that are pipes or devices
    std::set<std::string> Links;    // those of the paths above that are reached by a link
    std::vector<std::string> Swept; // the folders of RemoveAbandoned

  private:
    [[nodiscard]] RuntimeError ReadFailure(const std::string& path) const;
};

} // namespace veldrane::testing
