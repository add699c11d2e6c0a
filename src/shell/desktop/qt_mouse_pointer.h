#pragma once

#include "ports/mouse_pointer.h"

namespace veldrane {

// The pointer over all windows of the program.
class QtMousePointer : public MousePointer
{
  public:
    ~QtMousePointer() override;

    PointerShape Show(PointerShape shape) override;

  private:
    PointerShape shown_ = PointerShape::Default;
};

} // namespace veldrane
