#pragma once

#include <filesystem>
#include <string>

namespace veldrane::testing {

struct ReaderOutcome
{
    int Code = 0; // the exit code, or kKilled and the number of the signal
    std::string Answer;
};

// Runs the reader of Jet files on the path, with the password on its standard input.
[[nodiscard]] ReaderOutcome RunReader(const std::string& path, const std::string& password = "");

// The reason for which it refuses the file; "" if it reads it, "no answer" if it says nothing whole.
[[nodiscard]] std::string ReasonOf(const ReaderOutcome& outcome);

// Whether the answer is whole: from the first line to the last.
[[nodiscard]] bool IsWhole(const std::string& answer);

// A folder of a test's own, gone with it.
class ScratchFolder
{
  public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    // The path of a file in it, whether there is one or not.
    [[nodiscard]] std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    // Writes such a file, and returns its path.
    [[nodiscard]] std::string Write(const std::string& name, const std::string& content) const;

  private:
    std::filesystem::path folder_;
};

// All bytes of a file.
[[nodiscard]] std::string ContentOf(const std::string& path);

} // namespace veldrane::testing
