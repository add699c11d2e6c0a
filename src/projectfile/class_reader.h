#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "model/signal.h"
#include "projectfile/line_stream.h"

#include <cstdint>

namespace veldrane {

// The events by which a file under way tells how far it is.
struct FileProgress
{
    Signal<std::int32_t>& SavingProject;
    Signal<std::int32_t, std::int32_t, std::int32_t>& SetMinMaxProgress; // minimum, maximum and value
};

// Reads the rest of the stream: the section of the classes. Each class is added when its closing line is reached, and
// its name and its collection's are entered in the project's list.
//
// Throws RuntimeError if the section is not there, if a name is in that list already, and as the blocks' readers do:
// the classes completed so far stay, the one under way is lost and named by the description.
// False if a class has no closing line: it is given up without a word when the next one begins, or with the section.
[[nodiscard]] bool ReadClassInfo(LineStream& stream, TTCProject& project, KZMClasses& classes,
                                 const FileProgress& progress);

} // namespace veldrane
