#include "shell/main_window/autosave.h"

#include <array>
#include <ctime>
#include <string>

namespace veldrane {
namespace {

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

// A failure is reported, and the next try comes after another interval.
void Autosave::Save()
{
    const bool saved = session_.Autosave();
    session_.Project().AutosaveCurrentInterval = 0;
    if (saved)
        status_.SetStatus("Autosaved at " + ShownTime(application_.Time.Now()));
    else
        status_.EndProgress();
}

} // namespace veldrane
