#include "shell/wizard/frm_file.h"

namespace veldrane {

frmFile::frmFile(const FileConflict& conflict, ConflictAnswer suggested, const FileSystem& files,
                 const text::CodePage& codePage)
    : conflict_(conflict), files_(files), codePage_(codePage), option_(suggested)
{}

const std::vector<frmFile::OptionRow>& frmFile::Options()
{
    static const std::vector<OptionRow> kOptions{
        {"optOverwrite", "&Overwrite the existing file, don't make a backup", ConflictAnswer::Overwrite},
        {"optLeave", "&Leave the existing file alone, don't overwrite it", ConflictAnswer::Leave},
        {"optBackup", "Overwrite the existing file after making a &backup copy", ConflictAnswer::BackupAndOverwrite},
        {"optCancel", "&Cancel the entire code generation wizard", ConflictAnswer::Cancel},
    };
    return kOptions;
}

std::string frmFile::lblFileName() const
{
    return "File Conflict on " + conflict_.FileName;
}

std::string frmFile::lblFilenameExists() const
{
    return "The file: '" + conflict_.Path + "' already exists in the target directory.";
}

std::vector<DifferenceLine> frmFile::Differences() const
{
    return DifferencesOf(codePage_.DecodeInPlace(files_.Read(conflict_.Path)),
                         codePage_.DecodeInPlace(conflict_.NewBytes()));
}

} // namespace veldrane
