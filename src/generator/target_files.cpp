#include "generator/target_files.h"

namespace veldrane {

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
    if (!path.ends_with('/'))
        path += '/';
    return path.append(fileName);
}

TargetFiles::TargetFiles(const GenerationPorts& ports, const text::CodePage& codePage, GenerationTarget target)
    : ports_(ports), codePage_(codePage), target_(std::move(target)), batch_(ports.Files.StartBatch())
{}

bool TargetFiles::MayWrite(const std::string& fileName)
{
    const std::string path = PathIn(target_.TargetFolder, fileName);
    const bool isOfThisRun = written_.contains(fileName);
    if (!isOfThisRun && !Exists(path))
        return true;
    ConflictAnswer answer = ConflictAnswer::Overwrite;
    if (target_.OverwriteMode == overwrite_mode::kPrompt)
        answer = ports_.Conflicts.ResolveConflict(path, fileName);
    else if (target_.OverwriteMode == overwrite_mode::kLeave)
        answer = ConflictAnswer::Leave;
    else if (target_.OverwriteMode == overwrite_mode::kBackupAndOverwrite)
        answer = ConflictAnswer::BackupAndOverwrite;
    if (answer == ConflictAnswer::Cancel)
        throw RunAborted("User Cancelled Operation");
    if (answer == ConflictAnswer::BackupAndOverwrite && !isOfThisRun)
        BackupFile(path);
    return answer != ConflictAnswer::Leave;
}

void TargetFiles::Write(const std::string& fileName, std::string text)
{
    const text::CodePage::Encoded encoded = codePage_.EncodeInPlace(std::move(text));
    batch_->Add(PathIn(target_.TargetFolder, fileName), encoded.Bytes);
    written_.insert(fileName);
    if (encoded.Lossy && lossyFiles_++ == 0)
        firstLossyFile_ = fileName;
}

void TargetFiles::Commit()
{
    batch_->Commit();
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

bool TargetFiles::Exists(const std::string& path) const
{
    const FileKind kind = ports_.Files.Kind(path);
    return kind == FileKind::File || kind == FileKind::Other;
}

// A failure does not stop the run: the file is then overwritten without a backup.
void TargetFiles::BackupFile(const std::string& path)
{
    Guarded(ports_.Errors, "GenerateVBCode", "BackupExisting", [&] { ports_.Files.Copy(path, path + ".BAK"); });
}

} // namespace veldrane
