#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "shell/main_window/project_snapshot.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace veldrane {

// The edits of a project, to be taken back and made again. An edit is whole: all that one dialog, drop, deletion or
// renaming has changed, child classes and names included.
class EditHistory
{
  public:
    // Both must outlive the history.
    EditHistory(TTCProject& project, KZMClasses& classes) : project_(project), classes_(classes) {}

    // Runs an edit. What it has changed is one step, however it ended; nothing changed is none. An edit within an edit
    // belongs to that. What could be made again before can't be any more.
    void Run(const std::string& name, const std::function<void()>& edit);

    // The name of the edit that would be taken back or made again; nothing if there is none.
    [[nodiscard]] std::optional<std::string> UndoName() const;
    [[nodiscard]] std::optional<std::string> RedoName() const;

    // Takes the latest edit back, or makes it again: the project counts as modified unless it is then as it was saved.
    // Does nothing if there is none.
    void Undo();
    void Redo();

    // More steps than this are forgotten, the oldest first.
    static constexpr std::size_t kMostSteps = 100;

  private:
    struct Step
    {
        std::string Name;
        ProjectSnapshot Before;
        ProjectSnapshot After;
    };

    [[nodiscard]] ProjectSnapshot Take();
    void Keep(Step step);
    void Go(const ProjectSnapshot& to);

    TTCProject& project_;
    KZMClasses& classes_;
    std::vector<Step> steps_;
    std::size_t done_ = 0; // the steps in front of it are done, those behind were taken back
    std::optional<ProjectSnapshot> saved_;
    std::optional<ProjectSnapshot> latest_; // whose classes the next one shares
    bool running_ = false;
};

} // namespace veldrane
