#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// What keeps the properties of a project from being taken over.
namespace veldrane {

// The values as they stand in the dialog, and the project that they are meant for.
struct CheckedProject
{
    const TTCProject& Values;
    const std::string& AutosaveInterval; // as typed
    const TTCProject& Project;
    const KZMClasses& Classes;
    const text::CodePage& CodePage;
};

// A box that keeps the dialog open, and the control that it is about.
struct ProjectRefusal
{
    std::string_view Control;
    Question Box;
};

// The longest an autosave may wait, in minutes: a day.
inline constexpr std::int32_t kLongestAutosaveInterval = 1440;

// The minutes that were typed; nothing unless it is a whole number that an autosave may wait.
[[nodiscard]] std::optional<std::int32_t> AutosaveMinutes(std::string_view typed);

// The first thing that is wrong; nothing if all is well. `only` looks at one control alone.
[[nodiscard]] std::optional<ProjectRefusal> FirstRefusal(const CheckedProject& checked,
                                                         std::optional<std::string_view> only = std::nullopt);

// The question whether the name of the logging table may be made valid; nothing if it is, or if none is wanted.
[[nodiscard]] std::optional<Question> LogTableQuestion(const TTCProject& values);

} // namespace veldrane
