#include "shell/desktop/desktop_loading_form.h"

#include "shell/desktop/room_for_dialog.h"

namespace veldrane {

void DesktopLoadingForm::SetStatus(const std::string& text)
{
    status_ = text;
    if (window_ != nullptr)
        window_->ShowStatus(status_);
}

Visibility DesktopLoadingForm::Show(Visibility visibility)
{
    const Visibility before = window_ == nullptr ? Visibility::Hidden : Visibility::Shown;
    if (visibility == Visibility::Hidden) {
        window_.reset();
    } else if (window_ == nullptr) {
        window_ = std::make_unique<LoadingWindow>(Cancelling::NotOffered, WindowInFront());
        window_->ShowStatus(status_);
        window_->show();
        window_->repaint();
    }
    return before;
}

void DesktopLoadingForm::Stage(int percent, const std::string& line)
{
    if (window_ != nullptr)
        window_->Watching().Stage(percent, line);
}

void DesktopLoadingForm::Step(int percent, const std::string& line)
{
    if (window_ != nullptr)
        window_->Watching().Step(percent, line);
}

} // namespace veldrane
