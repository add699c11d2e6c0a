#include "generator/target_files.h"

#include <algorithm>

namespace veldrane {
namespace {

constexpr const char* kCancelled = "User Cancelled Operation";

} // namespace

void AppendLine(std::string& text, std::string_view line)
{
    if (line.empty())
        return;
    if (!text.empty() && !text.ends_with("\r\n"))
        text += "\r\n";
    text += line;
}

std::string PathIn(const std::string& folder, std::string_view fileName)
{
    std::string path = folder;
    if (!path.empty() && !path.ends_with('/'))
        path += '/';
    return path.append(fileName);
}

TargetFiles::TargetFiles(const GenerationPorts& ports, const text::CodePage& codePage, GenerationTarget target)
    : ports_(ports), codePage_(codePage), target_(std::move(target)), batch_(ports.Files.StartBatch())
{}

const text::CodePage::Encoded& NewFile::Content(const text::CodePage& codePage)
{
    if (!content_)
        content_ = codePage.EncodeInPlace(write_());
    return *content_;
}

const std::string& NewFile::Shown(const text::CodePage& codePage)
{
    shown_ = codePage.EncodeInPlace(show_()).Bytes;
    return shown_;
}

bool TargetFiles::MayWrite(NewFile& file)
{
    if (ports_.Conflicts.IsCancelled())
        throw RunAborted(kCancelled);
    const std::string path = PathOf(file.Name);
    const bool isOfThisRun = written_.contains(file.Name);
    if (!isOfThisRun && !Exists(path))
        return true;
    const ConflictAnswer answer = AnswerFor(file, path);
    if (answer == ConflictAnswer::Cancel)
        throw RunAborted(kCancelled);
    if (answer == ConflictAnswer::BackupAndOverwrite && !isOfThisRun)
        BackupFile(file.Name);
    if (answer == ConflictAnswer::Leave)
        pending_.push_back({file.Name, FileOutcome::Left});
    return answer != ConflictAnswer::Leave;
}

ConflictAnswer TargetFiles::AnswerFor(NewFile& file, const std::string& path)
{
    switch (target_.OverwriteMode) {
    case overwrite_mode::kPrompt:
        if (written_.contains(file.Name))
            Commit(); // the question may compare with it
        return ports_.Conflicts.ResolveConflict({path, file.Name, [&]() -> const std::string& { return file.Shown(codePage_); }});
    case overwrite_mode::kLeave:
        return ConflictAnswer::Leave;
    case overwrite_mode::kBackupAndOverwrite:
        return ConflictAnswer::BackupAndOverwrite;
    default:
        return ConflictAnswer::Overwrite;
    }
}

void TargetFiles::Write(NewFile& file)
{
    const text::CodePage::Encoded& content = file.Content(codePage_);
    const std::string path = PathOf(file.Name);
    batch_->Add(path, content.Bytes);
    const bool isOfThisRun = !written_.insert(file.Name).second;
    pending_.push_back({file.Name, isOfThisRun ? FileOutcome::Overwritten : OutcomeOf(path, content.Bytes)});
    if (content.Lossy && lossyFiles_++ == 0)
        firstLossyFile_ = file.Name;
}

FileOutcome TargetFiles::OutcomeOf(const std::string& path, const std::string& bytes) const
{
    if (!Exists(path))
        return FileOutcome::New;
    try {
        if (target_.TellsUnchanged && ports_.Files.Kind(path) == FileKind::File && ports_.Files.Read(path) == bytes)
            return FileOutcome::Unchanged;
    } catch (const RuntimeError&) { // what can't be read was another file
    }
    return FileOutcome::Overwritten;
}

void TargetFiles::Commit()
{
    std::vector<SettledFile> files = std::exchange(pending_, {});
    try {
        batch_->Commit();
    } catch (const RuntimeError&) {
        const std::vector<std::string>& inPlace = batch_->InPlace();
        const auto isLost = [&](const SettledFile& file) { return file.Outcome != FileOutcome::Left && std::find(inPlace.begin(), inPlace.end(), PathOf(file.FileName)) == inPlace.end(); };
        std::erase_if(files, isLost);
        Settle(std::move(files));
        throw;
    }
    Settle(std::move(files));
}

void TargetFiles::Settle(std::vector<SettledFile> files)
{
    settled_.insert(settled_.end(), files.begin(), files.end());
}

std::string TargetFiles::NoteOnCharacters() const
{
    if (lossyFiles_ == 0)
        return {};
    std::string files = firstLossyFile_;
    if (lossyFiles_ > 1)
        files += " and " + std::to_string(lossyFiles_ - 1) + " more";
    return "Some characters were written as \"?\" in " + files + ": they are not in code page " + std::to_string(codePage_.Number()) + ", which the setting CodePage names.";
}

std::string TargetFiles::NoteOnBackups() const
{
    return filesWithoutBackup_.empty() ? "" : "No backup could be made of " + filesWithoutBackup_ + ".";
}

std::string TargetFiles::PathOf(const std::string& fileName) const
{
    return PathIn(target_.TargetFolder, fileName);
}

bool TargetFiles::Exists(const std::string& path) const
{
    const FileKind kind = ports_.Files.Kind(path);
    return kind == FileKind::File || kind == FileKind::Other;
}

// A failure does not stop the run: the file is then overwritten without a backup.
void TargetFiles::BackupFile(const std::string& fileName)
{
    const std::string path = PathOf(fileName);
    if (Guarded(ports_.Errors, "GenerateVBCode", "BackupExisting", [&] { ports_.Files.Copy(path, path + ".BAK"); }))
        return;
    if (!filesWithoutBackup_.empty())
        filesWithoutBackup_ += ", ";
    filesWithoutBackup_ += fileName;
}

} // namespace veldrane
