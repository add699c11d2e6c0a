#pragma once

#include "ports/error_report.h"

#include <functional>
#include <vector>

namespace veldrane::testing {

struct RecordedError
{
    RuntimeError Error;
    ErrorPlace Place;
};

// Keeps what was reported.
class RecordedErrors : public ErrorReport
{
  public:
    void ReportError(const RuntimeError& error, const ErrorPlace& place) override
    {
        Reported.push_back({error, place});
        if (WhileShown)
            WhileShown();
    }

    std::vector<RecordedError> Reported;
    std::function<void()> WhileShown; // what happens while the person reads
};

} // namespace veldrane::testing
