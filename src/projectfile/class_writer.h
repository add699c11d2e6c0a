#pragma once

#include "model/classes.h"

#include <string>

namespace veldrane {

// Appends the section of the classes, from "Begin Classes" to "End Classes".
void WriteClassInfo(std::string& text, const KZMClasses& classes);

} // namespace veldrane
