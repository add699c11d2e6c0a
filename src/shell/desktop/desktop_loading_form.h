#pragma once

#include "ports/loading_form.h"
#include "shell/desktop/loading_window.h"
#include "shell/progress.h"

#include <memory>

namespace veldrane {

// `frmLoading` as whoever opens a project or reads a catalog knows it. Each time it is shown it is a new window.
class DesktopLoadingForm : public LoadingForm, public Progress
{
  public:
    void SetStatus(const std::string& text) override;
    Visibility Show(Visibility visibility) override;

    // Nothing to see while the form is hidden.
    void Stage(int percent, const std::string& line) override;
    void Step(int percent, const std::string& line) override;

  private:
    std::string status_;
    std::unique_ptr<LoadingWindow> window_;
};

} // namespace veldrane
