#include "program.h"

#include "shell/entry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace veldrane::testing {
namespace {

enum class ErrorOutputIs
{
    Pipe,
    Terminal,
};

Ended EndOf(const std::vector<std::string>& arguments, ErrorOutputIs kind)
{
    std::ostringstream output;
    std::ostringstream errorOutput;
    const int exitCode = RunProgram(arguments, {.Output = output,
                                                .ErrorOutput = errorOutput,
                                                .ErrorOutputIsTerminal = kind == ErrorOutputIs::Terminal,
                                                .Folder = VELDRANE_PROGRAM_FOLDER});
    return {.ExitCode = exitCode, .Output = output.str(), .ErrorOutput = errorOutput.str()};
}

} // namespace

Program::Program()
{
    std::string pattern = ::testing::TempDir() + "veldrane-XXXXXX";
    folder_ = mkdtemp(pattern.data());
    setenv("VELDRANE_SETTINGS", Path("settings.ini").c_str(), 1);
    setenv("XDG_STATE_HOME", Path("state").c_str(), 1);
}

Program::~Program()
{
    std::filesystem::remove_all(folder_);
}

Ended Program::Run(const std::vector<std::string>& arguments) const
{
    return EndOf(arguments, ErrorOutputIs::Pipe);
}

Ended Program::RunOnTerminal(const std::vector<std::string>& arguments) const
{
    return EndOf(arguments, ErrorOutputIs::Terminal);
}

std::string Program::MakeDatabase(const std::string& name, const std::string& sql) const
{
    WriteFile(name + ".sql", sql);
    const std::string command = "sqlite3 '" + Path(name) + "' < '" + Path(name + ".sql") + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return "PROVIDER=MSDASQL;Driver=SQLite3;Database=" + Path(name) + ";";
}

std::string Program::MakeShop() const
{
    return MakeDatabase("shop.db", BytesOf(VELDRANE_SOURCE_DIR "/samples/shop.sql"));
}

void Program::WriteFile(const std::string& name, const std::string& bytes) const
{
    std::ofstream(Path(name), std::ios::binary) << bytes;
}

std::string Program::ReadFile(const std::string& name) const
{
    return BytesOf(Path(name));
}

std::string BytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace veldrane::testing
