#pragma once

#include "generator/code_generation.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace veldrane {

// The run ends early, for a reason that the rules know; what() is the message.
class RunAborted : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

// Appends a message to a run's text, on a line of its own; nothing for an empty one.
void AppendLine(std::string& text, std::string_view line);

// The path of a file in the folder; for "", in the current one.
[[nodiscard]] std::string PathIn(const std::string& folder, std::string_view fileName);

// A file's name, and its text, which is written when it is first asked for.
class NewFile
{
  public:
    // `write` may change the classes; `show` gives the same text and leaves them as they are.
    NewFile(std::string name, std::function<std::string()> write, std::function<std::string()> show) : Name(std::move(name)), write_(std::move(write)), show_(std::move(show)) {}

    const std::string Name;

    // The text in the code page.
    [[nodiscard]] const text::CodePage::Encoded& Content(const text::CodePage& codePage);

    // The same for somebody who looks at it and may then leave it unwritten.
    [[nodiscard]] const std::string& Shown(const text::CodePage& codePage);

  private:
    std::function<std::string()> write_;
    std::function<std::string()> show_;
    std::optional<text::CodePage::Encoded> content_;
    std::string shown_;
};

// The files of one run on their way into the target folder: whether each may be written, its backup, its bytes.
class TargetFiles
{
  public:
    // All but the target are kept by reference.
    TargetFiles(const GenerationPorts& ports, const text::CodePage& codePage, GenerationTarget target);

    // Whether the file is to be written; asks and makes a backup as the overwrite mode has it. A file that this run has
    // written exists like any other, but is not backed up: the backup is of what was there before the run. Throws
    // RunAborted if the person gives up the run.
    [[nodiscard]] bool MayWrite(NewFile& file);

    // Adds the file to what is written. Throws RuntimeError (75).
    void Write(NewFile& file);

    // Puts in place what was added so far. Throws RuntimeError (75); of the added files those are settled then that are
    // in place, and nothing stands of the others.
    void Commit();

    // The files that are in place or were left.
    [[nodiscard]] const std::vector<SettledFile>& Settled() const { return settled_; }

    // One line about the characters that became "?", "" if there were none.
    [[nodiscard]] std::string NoteOnCharacters() const;

    // One line that names the files of which no backup could be made, "" if there were none.
    [[nodiscard]] std::string NoteOnBackups() const;

  private:
    [[nodiscard]] bool Exists(const std::string& path) const;
    [[nodiscard]] ConflictAnswer AnswerFor(NewFile& file, const std::string& path);
    [[nodiscard]] FileOutcome OutcomeOf(const std::string& path, const std::string& bytes) const;
    [[nodiscard]] std::string PathOf(const std::string& fileName) const;
    void BackupFile(const std::string& fileName);
    void Settle(std::vector<SettledFile> files);

    const GenerationPorts& ports_;
    const text::CodePage& codePage_;
    GenerationTarget target_;
    std::unique_ptr<FileBatch> batch_;
    std::unordered_set<std::string> written_; // file names
    std::vector<SettledFile> pending_;        // until they are in place
    std::vector<SettledFile> settled_;
    std::string filesWithoutBackup_; // names in a row
    std::string firstLossyFile_;
    std::size_t lossyFiles_ = 0;
};

} // namespace veldrane
