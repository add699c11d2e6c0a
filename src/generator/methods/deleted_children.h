#pragma once

#include "generator/scopes.h"

namespace veldrane {

// Takes the members that are marked as deleted out of the child collections of one class, one child class after the
// other. Each of these loops has a label with a number.
class DeletedChildren
{
  public:
    // The loop for the child class, if its objects can be marked. It starts anew after each removal, because the count
    // has changed.
    void Write(const ChildEmitter& emit);

  private:
    int k_ = 0;
};

} // namespace veldrane
