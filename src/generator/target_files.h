#pragma once

#include "generator/code_generation.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>

namespace veldrane {

// The run ends early, for a reason that the rules know; what() is the message.
class RunAborted : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

// Appends a message to a run's text, on a line of its own; nothing for an empty one.
void AppendLine(std::string& text, std::string_view line);

// The path of a file in the folder.
[[nodiscard]] std::string PathIn(const std::string& folder, std::string_view fileName);

// The files of one run on their way into the target folder: whether each may be written, its backup, its bytes.
class TargetFiles
{
  public:
    // All but the target are kept by reference.
    TargetFiles(const GenerationPorts& ports, const text::CodePage& codePage, GenerationTarget target);

    // Whether the file is to be written; asks and makes a backup as the overwrite mode has it. A file that this run has
    // written exists like any other, but is not backed up: the backup is of what was there before the run. Throws
    // RunAborted if the person gives up the run.
    [[nodiscard]] bool MayWrite(const std::string& fileName);

    // Adds the text to what is written, in the code page. Throws RuntimeError (75).
    void Write(const std::string& fileName, std::string text);

    // Puts in place what was added so far. Throws RuntimeError (75).
    void Commit();

    // One line about the characters that became "?", "" if there were none.
    [[nodiscard]] std::string NoteOnCharacters() const;

  private:
    [[nodiscard]] bool Exists(const std::string& path) const;
    void BackupFile(const std::string& path);

    const GenerationPorts& ports_;
    const text::CodePage& codePage_;
    GenerationTarget target_;
    std::unique_ptr<FileBatch> batch_;
    std::unordered_set<std::string> written_; // file names
    std::string firstLossyFile_;
    std::size_t lossyFiles_ = 0;
};

} // namespace veldrane
