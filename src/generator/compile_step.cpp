#include "generator/compile_step.h"

#include "generator/target_files.h"
#include "preview/active_parse.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <chrono>
#include <exception>

namespace veldrane {
namespace {

constexpr std::string_view kNoCommand = "No Visual Basic command is set: the project was written, not compiled.";
constexpr std::string_view kCancelled = "Cancelled: the project was written, not compiled.";

// How long the compiler gets. One that needs longer leaves no log in time.
constexpr std::chrono::seconds kCompilerTime{2};

// The command opens a project in the editor; what stands for the project's path is taken out of it.
std::vector<std::string> CommandWords(const std::string& command, Messages& messages)
{
    return SplitCommand(ActiveParse::ReplaceText(command, R"( "%1")", "", messages));
}

std::string Outcome(const std::string& log, const std::string& targetFolder, const std::string& projectName)
{
    if (text::FindFolded(log, "succeeded.") == std::string::npos)
        return std::string(kCompilationFailed) + "\r\n" + log;
    return "ActiveX COM Object Compilation Complete.\r\nYour COM Object is located at: \r\n" + PathIn(targetFolder, projectName) + ".dll";
}

} // namespace

std::vector<std::string> SplitCommand(std::string_view command)
{
    std::vector<std::string> words;
    bool quoted = false;
    for (const std::string_view part : text::Split(command, "\"")) {
        if (quoted)
            words.emplace_back(part);
        else
            for (const std::string_view word : text::Split(part, " "))
                if (!word.empty())
                    words.emplace_back(word);
        quoted = !quoted;
    }
    return words;
}

void CompileProject(CodeGeneration& generation, const GenerationPorts& ports, const std::string& projectName, const std::string& targetFolder)
{
    const std::string logPath = PathIn(generation.Settings.ApplicationFolder, "Compile.log");
    generation.StatusChanged.Raise(1, "Code Generation Complete.");
    if (ports.Conflicts.IsCancelled())
        return AppendLine(generation.ErrorText, kCancelled);
    generation.StatusChanged.Raise(2, "Compiles your ActiveX COM Object...");
    try {
        if (ports.Files.Kind(logPath) == FileKind::File)
            ports.Files.Remove(logPath);
        std::vector<std::string> command = CommandWords(generation.Settings.VisualBasicCommand, ports.Asking);
        const bool hasCommand = !command.empty();
        if (hasCommand) {
            command.insert(command.end(), {PathIn(targetFolder, projectName) + ".vbp", "/out", logPath, "/m", projectName, "/OutDir", targetFolder});
            ports.Programs.Start(command);
        }
        generation.StatusChanged.Raise(2, "ActiveX COM Object Compiled.");
        generation.StatusChanged.Raise(3, "Completes processing...");
        generation.Progress.Raise(99);
        if (hasCommand) {
            ports.Time.Wait(kCompilerTime);
            generation.ErrorText = Outcome(generation.Settings.CodePage.Decode(ports.Files.Read(logPath)), targetFolder, projectName);
        } else {
            AppendLine(generation.ErrorText, kNoCommand);
        }
        generation.StatusChanged.Raise(3, "Processing Complete.");
    } catch (const std::exception&) {
        // Settled: the run is complete, and the page shows what the text holds, even if the compiler is still at work.
        return;
    }
}

} // namespace veldrane
