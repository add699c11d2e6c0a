#pragma once

#include "ports/file_system.h"
#include "shell/define_plan.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace veldrane {

// `veldrane tables`
struct TablesCommand
{
    std::string Connection;
};

// Which column the built-in methods find a row by, where a table offers both.
enum class RowIdentifier
{
    Identity,
    PrimaryKey,
};

// `veldrane define`
struct DefineCommand
{
    std::string File;
    std::string Connection; // "" for the project's own
    DefineRequest Request;
    std::vector<std::string> Procedures; // NAME or NAME=CLASS
    bool Collections = false;            // root and lookup classes get a collection too
    RowIdentifier By = RowIdentifier::Identity;
    std::vector<std::pair<std::string, std::string>> Settings; // by their names in the file
};

// What becomes of a target file that exists.
enum class Overwrite
{
    Prompt,
    Leave,
    Backup,
};

// `veldrane generate`
struct GenerateCommand
{
    std::string File;
    std::string Folder;
    Overwrite Existing = Overwrite::Backup;
    bool Compile = false;
};

// `veldrane preview`
struct PreviewCommand
{
    std::string File;
    std::string Node; // a node's key, or a class or a collection
};

// A line without a command: the program's own switches and a project. With /C it is the run with nobody to ask, into a
// folder; without, it opens the windows.
struct StartCommand
{
    std::string File{};   // "" for none; for the windows it begins at the root
    std::string Folder{}; // "" for the project's own OutputPath
    bool AutoCompileMode = false;
    bool DebugTiming = false;
    bool DeleteAfterCompile = false;
    bool NoSplash = false;
    std::string InvalidPath{}; // for the windows: a word with a slash in it that leads nowhere; "" for none
};

// Nothing is to be done but to print a text and to end: help, version, or what was wrong with the words.
struct PrintAndExit
{
    std::string Text;
    bool OnStandardError = false;
    int ExitCode = 0;
};

using Command = std::variant<StartCommand, TablesCommand, DefineCommand, GenerateCommand, PreviewCommand, PrintAndExit>;

// The command that the arguments ask for (without the program's own name). `--connection @FILE` is resolved here, so
// that a password stays out of the list of processes.
[[nodiscard]] Command ParseCommandLine(const std::vector<std::string>& arguments, const FileSystem& files);

} // namespace veldrane
