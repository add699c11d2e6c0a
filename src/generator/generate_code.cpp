#include "generator/code_generation.h"
#include "generator/compile_step.h"
#include "generator/file_names.h"
#include "generator/target_files.h"
#include "generator/writers.h"
#include "model/working_copy.h"

#include <array>
#include <cmath>
#include <span>

namespace veldrane {
namespace {

constexpr int kFilesStage = 1;

// Where the progress of the class files begins, and what is left of the bar for them.
constexpr double kClassesStart = 6.0;
constexpr double kClassesShare = 93.0;

struct StatusScope
{
    const std::string& File;
};

} // namespace

template <>
inline constexpr auto Vocabulary<StatusScope> = std::to_array<Placeholder<StatusScope>>({
    {"file", [](std::string& line, const StatusScope& s) { line += s.File; }},
});

namespace {

constexpr TemplateLine<StatusScope> kCreatesFile("Creates {file}...");

// A file that a project has once.
struct ProjectFileRow
{
    int Progress;
    TemplateLine<ProjectScope> Status;
    ProjectFileName FileName;
    TTCOutputs (*Write)(const ProjectScope& scope, const KZMClasses& classes);
};

// In the order of writing.
constexpr auto kProjectFiles = std::to_array<ProjectFileRow>({
    {1, "Creates the Project File...", kProjectFile, GenerateProjectFile},
    {2, "Creates the Test Project File...", kTestProjectFile, GenerateTestProjectFile},
    {3, "Creates the Test Project Group...", kTestProjectGroup, [](const ProjectScope& scope, const KZMClasses&) { return GenerateTestProjectGroup(scope); }},
    {4, "Creates the Test Form File...", kTestForm, GenerateTestForm},
    {5, "Creates the Globals.Bas File...", kGlobalsModule, [](const ProjectScope& scope, const KZMClasses&) { return GenerateGlobalsBasFile(scope); }},
    {6, "Creates the {WrapperClassName}.cls File...", kWrapperClass, GenerateWrapperClass},
});

// A section as it stands in a file: its lines, and the empty line that ends every section.
void AppendSection(std::string& text, const TTCOutputs& lines)
{
    AppendOutputs(text, lines);
    text += "\r\n";
}

// Moves the bar over the class files: every file has the same share of it, a collection file too.
class ClassProgress
{
  public:
    ClassProgress(CodeGeneration& generation, const KZMClasses& classes) : generation_(generation)
    {
        std::size_t files = classes.Count();
        for (const KZMClass& owner : classes)
            files += owner.CreateCollection ? 1 : 0;
        if (files > 0)
            step_ = kClassesShare / static_cast<double>(files);
    }

    // Halves go to the even number.
    void Step()
    {
        generation_.Progress.Raise(static_cast<int>(std::nearbyint(value_)));
        value_ += step_;
    }

  private:
    CodeGeneration& generation_;
    double value_ = kClassesStart;
    double step_ = 0;
};

// The writing of one project's files.
class ProjectWriter
{
  public:
    ProjectWriter(CodeGeneration& generation, TargetFiles& files, const GenerationContext& context) : generation_(generation), files_(files), context_(context), project_(context) {}

    void Run()
    {
        for (const ProjectFileRow& row : kProjectFiles)
            WriteProjectFile(row);
        generation_.StatusChanged.Raise(kFilesStage, "Creates Class Files...");
        ClassProgress progress(generation_, context_.Classes);
        for (KZMClass& owner : context_.Classes) {
            progress.Step();
            WriteModule(owner, kClassModule, kClassSections);
            if (!owner.CreateCollection)
                continue;
            progress.Step();
            WriteModule(owner, kCollectionModule, kCollectionSections);
        }
    }

