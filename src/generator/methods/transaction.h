#pragma once

#include "generator/methods/data_routine.h"

// The transaction in which a routine writes a row and its children's through recordsets.
namespace veldrane {

// Whether the class's routines begin and end it: a child's run inside its parent's.
[[nodiscard]] bool RunsTransaction(const ClassScope& scope);

// The lines about a failure that name the routine.
struct FailureLines
{
    ClassLine Label;
    ClassLine Rollback; // calls what stands behind RollbackLabel
    ClassLine Message;
    ClassLine RollbackLabel;
};

// What the routine does about an error, up to its last line.
void WriteFailure(const ClassEmitter& emit, const FailureLines& lines);

} // namespace veldrane
