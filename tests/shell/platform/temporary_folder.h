#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace veldrane::testing {

// A folder of the test's own that anybody may use, removed with all it holds.
class TemporaryFolder
{
  public:
    TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "veldrane-test-XXXXXX")
    {
        if (mkdtemp(path_.data()) == nullptr)
            throw std::runtime_error("no temporary folder can be made");
        std::filesystem::permissions(path_, std::filesystem::perms::all);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_;
};

inline void Put(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ContentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace veldrane::testing
