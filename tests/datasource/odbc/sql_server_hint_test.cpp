#include "datasource/odbc/failure_hint.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

// The driver itself waits for it for a quarter of a minute, unless three times the limit are over before.
TEST(SqlServerHint, APortIsTheRemedyForAnInstanceThatIsNotTold)
{
    const FailureScene scene{.Logon = {.Text = {}, .Server = "db\\sales"}};
    EXPECT_EQ(HintOnConnecting({{.NativeError = 20009, .SQLState = "08S01"}}, scene),
              "No port was told for the instance \"db\\sales\": name the port in its place (\"Data "
              "Source=host,port\"), or check the names and that the server's browser service can be reached.");
}

} // namespace
} // namespace veldrane
