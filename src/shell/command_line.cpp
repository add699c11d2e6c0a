#include "shell/command_line.h"

#include "generator/generation_settings.h"
#include "preview/tree_node.h"
#include "shell/platform/paths.h"
#include "shell/switch_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <iomanip>
#include <memory>
#include <sstream>
#include <string_view>

namespace veldrane {
namespace {

constexpr int kWrongUsage = 2;

struct CommandUsage
{
    std::string_view Name; // "" for the program itself
    std::string_view Usage;
};

constexpr auto kUsages = std::to_array<CommandUsage>({
    {"", "veldrane tables | define | generate | preview  (veldrane COMMAND --help tells more)\n"
         "       veldrane /C [/DEBUG] [/DELETE] [/NOSPLASH] FILE.kzm [FOLDER]\n"
         "       veldrane [/DEBUG] [/NOSPLASH] [FILE.kzm]"},
    {"tables", "veldrane tables --connection STRING"},
    {"define",
     "veldrane define FILE.kzm [--connection STRING] [--table NAME[=PARENT]]... [--lookup NAME]... "
     "[--procedure NAME[=CLASS]]... [--all] [--collections] [--by identity|primary-key] [--set NAME=VALUE]..."},
    {"generate", "veldrane generate FILE.kzm FOLDER [--overwrite prompt|leave|backup] [--compile]"},
    {"preview", "veldrane preview FILE.kzm NODE"},
});

std::string UsageOf(std::string_view command)
{
    for (const CommandUsage& usage : kUsages)
        if (usage.Name == command)
            return "Usage: " + std::string(usage.Usage) + "\n";
    return UsageOf("");
}

// CLI11's own usage line names neither the program behind a command nor what an option takes.
class HelpFormatter : public CLI::Formatter
{
  public:
    std::string make_usage(const CLI::App* app, std::string /*name*/) const override
    {
        return UsageOf(app->get_parent() == nullptr ? "" : app->get_name());
    }
};

bool IsCommand(const std::string& word)
{
    return !word.empty() &&
           std::any_of(kUsages.begin(), kUsages.end(), [&](const CommandUsage& usage) { return usage.Name == word; });
}

PrintAndExit WrongUsage(const std::string& message, std::string_view command)
{
    return {.Text = "veldrane: " + message + "\n" + UsageOf(command), .OnStandardError = true, .ExitCode = kWrongUsage};
}

// Words that CLI11 hands over as they are: a value may hold blanks, commas, brackets and "=".
CLI::Option* AddText(CLI::App& app, const std::string& name, std::string& value, const std::string& help,
                     const std::string& typeName)
{
    return app.add_option(name, value, help)->type_name(typeName);
}

CLI::Option* AddTexts(CLI::App& app, const std::string& name, std::vector<std::string>& values, const std::string& help,
                      const std::string& typeName)
{
    return app.add_option(name, values, help)->type_name(typeName)->allow_extra_args(false);
}

template <class Value>
using Choices = std::vector<std::pair<std::string, Value>>;

const Choices<RowIdentifier> kRowIdentifiers{{"identity", RowIdentifier::Identity},
                                             {"primary-key", RowIdentifier::PrimaryKey}};
const Choices<Overwrite> kOverwrites{
    {"prompt", Overwrite::Prompt}, {"leave", Overwrite::Leave}, {"backup", Overwrite::Backup}};

// An option that takes one of a few words; their list stands where the type of the value would.
template <class Value>
void AddChoice(CLI::App& app, const std::string& name, Value& value, const Choices<Value>& choices,
               const std::string& help)
{
    std::string words;
    for (const auto& [word, meaning] : choices)
        words += (words.empty() ? "" : "|") + word;
    app.add_option_function<std::string>(
           name,
           [&value, &choices, name, words](const std::string& given) {
               const auto choice = std::find_if(choices.begin(), choices.end(),
                                                [&](const auto& entry) { return entry.first == given; });
               if (choice == choices.end())
                   throw CLI::ValidationError(name, "'" + given + "' is none of " + words);
               value = choice->second;
           },
           help)
        ->type_name(words);
}

std::string WithoutLineEnd(std::string text)
{
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    return text;
}

// "@FILE" stands for what the file holds.
std::string ResolveConnection(const std::string& value, const FileSystem& files)
{
    if (!value.starts_with('@'))
        return value;
    const std::string path = value.substr(1);
    if (path.empty())
        throw CLI::ValidationError("--connection", "'@' names no file");
    std::string text;
    try {
        text = WithoutLineEnd(files.Read(path));
    } catch (const RuntimeError& error) {
        throw CLI::ValidationError("--connection", error.Description());
    }
    if (text.empty())
        throw CLI::ValidationError("--connection", "the file '" + path + "' holds no connection string");
    return text;
}

// An argument that is there, but empty, is mostly a variable of a script that was never set.
void Require(const std::string& name, const std::string& value)
{
    if (value.empty())
        throw CLI::RequiredError(name);
}

std::string NodeHelp()
{
    std::ostringstream help;
    help << "NODE is the name of a class, or else of a collection, or else one of these; letter case does not count:\n";
    for (const FixedNode& node : FixedNodes())
        help << "  " << std::left << std::setw(25) << node.Key << node.Shows << '\n';
    return help.str();
}

std::vector<std::pair<std::string, std::string>> SplitSettings(const std::vector<std::string>& arguments)
{
    std::vector<std::pair<std::string, std::string>> settings;
    for (const std::string& argument : arguments) {
        const std::size_t equals = argument.find('=');
        if (equals == std::string::npos || equals == 0)
            throw CLI::ValidationError("--set", "'" + argument + "' is not of the form NAME=VALUE");
        settings.emplace_back(argument.substr(0, equals), argument.substr(equals + 1));
    }
    return settings;
}

// The parser and what it fills in; made anew for each command line.
class Parser
{
  public:
    explicit Parser(const FileSystem& files) : files_(files)
    {
        app_.name("veldrane");
        app_.set_version_flag("--version", std::string("veldrane ") + VELDRANE_VERSION);
        app_.set_help_flag("--help", "Print this help");
        app_.formatter(std::make_shared<HelpFormatter>());
        app_.footer(
            "Without a command the windows are opened, on the project if one is named.\n\n"
            "/C opens the project, writes it into FOLDER (its OutputPath unless given) with backups of files that\n"
            "exist, compiles it if the settings say so, and asks nothing. /DELETE removes the plain files of the\n"
            "folder first, /DEBUG gives generated routines lines that time them, /NOSPLASH opens the windows without\n"
            "the picture in front of them.");
        app_.require_subcommand(1);
        AddTables();
        AddDefine();
        AddGenerate();
        AddPreview();
    }

