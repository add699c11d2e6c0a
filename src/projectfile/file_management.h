#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "model/signal.h"
#include "ports/error_report.h"
#include "ports/file_system.h"
#include "ports/file_windows.h"
#include "ports/messages.h"
#include "projectfile/line_stream.h"
#include "projectfile/temp_files.h"
#include "text/code_page.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace veldrane {

// What a project is saved for.
enum class SaveKind
{
    Normal, // over its own file, with a backup
    SaveAs, // into a file that the person chooses, without one
};

// Opens and saves project files.
class TTCFileManagement
{
  public:
    // All of them must outlive this object.
    TTCFileManagement(FileSystem& files, Messages& messages, ErrorReport& report, const text::CodePage& codePage,
                      const FileWindows& windows);

    // Asks for the file to open, beginning in the folder of the project that is open, unless its file is a private
    // copy; nothing if the person cancels.
    [[nodiscard]] std::optional<std::string> AskForProject(const TTCProject& beside);

    // Reads the file into a new project, on which Clear was called, and an empty list of classes; an empty name asks
    // for the file first. False, with a message or a report, if the file is missing, can't be read, is no project file
    // (nothing is changed then) or holds a project value that does not convert; false without a word if the person
    // cancels. A failure among the classes is reported, and the classes before it stay: the project counts as opened.
    bool OpenProject(TTCProject& project, KZMClasses& classes, const std::string& fileName);

    // Whether the latest OpenProject failed among the classes, or gave one up that has no closing line: saving then
    // drops those that the file still holds.
    [[nodiscard]] bool LostClasses() const { return lostClasses_; }

    // Writes the project and clears Modified: over the file at its FullPath, which is copied to a ".bak" beside it
    // first; or, as a project does that has no file yet or was recovered and has none of its own, under a name that
    // the person is asked for, which becomes its FullPath and FileName. False if the person cancels, and, with a report
    // and ProjectSaveFailed, if writing fails: file, names and flag are then as they were. Characters without a place
    // in the code page are written as "?", and one message tells of them. What programs that were killed have left half
    // written beside the file is removed.
    bool SaveProject(TTCProject& project, const KZMClasses& classes, SaveKind kind = SaveKind::Normal);

    // Whether the project has no file of its own: it has none yet, or was recovered and not saved since.
    [[nodiscard]] bool NeedsName(const TTCProject& project) const;

    // Writes the project into its copy for recovery: the file of TempFileName, which is made, with its entry, if the
    // project has none yet. Modified is cleared here, too, though the project's own file is still out of date. False,
    // with ProjectSaveFailed and a report to `report`, if writing fails.
    bool Autosave(TTCProject& project, const KZMClasses& classes, TempFiles& tempFiles, ErrorReport& report);

    // As the function of this name in project_reader.h.
    static void ReadProjectInfo(LineStream& stream, TTCProject& project);

    // Opening raises all but the third as well: a name says nothing of the direction.
    Signal<> ProjectSavedSuccessfully;
    Signal<std::int32_t> SavingProject; // how far the file is, between the bounds last told
    Signal<const std::string&> ProjectSaveFailed;
    Signal<std::int32_t, std::int32_t, std::int32_t> SetMinMaxProgress; // minimum, maximum and value

  private:
    enum class Losses
    {
        Told,
        Passed,
    };

    // What a saving does around the text.
    struct Saving
    {
        std::function<std::string()> Begin; // gives the path that the text is written to
        std::function<void()> End = [] {};
        Losses OfCharacters = Losses::Told;
        ErrorReport& Report; // of a failure
    };

    [[nodiscard]] std::string ReadText(const std::string& fileName) const;
    void ReadProject(LineStream& stream, TTCProject& project, KZMClasses& classes);
    [[nodiscard]] bool IsPrivateCopy(const TTCProject& project) const;
    bool SaveUnderNewName(TTCProject& project, const KZMClasses& classes);
    bool SaveOverFile(TTCProject& project, const KZMClasses& classes);
    bool Write(TTCProject& project, const KZMClasses& classes, const Saving& saving);
    void BackUp(const std::string& path);
    void SweepBeside(const std::string& path);
    // What is told once the text is saved: which lines hold characters without a place; "" if none does.
    [[nodiscard]] std::string LossesIn(std::string_view text) const;

    FileSystem& files_;
    Messages& messages_;
    ErrorReport& report_;
    const text::CodePage& codePage_;
    FileWindows windows_;
    bool lostClasses_ = false;
    std::string namedPath_; // the file that a project was given last
};

} // namespace veldrane
