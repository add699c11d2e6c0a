#pragma once

#include "shell/application.h"
#include "shell/main_window/status_bar.h"
#include "shell/project_session.h"

#include <chrono>
#include <optional>
#include <string>

namespace veldrane {

struct CaughtFailure;

// Saves the project behind the person's back, into its copy for recovery.
class Autosave
{
  public:
    // How often Tick is to be called.
    static constexpr std::chrono::seconds kInterval{30};

    // All must outlive this object.
    Autosave(const Application& application, ProjectSession& session, StatusBar& status)
        : application_(application), session_(session), status_(status)
    {}

    // Each second call counts a minute. A modified project whose AutosaveProjectInterval is over is saved and stays
    // modified, for its own file is still out of date; the panel "Status" tells the time. So it does of a failure, and
    // the next try comes after another interval. The first of a row of equal failures is reported: the person can't do
    // more about the others.
    void Tick();

    // Saves a modified project at once, whether or not it is to be autosaved: the program is about to be ended. Nobody
    // is told of a failure, for nobody would read it; the copy of before stays.
    void KeepLastCopy();

  private:
    void Save();
    void Tell(const CaughtFailure& failure);

    const Application& application_;
    ProjectSession& session_;
    StatusBar& status_;
    int ticks_ = 0;
    std::optional<std::string> reported_; // the description of the latest failure, unless a copy was written since
};

} // namespace veldrane
