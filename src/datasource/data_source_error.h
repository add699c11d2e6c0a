#pragma once

#include "ports/ado_error.h"
#include "text/runtime_error.h"

#include <string>
#include <utility>
#include <vector>

namespace veldrane {

// The error numbers of a data source that the rules test.
namespace data_source_error {
inline constexpr long kTableUnknown = -2147217865;     // the table is unknown to the provider
inline constexpr long kPermissionDenied = -2147217911; // the login may not do this
inline constexpr long kNoOpenConnection = 3709;
inline constexpr long kNotSupported = 3251;
inline constexpr long kFailed = -2147467259; // anything else that a driver refuses
} // namespace data_source_error

// A failure of the data source: the number that the rules test, and everything that the driver said.
class DataSourceError : public RuntimeError
{
  public:
    DataSourceError(long number, std::string source, const std::string& description, std::vector<ADOError> errors = {})
        : RuntimeError(number, std::move(source), description), Errors(std::move(errors))
    {}

    std::vector<ADOError> Errors; // in the driver's order
};

} // namespace veldrane
