#include "shell/main_window/edit_history.h"

#include <utility>

namespace veldrane {
namespace {

class FlagWhile
{
  public:
    explicit FlagWhile(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagWhile() { flag_ = false; }
    FlagWhile(const FlagWhile&) = delete;
    FlagWhile& operator=(const FlagWhile&) = delete;

  private:
    bool& flag_;
};

} // namespace

// A project that is not modified is as it was saved, wherever that was done.
ProjectSnapshot EditHistory::Take()
{
    latest_ = ProjectSnapshot(project_, classes_, latest_ ? &*latest_ : nullptr);
    if (!project_.Modified())
        saved_ = latest_;
    return *latest_;
}

void EditHistory::Run(const std::string& name, const std::function<void()>& edit)
{
    if (running_)
        return edit();
    const FlagWhile running(running_);
    const ProjectSnapshot before = Take();
    const auto keep = [&] {
        const ProjectSnapshot after = Take();
        if (!after.HasSameEdits(before))
            Keep({.Name = name, .Before = before, .After = after});
    };
    try {
        edit();
    } catch (...) {
        keep();
        throw;
    }
    keep();
}

void EditHistory::Keep(Step step)
{
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_), steps_.end());
    steps_.push_back(std::move(step));
    if (steps_.size() > kMostSteps)
        steps_.erase(steps_.begin());
    done_ = steps_.size();
}

std::optional<std::string> EditHistory::UndoName() const
{
    return done_ == 0 ? std::nullopt : std::optional(steps_.at(done_ - 1).Name);
}

std::optional<std::string> EditHistory::RedoName() const
{
    return done_ == steps_.size() ? std::nullopt : std::optional(steps_.at(done_).Name);
}

void EditHistory::Go(const ProjectSnapshot& to)
{
    static_cast<void>(Take());
    to.Restore(project_, classes_);
    const ProjectSnapshot now(project_, classes_, &*latest_);
    project_.SetModified(!saved_ || !now.HasSameFile(*saved_));
    latest_ = now;
}

void EditHistory::Undo()
{
    if (done_ == 0)
        return;
    Go(steps_.at(done_ - 1).Before);
    --done_;
}

void EditHistory::Redo()
{
    if (done_ == steps_.size())
        return;
    Go(steps_.at(done_).After);
    ++done_;
}

} // namespace veldrane
