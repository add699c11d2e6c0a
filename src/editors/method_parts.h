#pragma once

#include "model/methods.h"

// What of its definition a method's generated code follows. The rest of it stands in the class, and nobody reads it.
namespace veldrane {

struct MethodParts
{
    bool Scope = false;
    bool ReturnDataType = false;
    bool Arguments = false;
};

[[nodiscard]] MethodParts FollowedParts(const TTCMethod& method);

} // namespace veldrane
