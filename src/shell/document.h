#pragma once

#include "model/classes.h"
#include "model/project.h"

namespace veldrane {

// What a project file holds. A new or opened project is a new document.
struct Document
{
    TTCProject Project;
    KZMClasses Classes;
};

} // namespace veldrane
