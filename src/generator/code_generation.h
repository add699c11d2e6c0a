#pragma once

#include "generator/generation_settings.h"
#include "generator/outputs.h"
#include "model/classes.h"
#include "model/project.h"
#include "model/signal.h"
#include "ports/clock.h"
#include "ports/error_report.h"
#include "ports/file_system.h"
#include "ports/messages.h"
#include "ports/process_starter.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// What is to be done about a target file that exists.
enum class ConflictAnswer
{
    Overwrite = 1, // without a backup
    Leave = 2,
    BackupAndOverwrite = 3,
    Cancel = 4, // the whole run
};

// A target file that exists, and what would be written over it. Good for the time of the question.
struct FileConflict
{
    const std::string& Path;
    const std::string& FileName;
    std::function<const std::string&()> NewBytes; // made when they are asked for, and of no effect on the classes
};

// The person before whom a run goes on.
class ConflictResolver
{
  public:
    virtual ~ConflictResolver() = default;

    [[nodiscard]] virtual ConflictAnswer ResolveConflict(const FileConflict& conflict) = 0;

    // Asked before each file and before the compiler: whether the person has given up the run.
    [[nodiscard]] virtual bool IsCancelled() { return false; }
};

// What became of a target file.
enum class FileOutcome
{
    New,
    Overwritten,
    Unchanged, // overwritten by what it held before; told only where the run compares
    Left,
};

struct SettledFile
{
    std::string FileName;
    FileOutcome Outcome;

    friend bool operator==(const SettledFile&, const SettledFile&) = default;
};

// What a run does about target files that exist. Any other number overwrites without a backup.
namespace overwrite_mode {
inline constexpr std::int32_t kPrompt = 1;
inline constexpr std::int32_t kLeave = 2;
inline constexpr std::int32_t kBackupAndOverwrite = 3;
} // namespace overwrite_mode

// Where a run writes, and how.
struct GenerationTarget
{
    std::string TargetFolder; // an existing folder
    std::int32_t OverwriteMode = overwrite_mode::kPrompt;
    bool Compile = false;        // start the Visual Basic compiler on the result
    bool TellsUnchanged = false; // compare what is overwritten with what was there
};

struct ClassScope;
class TargetFiles;

// Writes one section of a module.
using SectionWriter = TTCOutputs (*)(const ClassScope& scope);

// The world as the generator meets it. All must outlive it.
struct GenerationPorts
{
    Messages& Asking;
    ErrorReport& Errors;
    FileSystem& Files;
    Clock& Time;
    ProcessStarter& Programs;
    ConflictResolver& Conflicts;
};

// Turns a project and its classes into the text of a whole Visual Basic project. The text routines give one section of
// one file each; GenerateCode writes all files. Writing text may change the classes: a missing method is added, a
// length limit corrected.
class CodeGeneration
{
  public:
    static constexpr std::string_view PushPrefix = kPushPrefix;
    static constexpr std::string_view SavePrefix = kSavePrefix;

    CodeGeneration(const TTCProject& project, const GenerationPorts& ports, GenerationSettings settings = {});

    // The name prefix of a variable of the type: of a member variable or of a global one.
    [[nodiscard]] std::string VariablePrefix(std::string_view typeName, bool isMember) const;

    // Throws RuntimeError 1001 if the project has no connection string that ConnectSameDirectory could work on.
    [[nodiscard]] TTCOutputs GenerateWrapperClass(const KZMClasses& classes) const;
    [[nodiscard]] TTCOutputs GenerateGlobalsBasFile() const;
    [[nodiscard]] TTCOutputs GenerateTestForm(const KZMClasses& classes) const;
    [[nodiscard]] TTCOutputs GenerateTestProjectGroup() const;
    [[nodiscard]] TTCOutputs GenerateTestProjectFile(const KZMClasses& classes) const;
    [[nodiscard]] TTCOutputs GenerateProjectFile(const KZMClasses& classes) const;

    // The header, declarations and properties of the class, each line followed by CR LF; without the methods.
    [[nodiscard]] std::string GeneratedClassModuleText(KZMClass& owner, const KZMClasses& classes);

    [[nodiscard]] TTCOutputs WriteClassHeader(KZMClass& owner, const KZMClasses& classes);
    [[nodiscard]] TTCOutputs WriteClassDeclarations(KZMClass& owner, const KZMClasses& classes);
    [[nodiscard]] TTCOutputs WriteClassProperties(KZMClass& owner, const KZMClasses& classes);
    [[nodiscard]] TTCOutputs WriteClassMethods(KZMClass& owner, const KZMClasses& classes);

    [[nodiscard]] TTCOutputs WriteCollectionHeader(KZMClass& owner, const KZMClasses& classes);
    [[nodiscard]] TTCOutputs WriteCollectionDeclarations(KZMClass& owner, const KZMClasses& classes);
    [[nodiscard]] TTCOutputs WriteCollectionProperties(KZMClass& owner, const KZMClasses& classes);
    [[nodiscard]] TTCOutputs WriteCollectionMethods(KZMClass& owner, const KZMClasses& classes);

    // The sections of the file of a class, and of that of its collection, in their order.
    [[nodiscard]] static std::span<const SectionWriter> ClassSections();
    [[nodiscard]] static std::span<const SectionWriter> CollectionSections();
    [[nodiscard]] TTCOutputs WriteSection(SectionWriter section, KZMClass& owner, const KZMClasses& classes);

    // The parameters for the columns that join the class to its parent: "ByVal OrderID as Long".
    [[nodiscard]] std::string GetRelationshipArguments(KZMClass& owner, const KZMClasses& classes);

    // Appends the method by which the collection of a child class reads its rows; nothing if it has no parent or table.
    void GenerateRetrieveRelatedMethod(TTCOutputs& lines, KZMClass& owner, const KZMClasses& classes);

    // Writes the project into the folder and ends with exactly one of OperationComplete and OperationAborted; never
    // throws. Nothing is written if a name would make a file outside the folder; files that share a name are named in a
    // warning, and the later one meets the earlier as it would any file that exists. A run that ends early leaves the
    // files written so far, each whole. An unexpected error is reported and aborts the run; a file that can't be backed
    // up is reported and overwritten all the same.
    void GenerateCode(KZMClasses& classes, const GenerationTarget& target);

    Signal<int, const std::string&> StatusChanged; // the stage (1 files, 2 compile, 3 finish) and the line to show
    Signal<const std::string&> OperationAborted;   // ErrorText
    Signal<const std::string&> OperationComplete;  // ErrorText, "" when nothing needs saying
    Signal<int> Progress;                          // percent

    GenerationSettings Settings;
    std::string ErrorText;          // the messages of the latest run
    std::vector<SettledFile> Files; // of the latest run: those that are in place or were left, in the order of writing
    bool FilesShareNames = false;   // in the latest run: one of two files was lost, or would be where letter case does not count

  private:
    // Calls `write` with the scope of the class.
    template <class Write>
    auto WithClass(KZMClass& owner, const KZMClasses& classes, Write&& write);

    // False if the run ended early; what was written by then is not yet in place.
    bool WriteProject(const KZMClasses& classes, const std::string& targetFolder, TargetFiles& files);

    const TTCProject& project_;
    GenerationPorts ports_;
};

} // namespace veldrane