    Command Parse(const std::vector<std::string>& arguments)
    {
        const std::string first = arguments.empty() ? "" : arguments.front();
        if (first != "--help" && first != "--version" && !IsCommand(first))
            return ParseStart(arguments);
        try {
            app_.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend())); // CLI11 takes them last first
            return Parsed();
        } catch (const CLI::Success& success) {
            return Printed(success);
        } catch (const CLI::Error& error) {
            return WrongUsage(error.what() + std::string("."), first);
        }
    }

  private:
    void AddTables()
    {
        CLI::App* command = app_.add_subcommand("tables", "List what a data source holds: type, TAB, name");
        command->set_help_flag("--help", "Print this help");
        AddText(*command, "--connection", tables_.Connection, "The connection string, or @FILE that holds it", "STRING")
            ->required();
    }

    void AddDefine()
    {
        CLI::App* command = app_.add_subcommand("define", "Make or extend a project with classes from tables");
        command->set_help_flag("--help", "Print this help");
        AddText(*command, "file", define_.File, "The project file", "FILE.kzm")->required();
        AddText(*command, "--connection", define_.Connection,
                "The connection string, or @FILE that holds it; without it the project's own", "STRING");
        AddTexts(*command, "--table", define_.Request.Tables,
                 "A table or view to make a class of, under a class or table PARENT", "NAME[=PARENT]");
        AddTexts(*command, "--lookup", define_.Request.Lookups, "A table to make a lookup class of", "NAME");
        AddTexts(*command, "--procedure", define_.Procedures,
                 "A stored procedure to make a method of, in a class or the class of a table CLASS, else in the class "
                 "StoredProcedures",
                 "NAME[=CLASS]");
        command->add_flag("--all", define_.Request.All, "Every table, parents first");
        command->add_flag("--collections", define_.Collections, "Give root and lookup classes a collection too");
        AddChoice(*command, "--by", define_.By, kRowIdentifiers,
                  "Find rows by the identity column (unless given) or the primary key, where a table has both");
        AddTexts(*command, "--set", settings_, "Change a setting of the project by its name in the file", "NAME=VALUE");
    }

