#pragma once

#include "ports/reading_watch.h"
#include "text/runtime_error.h"

#include <exception>
#include <string>
#include <string_view>

namespace veldrane {

// Where a failure was met, and what the person may do about it.
struct ErrorPlace
{
    std::string ModuleName;
    std::string RoutineName;
    int Mode = 1;       // 1 and 2: a report with the error's facts; 4: the hint alone
    std::string Hint{}; // shown behind the report; may be empty
};

// The one sink of every failure that a routine traps at its own level.
class ErrorReport
{
  public:
    virtual ~ErrorReport() = default;

    // Reports the error and returns. Never throws.
    virtual void ReportError(const RuntimeError& error, const ErrorPlace& place) = 0;
};

// Runs `body`; a failure is reported as met at the place, and goes no further. Returns whether the body came to its
// end. ReadingCancelled is no failure and goes on.
template <class Body>
bool Guarded(ErrorReport& report, const ErrorPlace& place, Body&& body)
{
    try {
        body();
        return true;
    } catch (const ReadingCancelled&) {
        throw;
    } catch (const RuntimeError& error) {
        report.ReportError(error, place);
    } catch (const std::exception& error) {
        report.ReportError(RuntimeError(error_number::kInvalidCall, "Veldrane", error.what()), place);
    }
    return false;
}

// The same for a report of the ordinary kind, without a hint.
template <class Body>
bool Guarded(ErrorReport& report, std::string_view moduleName, std::string_view routineName, Body&& body)
{
    return Guarded(report, {.ModuleName = std::string(moduleName), .RoutineName = std::string(routineName)}, body);
}

} // namespace veldrane
