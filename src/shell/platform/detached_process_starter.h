#pragma once

#include "ports/process_starter.h"

namespace veldrane {

// Starts programs that go on by themselves: found along PATH when the name has no slash, in a session of their own,
// with an empty standard input and this program's outputs. They are no children of this program: nothing is left to
// be waited for.
class DetachedProcessStarter : public ProcessStarter
{
  public:
    void Start(const std::vector<std::string>& command) override;
};

} // namespace veldrane
