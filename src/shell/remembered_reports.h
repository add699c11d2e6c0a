#pragma once

#include "ports/error_report.h"

namespace veldrane {

// Passes reports on and remembers that there was one: a run that goes on after a failure has not done all it was asked.
class RememberedReports : public ErrorReport
{
  public:
    explicit RememberedReports(ErrorReport& report) : report_(report) {}

    void ReportError(const RuntimeError& error, const ErrorPlace& place) override
    {
        any_ = true;
        report_.ReportError(error, place);
    }

    [[nodiscard]] bool Any() const { return any_; }

  private:
    ErrorReport& report_;
    bool any_ = false;
};

} // namespace veldrane
