#pragma once

#include "projectfile/file_management.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace veldrane::testing {

// The project of a project file, read from memory. The path is that of the file's own line.
class OpenedProject
{
  public:
    OpenedProject(const std::string& path, const std::string& bytes)
        : path_(path), projectFiles_(files_, messages_, errors_, codePage_, windows_.Windows())
    {
        files_.Folders.insert(std::filesystem::path(path).parent_path());
        Project.Clear();
        files_.Files[path_] = bytes;
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
    NoFileWindows windows_;
    TTCFileManagement projectFiles_;
};

} // namespace veldrane::testing
