#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace veldrane::testing {

// How a run of the program ended, and what it said.
struct Ended
{
    int ExitCode = 0;
    std::string Output;
    std::string ErrorOutput;
};

// A folder of its own with settings of its own, in which the whole program is run in this process. The folder goes with
// the object.
class Program
{
  public:
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] Ended Run(const std::vector<std::string>& arguments) const;

    // A run whose error output is a terminal.
    [[nodiscard]] Ended RunOnTerminal(const std::vector<std::string>& arguments) const;

    // A path in the folder.
    [[nodiscard]] std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    // Makes an SQLite database of the SQL text, and answers a connection string for it.
    std::string MakeDatabase(const std::string& name, const std::string& sql) const;

    // The same from the sample.
    std::string MakeShop() const;

    void WriteFile(const std::string& name, const std::string& bytes) const;
    [[nodiscard]] std::string ReadFile(const std::string& name) const;

  private:
    std::filesystem::path folder_;
};

// The bytes of a file; the test fails if it can't be read.
[[nodiscard]] std::string BytesOf(const std::filesystem::path& path);

} // namespace veldrane::testing
