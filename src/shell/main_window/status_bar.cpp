#include "shell/main_window/status_bar.h"

#include <algorithm>

namespace veldrane {

void StatusBar::Follow(TTCFileManagement& files)
{
    connections_.clear();
    connections_.push_back(files.SavingProject.Connect([this](std::int32_t value) { SavingProject(value); }));
    connections_.push_back(
        files.SetMinMaxProgress.Connect([this](std::int32_t minimum, std::int32_t maximum, std::int32_t value) {
            SetMinMaxProgress(minimum, maximum, value);
        }));
    connections_.push_back(files.ProjectSavedSuccessfully.Connect([this] { EndProgress(); }));
    connections_.push_back(files.ProjectSaveFailed.Connect([this](const std::string& text) {
        EndProgress();
        SetStatus(text);
    }));
}

void StatusBar::SetStatus(const std::string& text)
{
    status_ = text;
    Changed.Raise();
}

void StatusBar::SetProjectName(const std::string& name)
{
    adPanel_ = "  Project: " + name;
    Changed.Raise();
}

void StatusBar::EndProgress()
{
    icon_.clear();
    progress_.Visible = false;
    Changed.Raise();
}

void StatusBar::SavingProject(std::int32_t value)
{
    if (value == 0) {
        icon_ = "Save";
        progress_.Visible = true;
    } else {
        progress_.Value = std::clamp(value, progress_.Minimum, progress_.Maximum);
    }
    Changed.Raise();
}

void StatusBar::SetMinMaxProgress(std::int32_t minimum, std::int32_t maximum, std::int32_t value)
{
    progress_.Minimum = minimum;
    progress_.Maximum = std::max(minimum, maximum);
    progress_.Value = std::clamp(value, progress_.Minimum, progress_.Maximum);
    Changed.Raise();
}

} // namespace veldrane
