#pragma once

#include "ports/file_dialogs.h"
#include "ports/loading_form.h"
#include "ports/mouse_pointer.h"

#include <utility>

namespace veldrane {

// What a person sees while a project file is chosen, opened or saved. All of them outlive whoever is handed them.
struct FileWindows
{
    FileDialogs& Dialogs;
    MousePointer& Pointer;
    LoadingForm& Loading;
};

// For a run without windows: every dialog is cancelled, and nothing is shown.
class NoFileWindows : private FileDialogs, private MousePointer, private LoadingForm
{
  public:
    [[nodiscard]] FileWindows Windows() { return {.Dialogs = *this, .Pointer = *this, .Loading = *this}; }

  private:
    std::optional<std::string> AskForFileToOpen(const FileDialogRequest& /*request*/) override { return std::nullopt; }
    std::optional<std::string> AskForFileToSave(const FileDialogRequest& /*request*/) override { return std::nullopt; }
    PointerShape Show(PointerShape shape) override { return std::exchange(shape_, shape); }
    void SetStatus(const std::string& /*text*/) override {}
    Visibility Show(Visibility visibility) override { return std::exchange(visibility_, visibility); }

    PointerShape shape_ = PointerShape::Default;
    Visibility visibility_ = Visibility::Hidden;
};

} // namespace veldrane
