#pragma once

#include "datasource/connection_policy.h"
#include "ports/ado_error.h"

#include <chrono>
#include <string>
#include <vector>

namespace veldrane {

// What a session was to reach and how long it waits, in the words of its connection string.
struct FailureScene
{
    OdbcLogon Logon;
    std::chrono::seconds ConnectTimeout{0};
    std::chrono::seconds StatementTimeout{0};
};

// What the person may do about a failure that the drivers tell of in words for their own people: sentences that name
// the key of the connection string or of the settings, "" where the driver's words say all there is. A connection that
// was refused is told apart from a statement that failed, for the same record can mean either.
[[nodiscard]] std::string HintOnConnecting(const std::vector<ADOError>& records, const FailureScene& scene);
[[nodiscard]] std::string HintOnStatement(const std::vector<ADOError>& records, const FailureScene& scene);

} // namespace veldrane
