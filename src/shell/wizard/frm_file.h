#pragma once

#include "generator/code_generation.h"
#include "ports/file_system.h"
#include "shell/wizard/file_differences.h"
#include "text/code_page.h"

#include <string>
#include <vector>

namespace veldrane {

// The question what to do about a target file that exists.
class frmFile
{
  public:
    // All must outlive the dialog. `suggested` is the option that is set.
    frmFile(const FileConflict& conflict, ConflictAnswer suggested, const FileSystem& files,
            const text::CodePage& codePage);

    static constexpr const char* kTitle = "File Exists";
    static constexpr const char* kPrompt = "How do you want to proceed?";

    struct OptionRow
    {
        const char* Name;
        const char* Caption;
        ConflictAnswer Answer;
    };
    static const std::vector<OptionRow>& Options();

    [[nodiscard]] std::string lblFileName() const;
    [[nodiscard]] std::string lblFilenameExists() const;

    [[nodiscard]] ConflictAnswer Option() const { return option_; }
    void opt_Click(ConflictAnswer answer) { option_ = answer; }

    void cmdOK_Click() { answer_ = option_; }
    void cmdCancel_Click() { answer_ = ConflictAnswer::Cancel; }

    // What the dialog was left with: Cancel until OK was pressed.
    [[nodiscard]] ConflictAnswer Answer() const { return answer_; }

    // By which lines the new text differs from the file. Throws RuntimeError: 53 or 75 if that can't be read or is no
    // plain file, or what the writer of the new text throws.
    [[nodiscard]] std::vector<DifferenceLine> Differences() const;

  private:
    const FileConflict& conflict_;
    const FileSystem& files_;
    const text::CodePage& codePage_;
    ConflictAnswer option_;
    ConflictAnswer answer_ = ConflictAnswer::Cancel;
};

} // namespace veldrane