  private:
    void WriteProjectFile(const ProjectFileRow& row)
    {
        generation_.Progress.Raise(row.Progress);
        generation_.StatusChanged.Raise(kFilesStage, NameOf(row.Status, project_));
        const auto write = [&] {
            std::string text;
            AppendSection(text, row.Write(context_, context_.Classes));
            return text;
        };
        NewFile file(NameOf(row.FileName, project_), write, write);
        if (!files_.MayWrite(file))
            return;
        if (&row == &kProjectFiles.front())
            WriteFirst(file);
        else
            files_.Write(file);
    }

    // Whether the folder can be written to shows at the first file.
    void WriteFirst(NewFile& file)
    {
        static_cast<void>(file.Content(generation_.Settings.CodePage)); // whose failure is another one
        try {
            files_.Write(file);
        } catch (const RuntimeError& error) {
            throw RunAborted("Unable to write to destination directory. " + error.Description());
        }
    }

    void WriteModule(KZMClass& owner, const ClassFileName& name, std::span<const SectionWriter> sections)
    {
        const auto write = [&](const ClassScope& scope) {
            std::string text;
            for (const SectionWriter writeSection : sections)
                AppendSection(text, writeSection(scope));
            return text;
        };
        const auto show = [&] {
            std::string unsaid;
            const GenerationContext context{project_, context_.Classes, context_.Children, context_.Asking, unsaid};
            return write({context, *WorkingCopy(owner)});
        };
        NewFile file(
            NameOf(name, ListedClassScope{project_, owner}),
            [&] {
                return write({context_, owner});
            },
            show);
        generation_.StatusChanged.Raise(kFilesStage, NameOf(kCreatesFile, StatusScope{file.Name}));
        if (files_.MayWrite(file))
            files_.Write(file);
    }

    CodeGeneration& generation_;
    TargetFiles& files_;
    const GenerationContext& context_;
    const ProjectScope& project_;
};

void SweepFolder(const GenerationPorts& ports, const std::string& folder)
{
    if (ports.Files.Kind(folder) == FileKind::Folder)
        Guarded(ports.Errors, "GenerateCode", "RemoveAbandoned", [&] { ports.Files.RemoveAbandoned(folder); });
}

} // namespace

bool CodeGeneration::WriteProject(const KZMClasses& classes, const std::string& targetFolder, TargetFiles& files)
{
    const ProjectScope project{project_, Settings};
    if (auto reason = ReasonAgainstNames(project, classes)) {
        ErrorText = std::move(*reason);
        return false;
    }
    SweepFolder(ports_, targetFolder);
    const ChildIndex children(classes);
    const GenerationContext context{project, classes, children, ports_.Asking, ErrorText};
    try {
        ProjectWriter(*this, files, context).Run();
    } catch (const RunAborted& abort) {
        ErrorText = abort.what();
        return false;
    }
    files.Commit();
    return true;
}

void CodeGeneration::GenerateCode(KZMClasses& classes, const GenerationTarget& target)
{
    ErrorText.clear();
    TargetFiles files(ports_, Settings.CodePage, target);
    const auto guarded = [&](auto&& body) { Guarded(ports_.Errors, "GenerateCode", "GenerateCode:", body); };
    const std::vector<std::string> sharedNames = WarningsOfSharedNames({project_, Settings}, classes);
    bool written = false;
    guarded([&] { written = WriteProject(classes, target.TargetFolder, files); });
    if (!written)
        guarded([&] { files.Commit(); });
    if (written && target.Compile)
        CompileProject(*this, ports_, project_.VBProjectName, target.TargetFolder);
    Files = files.Settled();
    AppendLine(ErrorText, files.NoteOnBackups());
    AppendLine(ErrorText, files.NoteOnCharacters());
    FilesShareNames = written && !sharedNames.empty();
    if (written) {
        for (const std::string& warning : sharedNames)
            AppendLine(ErrorText, warning);
        Progress.Raise(100);
        OperationComplete.Raise(ErrorText);
    } else {
        OperationAborted.Raise(ErrorText);
    }
}

} // namespace veldrane
