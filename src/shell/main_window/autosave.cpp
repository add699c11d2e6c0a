#include "shell/main_window/autosave.h"

#include <array>
#include <ctime>

namespace veldrane {

struct CaughtFailure
{
    RuntimeError Error;
    ErrorPlace Place;
};

namespace {

// Keeps the failure for whoever decides whether it is told.
struct CatchingReport : ErrorReport
{
    void ReportError(const RuntimeError& error, const ErrorPlace& place) override
    {
        Caught.emplace(CaughtFailure{.Error = error, .Place = place});
    }

    std::optional<CaughtFailure> Caught;
};

constexpr int kTicksOfMinute = 2;

// "h:mm am/pm" of the local time.
std::string ShownTime(std::chrono::system_clock::time_point time)
{
    constexpr int kNoon = 12;
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local = {};
    localtime_r(&seconds, &local);
    std::array<char, sizeof ":00"> minutes{};
    std::strftime(minutes.data(), minutes.size(), ":%M", &local);
    const int hour = local.tm_hour % kNoon == 0 ? kNoon : local.tm_hour % kNoon;
    return std::to_string(hour) + minutes.data() + (local.tm_hour < kNoon ? " am" : " pm");
}

} // namespace

void Autosave::Tick()
{
    if (!session_.Project().AutosaveProject) {
        ticks_ = 0;
        return;
    }
    if (++ticks_ < kTicksOfMinute)
        return;
    ticks_ = 0;
    TTCProject& project = session_.Project();
    ++project.AutosaveCurrentInterval;
    if (project.AutosaveCurrentInterval >= project.AutosaveProjectInterval && project.Modified())
        Save();
}

void Autosave::KeepLastCopy()
{
    CatchingReport untold;
    if (session_.Project().Modified())
        session_.Autosave(untold);
}

void Autosave::Save()
{
    CatchingReport report;
    const bool saved = session_.Autosave(report);
    session_.Project().AutosaveCurrentInterval = 0;
    if (saved) {
        reported_.reset();
        status_.SetStatus("Autosaved at " + ShownTime(application_.Time.Now()));
        return;
    }
    status_.EndProgress();
    if (report.Caught)
        Tell(*report.Caught);
}

// The box of the first one stays open for as long as the person is away, and the next try may come meanwhile.
void Autosave::Tell(const CaughtFailure& failure)
{
    status_.SetStatus("Autosave failed at " + ShownTime(application_.Time.Now()));
    if (reported_ == failure.Error.Description())
        return;
    reported_ = failure.Error.Description();
    application_.Errors.ReportError(failure.Error, failure.Place);
}

} // namespace veldrane
