#pragma once

#include "program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane::testing {

inline constexpr char kNotesSql[] = "CREATE TABLE Notes (NoteID INTEGER PRIMARY KEY, Title VARCHAR(50) NOT NULL);";

// A project with a class, and what `define` says about other data sources.
class UntouchedProject
{
  public:
    UntouchedProject()
    {
        const Ended made = Workspace.Run({"define", File, "--connection", Notes, "--all"});
        EXPECT_EQ(made.ExitCode, 0) << made.ErrorOutput;
        before_ = Workspace.ReadFile("Desk.kzm");
    }

    // The first line about the failure of a run on this data source. The run fails, and leaves the project as it was,
    // byte for byte, and no file beside it.
    std::string FailureOn(const std::string& connection) const
    {
        const Ended ended = Workspace.Run({"define", File, "--connection", connection, "--all"});
        EXPECT_EQ(ended.ExitCode, 1);
        ExpectUntouched();
        const Ended fresh = Workspace.Run({"define", Workspace.Path("New.kzm"), "--connection", connection, "--all"});
        EXPECT_EQ(fresh.ExitCode, 1);
        EXPECT_FALSE(std::filesystem::exists(Workspace.Path("New.kzm")));
        return FirstLine(fresh.ErrorOutput);
    }

    void ExpectUntouched() const
    {
        EXPECT_EQ(Workspace.ReadFile("Desk.kzm"), before_);
        for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(Workspace.Path(""))) {
            const std::string name = entry.path().filename();
            EXPECT_FALSE(name.starts_with(".veldrane-") || name == "Desk.bak") << name;
        }
    }

    static std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

    Program Workspace;
    std::string File = Workspace.Path("Desk.kzm");
    std::string Notes = Workspace.MakeDatabase("notes.db", kNotesSql);

  private:
    std::string before_;
};

} // namespace veldrane::testing
