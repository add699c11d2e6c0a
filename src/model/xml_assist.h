#pragma once

#include "model/classes.h"
#include "model/project.h"

namespace veldrane {

// The helper class that generated code builds its transaction documents with. A project has it exactly while
// `MTSEnabled` is set.
inline constexpr char kXmlAssistName[] = "xmlAssist";

// Adds the class and its name unless the project has it. False, with nothing changed, if a class or a collection of the
// user's has that name.
bool AddXmlAssist(TTCProject& project, KZMClasses& classes);

// Removes the class and its name; does nothing if the project has none, or if a class of the user's has that name.
void RemoveXmlAssist(TTCProject& project, KZMClasses& classes);

} // namespace veldrane
