#include "projectfile/file_management.h"

#include "projectfile/class_reader.h"
#include "projectfile/class_writer.h"
#include "projectfile/format.h"
#include "projectfile/project_dialogs.h"
#include "projectfile/project_reader.h"
#include "projectfile/project_writer.h"
#include "text/characters.h"
#include "text/strings.h"

#include <utility>

namespace veldrane {

using namespace project_format;

namespace {

constexpr std::string_view kModule = "TTCFileManagement";

RuntimeError PathFailure(const std::string& description)
{
    return {error_number::kPathAccess, std::string(kModule), description};
}

class LoadingGuard
{
  public:
    explicit LoadingGuard(KZMClasses& classes) : classes_(classes) { classes_.LoadingProject = true; }
    ~LoadingGuard() { classes_.LoadingProject = false; }
    LoadingGuard(const LoadingGuard&) = delete;
    LoadingGuard& operator=(const LoadingGuard&) = delete;

  private:
    KZMClasses& classes_;
};

std::string ProjectText(const TTCProject& project, const KZMClasses& classes)
{
    std::string text;
    AppendLine(text, kHeader);
    AppendLine(text);
    WriteProjectInfo(text, project);
    AppendLine(text);
    WriteClassInfo(text, classes);
    return text;
}

// A line of the file as a person may read it.
std::string Shown(std::string_view line)
{
    constexpr std::size_t kShownLength = 80;
    const KeyAndValue read = SplitValueLine(line.substr(0, 4 * kShownLength));
    std::string shown(read.Key);
    if (!read.Value.empty())
        shown.append(": ").append(read.Value);
    return std::string(text::Left(shown, kShownLength));
}

} // namespace

TTCFileManagement::TTCFileManagement(FileSystem& files, Messages& messages, ErrorReport& report,
                                     const text::CodePage& codePage, const FileWindows& windows)
    : files_(files), messages_(messages), report_(report), codePage_(codePage), windows_(windows)
{}

std::optional<std::string> TTCFileManagement::AskForProject(const TTCProject& beside)
{
    return windows_.Dialogs.AskForFileToOpen(OpenProjectRequest(IsPrivateCopy(beside) ? "" : beside.FullPath));
}

bool TTCFileManagement::OpenProject(TTCProject& project, KZMClasses& classes, const std::string& fileName)
{
    if (fileName.empty()) {
        const std::optional<std::string> chosen = AskForProject(project);
        return chosen && !chosen->empty() && OpenProject(project, classes, *chosen);
    }
    if (files_.Kind(fileName) == FileKind::Missing) {
        messages_.Tell("Unable to open file", "Unable to open file: " + fileName + "\r\nFile no longer exists.");
        return false;
    }
    lostClasses_ = false;
    bool opened = false;
    Guarded(report_, kModule, "OpenProject", [&] {
        LineStream stream(ReadText(fileName));
        if (stream.ReadLine() != kHeader) {
            messages_.Tell("Invalid File",
                           "This file is not a Veldrane Professional 2000 Data File. Unable to open file.");
            return;
        }
        project.FullPath = fileName;
        project.FileName = LastPart(fileName);
        windows_.Loading.SetStatus("Opening Datasource Connection...Please wait");
        const LoadingFormWhile loading(windows_.Loading, Visibility::Shown);
        ReadProject(stream, project, classes);
        ProjectSavedSuccessfully.Raise();
        opened = true;
    });
    return opened;
}

std::string TTCFileManagement::ReadText(const std::string& fileName) const
{
    if (files_.Kind(fileName) != FileKind::File)
        throw PathFailure(fileName + ": is not a file that a project can be read from");
    return codePage_.DecodeInPlace(files_.Read(fileName));
}

void TTCFileManagement::ReadProject(LineStream& stream, TTCProject& project, KZMClasses& classes)
{
    const PointerWhile hourglass(windows_.Pointer, PointerShape::Hourglass);
    SetMinMaxProgress.Raise(1, 100, 1);
    SavingProject.Raise(0);
    SavingProject.Raise(1);
    const LoadingGuard loading(classes);
    SavingProject.Raise(10);
    windows_.Loading.SetStatus("Opening Project...");
    SavingProject.Raise(25);
    Naming(project.FullPath, [&] { ReadProjectInfo(stream, project); });
    lostClasses_ = true;
    Guarded(report_, kModule, "ReadClassInfo", [&] {
        Naming(project.FullPath, [&] {
            lostClasses_ = !ReadClassInfo(stream, project, classes, {SavingProject, SetMinMaxProgress});
        });
    });
    SetMinMaxProgress.Raise(1, 100, 1);
    SavingProject.Raise(100);
    project.SetModified(false);
}

bool TTCFileManagement::SaveProject(TTCProject& project, const KZMClasses& classes, SaveKind kind)
{
    return kind == SaveKind::SaveAs || NeedsName(project) ? SaveUnderNewName(project, classes)
                                                          : SaveOverFile(project, classes);
}

bool TTCFileManagement::NeedsName(const TTCProject& project) const
{
    return project.FullPath.empty() || IsPrivateCopy(project);
}

// A recovered project stays one when it has been given a file.
bool TTCFileManagement::IsPrivateCopy(const TTCProject& project) const
{
    return project.Recovered && project.FullPath != namedPath_;
}

bool TTCFileManagement::SaveUnderNewName(TTCProject& project, const KZMClasses& classes)
{
    const std::optional<std::string> chosen = windows_.Dialogs.AskForFileToSave(
        SaveProjectRequest(project, IsPrivateCopy(project) ? OwnFile::No : OwnFile::Yes));
    if (!chosen || chosen->empty())
        return false;
    const std::string formerPath = std::exchange(project.FullPath, *chosen);
    const std::string formerName = std::exchange(project.FileName, LastPart(*chosen));
    const bool saved = Write(project, classes,
                             {.Begin =
                                  [&] {
                                      SavingProject.Raise(0);
                                      SavingProject.Raise(1);
                                      return project.FullPath;
                                  },
                              .Report = report_});
    if (saved) {
        namedPath_ = project.FullPath;
    } else {
        project.FullPath = formerPath;
        project.FileName = formerName;
    }
    return saved;
}

bool TTCFileManagement::SaveOverFile(TTCProject& project, const KZMClasses& classes)
{
    return Write(project, classes,
                 {.Begin =
                      [&] {
                          BackUp(project.FullPath);
                          SavingProject.Raise(0);
                          SetMinMaxProgress.Raise(1, 100, 1);
                          SavingProject.Raise(1);
                          return project.FullPath;
                      },
                  .Report = report_});
}

// The entry comes last, so that a recovery never finds a copy that was not written yet. What the code page lacks is
// told when the person saves.
bool TTCFileManagement::Autosave(TTCProject& project, const KZMClasses& classes, TempFiles& tempFiles,
                                 ErrorReport& report)
{
    return Write(project, classes,
                 {.Begin =
                      [&] {
                          if (files_.Kind(project.TempFileName) != FileKind::File)
                              project.TempFileName = tempFiles.NewCopy();
                          SavingProject.Raise(0);
                          SavingProject.Raise(1);
                          return project.TempFileName;
                      },
                  .End = [&] { tempFiles.Add(project.TempFileName); },
                  .OfCharacters = Losses::Passed,
                  .Report = report});
}

bool TTCFileManagement::Write(TTCProject& project, const KZMClasses& classes, const Saving& saving)
{
    std::string losses;
    const bool saved = Guarded(saving.Report, kModule, "SaveProject", [&] {
        const PointerWhile hourglass(windows_.Pointer, PointerShape::Hourglass);
        const std::string path = saving.Begin();
        SavingProject.Raise(10);
        std::string text = ProjectText(project, classes);
        if (saving.OfCharacters == Losses::Told)
            losses = LossesIn(text);
        SweepBeside(path);
        files_.Write(path, codePage_.EncodeInPlace(std::move(text)).Bytes);
        saving.End();
        SavingProject.Raise(100);
        project.SetModified(false);
    });
    if (!saved) {
        ProjectSaveFailed.Raise("Unable to save file. Please try again.");
        return false;
    }
    ProjectSavedSuccessfully.Raise();
    if (!losses.empty())
        messages_.Tell("Save Project", project.FullPath + losses);
    return true;
}

// A path without ".kzm" is its own backup: the copy onto itself fails, and with it the save. On purpose.
void TTCFileManagement::BackUp(const std::string& path)
{
    if (files_.Kind(path) != FileKind::Missing)
        files_.Copy(path, text::ReplaceAll(path, ".kzm", ".bak"));
}

// What can't be swept up stays: the file is worth more.
void TTCFileManagement::SweepBeside(const std::string& path)
{
    const std::string folder = path.substr(0, path.rfind('/') + 1); // npos + 1 is 0: none
    try {
        files_.RemoveAbandoned(folder.empty() ? "." : folder);
    } catch (const RuntimeError&) {
    }
}

std::string TTCFileManagement::LossesIn(std::string_view text) const
{
    if (codePage_.Holds(text))
        return {};
    constexpr int kMostLines = 10;
    std::string told = " was saved, but code page " + std::to_string(codePage_.Number()) +
                       " lacks characters that were written as \"?\":";
    int lossy = 0;
    for (const std::string_view line : text::Split(text, kLineEnd))
        if (!codePage_.Holds(line) && ++lossy <= kMostLines)
            told.append(kLineEnd).append(Shown(line));
    if (lossy > kMostLines)
        told.append(kLineEnd).append("and " + std::to_string(lossy - kMostLines) + " more");
    return told;
}

void TTCFileManagement::ReadProjectInfo(LineStream& stream, TTCProject& project)
{
    veldrane::ReadProjectInfo(stream, project);
}

} // namespace veldrane