    void AddGenerate()
    {
        CLI::App* command = app_.add_subcommand("generate", "Write the Visual Basic project into an existing folder");
        command->set_help_flag("--help", "Print this help");
        AddText(*command, "file", generate_.File, "The project file", "FILE.kzm")->required();
        AddText(*command, "folder", generate_.Folder, "The folder to write into", "FOLDER")->required();
        AddChoice(*command, "--overwrite", generate_.Existing, kOverwrites,
                  "What becomes of files that exist; backup unless given");
        command->add_flag("--compile", generate_.Compile, "Compile the project afterwards");
    }

    void AddPreview()
    {
        CLI::App* command = app_.add_subcommand("preview", "Print what the preview shows for a node of the project");
        command->set_help_flag("--help", "Print this help");
        AddText(*command, "file", preview_.File, "The project file", "FILE.kzm")->required();
        AddText(*command, "node", preview_.Node, "What to show, as told below", "NODE")->required();
        command->footer(NodeHelp());
    }

    Command Parsed()
    {
        if (app_.got_subcommand("tables")) {
            tables_.Connection = ResolveConnection(tables_.Connection, files_);
            return tables_;
        }
        if (app_.got_subcommand("define")) {
            Require("file", define_.File);
            if (!define_.File.ends_with(kProjectExtension))
                throw CLI::ParseError("'" + define_.File + "' does not end in " + std::string(kProjectExtension),
                                      kWrongUsage);
            define_.Connection = ResolveConnection(define_.Connection, files_);
            define_.Settings = SplitSettings(settings_);
            return define_;
        }
        if (app_.got_subcommand("preview")) {
            Require("file", preview_.File);
            Require("node", preview_.Node);
            return preview_;
        }
        Require("file", generate_.File);
        Require("folder", generate_.Folder);
        return generate_;
    }

    Command ParseStart(const std::vector<std::string>& arguments)
    {
        const SwitchLine line = ReadSwitchLine(arguments, files_);
        // Mostly a variable of a script that was never set: the project's own folder must not stand in for it.
        if (std::find(arguments.begin(), arguments.end(), "") != arguments.end())
            return WrongUsage("one of the words is empty.", "");
        if (!line.AutoCompileMode)
            return ParseWindows(line);
        if (!line.Surplus.empty())
            return WrongUsage("'" + line.Surplus + "' is one word too many.", "");
        if (line.File.empty())
            return WrongUsage("/C needs a project file.", "");
        return StartCommand{.File = line.File,
                            .Folder = line.Folder,
                            .AutoCompileMode = true,
                            .DebugTiming = line.DebugTiming,
                            .DeleteAfterCompile = line.DeleteAfterCompile,
                            .NoSplash = line.NoSplash};
    }

    // A word that is no path may be a command that was mistyped; and nothing is emptied from a window.
    Command ParseWindows(const SwitchLine& line)
    {
        if (line.DeleteAfterCompile)
            return WrongUsage("'/DELETE' goes with /C alone.", "");
        if (!line.Folder.empty() && (line.Folder.find('/') == std::string::npos || line.Folder.starts_with('-')))
            return WrongUsage("'" + line.Folder + "' is no command.", "");
        if (!line.Surplus.empty())
            return WrongUsage("'" + line.Surplus + "' is one word too many.", "");
        return StartCommand{.File = line.File.empty() ? "" : PathFromRoot(line.File),
                            .DebugTiming = line.DebugTiming,
                            .NoSplash = line.NoSplash,
                            .InvalidPath = files_.Kind(line.Folder) == FileKind::Folder ? "" : line.Folder};
    }

    PrintAndExit Printed(const CLI::Success& success)
    {
        std::ostringstream text;
        app_.exit(success, text, text);
        return {.Text = text.str()};
    }

    const FileSystem& files_;
    CLI::App app_{std::string(kAppTitle) + ": Visual Basic COM projects from databases"};
    TablesCommand tables_;
    DefineCommand define_;
    GenerateCommand generate_;
    PreviewCommand preview_;
    std::vector<std::string> settings_;
};

} // namespace

Command ParseCommandLine(const std::vector<std::string>& arguments, const FileSystem& files)
{
    return Parser(files).Parse(arguments);
}

} // namespace veldrane
