#pragma once

#include "shell/wizard/wizard_dialogs.h"
#include "support/failing_file_system.h"
#include "text/runtime_error.h"

#include <functional>
#include <string>
#include <vector>

namespace veldrane::testing {

// A person at the wizard's dialogs, by script.
class ScriptedWizardDialogs : public WizardDialogs
{
  public:
    explicit ScriptedWizardDialogs(MemoryFileSystem& files) : files_(files) {}

    void Show(frmFile& conflict) override
    {
        Opened.push_back(conflict.lblFileName());
        if (InConflict)
            InConflict(conflict);
    }
    [[nodiscard]] std::string DefaultFolder() override { return Home; }
    [[nodiscard]] std::string NewFolderName() override { return FolderName; }
    void MakeFolder(const std::string& path) override
    {
        if (!MayMakeFolders)
            throw RuntimeError(error_number::kPathAccess, "MakeFolder", path + ": Permission denied");
        files_.Folders.insert(path);
    }
    void Close() override { Opened.emplace_back("end"); }

    std::vector<std::string> Opened;
    std::function<void(frmFile&)> InConflict;
    std::string Home = "/home/me";
    std::string FolderName;
    bool MayMakeFolders = true;

  private:
    MemoryFileSystem& files_;
};

} // namespace veldrane::testing
