#pragma once

#include "generator/code_generation.h"

namespace veldrane {

// For a preview, which writes no files, so that none is in its way.
class NoConflicts : public ConflictResolver
{
  public:
    [[nodiscard]] ConflictAnswer ResolveConflict(const FileConflict& /*conflict*/) override
    {
        return ConflictAnswer::Leave;
    }
};

} // namespace veldrane
