#pragma once

#include "ports/mouse_pointer.h"

#include <utility>
#include <vector>

namespace veldrane::testing {

// Keeps the shapes that were shown.
class RecordedPointer : public MousePointer
{
  public:
    PointerShape Show(PointerShape shape) override
    {
        Shown.push_back(shape);
        return std::exchange(Current, shape);
    }

    PointerShape Current = PointerShape::Default;
    std::vector<PointerShape> Shown;
};

} // namespace veldrane::testing
