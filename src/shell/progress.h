#pragma once

#include <string>

namespace veldrane {

// Whoever watches a run is told how far it is, in lines and hundredths.
class Progress
{
  public:
    virtual ~Progress() = default;

    // What the run does from now on; told before a call that may take long.
    virtual void Stage(int percent, const std::string& line) = 0;

    // One of many things of a stage is done. May be passed over, where they follow fast.
    virtual void Step(int percent, const std::string& line) = 0;
};

// For a run that nobody watches.
class NoProgress : public Progress
{
  public:
    void Stage(int /*percent*/, const std::string& /*line*/) override {}
    void Step(int /*percent*/, const std::string& /*line*/) override {}
};

} // namespace veldrane
