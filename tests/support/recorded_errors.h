#pragma once

#include "ports/error_report.h"

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
    }

    std::vector<RecordedError> Reported;
};

} // namespace veldrane::testing
