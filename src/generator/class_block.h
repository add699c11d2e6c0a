#pragma once

#include "generator/scopes.h"

namespace veldrane {

enum class ModuleKind
{
    Class, // of the user's classes, and of their collections
    Wrapper,
};

// The block that opens the file of a class module.
void WriteClassBlock(const ProjectEmitter& emit, ModuleKind kind);

} // namespace veldrane
