#pragma once

#include "golden_projects.h"
#include "program.h"

#include "projectfile/file_management.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

namespace veldrane::testing {

// The project of a golden project file, read from memory. The file lies where its own line says.
class OpenedGolden
{
  public:
    explicit OpenedGolden(const GoldenProject& golden)
        : path_("FOLDER/" + golden.ProjectFile()), projectFiles_(files_, messages_, errors_, codePage_)
    {
        files_.Folders.insert("FOLDER");
        Project.Clear();
        files_.Files[path_] = BytesOf(golden.Path(golden.ProjectFile()));
        EXPECT_TRUE(projectFiles_.OpenProject(Project, Classes, path_)) << path_;
        EXPECT_TRUE(errors_.Reported.empty()) << errors_.Reported.front().Error.Description();
    }

    // What saving makes of the file.
    [[nodiscard]] std::string SavedBytes()
    {
        EXPECT_TRUE(projectFiles_.SaveProject(Project, Classes)) << path_;
        return files_.Files[path_];
    }

    TTCProject Project;
    KZMClasses Classes;

  private:
    std::string path_;
    MemoryFileSystem files_;
    ScriptedMessages messages_;
    RecordedErrors errors_;
    text::CodePage codePage_;
    TTCFileManagement projectFiles_;
};

} // namespace veldrane::testing
