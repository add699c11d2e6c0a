#include "shell/wizard/frm_file.h"

#include "shell/generation_run.h"
#include "text/runtime_error.h"

namespace veldrane {

frmFile::frmFile(const FileConflict& conflict, ConflictAnswer suggested, const FileSystem& files,
                 const text::CodePage& codePage)
    : conflict_(conflict), files_(files), codePage_(codePage), option_(suggested)
{}

const std::vector<frmFile::OptionRow>& frmFile::Options()
{
    static const std::vector<OptionRow> kOptions{
        {"optOverwrite", "&Overwrite the existing file, don't make a backup", ConflictAnswer::Overwrite},
        {"optLeave", kLeaveCaption, ConflictAnswer::Leave},
        {"optBackup", "Overwrite the existing file after making a &backup copy", ConflictAnswer::BackupAndOverwrite},
        {"optCancel", "&Cancel the entire code generation wizard", ConflictAnswer::Cancel},
    };
    return kOptions;
}

std::string frmFile::lblFileName() const
{
    return ConflictTitle(conflict_);
}

std::string frmFile::lblFilenameExists() const
{
    return ConflictText(conflict_);
}

// A pipe would be waited for without an end.
std::vector<DifferenceLine> frmFile::Differences() const
{
    if (files_.Kind(conflict_.Path) == FileKind::Other)
        throw RuntimeError(error_number::kPathAccess, "frmFile", conflict_.Path + ": It is no plain file");
    return DifferencesOf(codePage_.DecodeInPlace(files_.Read(conflict_.Path)),
                         codePage_.DecodeInPlace(conflict_.NewBytes()));
}

} // namespace veldrane
