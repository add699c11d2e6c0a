#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "model/signal.h"
#include "ports/error_report.h"
#include "ports/file_system.h"
#include "ports/messages.h"
#include "projectfile/line_stream.h"
#include "text/code_page.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace veldrane {

// Opens and saves project files.
class TTCFileManagement
{
  public:
    // All of them must outlive this object.
    TTCFileManagement(FileSystem& files, Messages& messages, ErrorReport& report, const text::CodePage& codePage);

    // Reads the file into a new project, on which Clear was called, and an empty list of classes. False, with a message
    // or a report, if the file is missing, can't be read, is no project file (nothing is changed then) or holds a
    // project value that does not convert. A failure among the classes is reported, and the classes before it stay: the
    // project counts as opened.
    bool OpenProject(TTCProject& project, KZMClasses& classes, const std::string& fileName);

    // Whether the latest OpenProject failed among the classes: saving then drops those that the file still holds.
    [[nodiscard]] bool LostClasses() const { return lostClasses_; }

    // Writes the project over the file at its FullPath, which is copied to a ".bak" beside it first, and clears
    // Modified. False, with a report and ProjectSaveFailed, if that fails: file and flag are then as they were.
    // Characters without a place in the code page are written as "?", and one message tells of them.
    bool SaveProject(TTCProject& project, const KZMClasses& classes);

    // As the function of this name in project_reader.h.
    static void ReadProjectInfo(LineStream& stream, TTCProject& project);

    // Opening raises all but the third as well: a name says nothing of the direction.
    Signal<> ProjectSavedSuccessfully;
    Signal<std::int32_t> SavingProject; // how far the file is, between the bounds last told
    Signal<const std::string&> ProjectSaveFailed;
    Signal<std::int32_t, std::int32_t, std::int32_t> SetMinMaxProgress; // minimum, maximum and value

  private:
    [[nodiscard]] std::string ReadText(const std::string& fileName) const;
    void ReadProject(LineStream& stream, TTCProject& project, KZMClasses& classes);
    void BackUp(const std::string& path);
    // What is told once the text is saved: which lines hold characters without a place; "" if none does.
    [[nodiscard]] std::string LossesIn(std::string_view text) const;

    FileSystem& files_;
    Messages& messages_;
    ErrorReport& report_;
    const text::CodePage& codePage_;
    bool lostClasses_ = false;
};

} // namespace veldrane
