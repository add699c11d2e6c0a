#include "datasource/odbc/failure_hint.h"
#include "sample_drivers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

// The driver itself waits for it for a quarter of a minute, unless three times the limit are over before.
TEST(SqlServerHint, APortIsTheRemedyForAnInstanceThatIsNotTold)
{
    const FailureScene scene{.Logon = {.Text = {}, .Server = "db\\sales", .Keys = {.Server = "Data Source"}}};
    EXPECT_EQ(HintOnConnecting({{.NativeError = 20009, .SQLState = "08S01"}}, scene),
              "No port was told for the instance \"db\\sales\": name the port in its place (\"Data "
              "Source=host,port\"), or check the names and that the server's browser service can be reached.");
}

std::string HintFor(const std::string& text, const ADOError& record)
{
    return HintOnConnecting({record}, {.Logon = BuildOdbcLogon(ConnectionString(text), SampleDrivers(), {})});
}

TEST(SqlServerHint, NamesTheKeysOfTheString)
{
    const ADOError login{.NativeError = 18456, .SQLState = "42000"};
    const ADOError database{.NativeError = 4060, .SQLState = "42000"};
    const ADOError refused{.NativeError = 20009, .SQLState = "08S01"};
    const ADOError stranger{.NativeError = 20002, .SQLState = "08001"};
    const std::string own = "PROVIDER=SQLOLEDB;Data Source=db;User ID=a;Password=b;Initial Catalog=c;";
    const std::string odbc = "PROVIDER=SQLOLEDB;Server=db;Port=1;UID=a;PWD=b;Database=c;";
    EXPECT_THAT(HintFor(own, login), HasSubstr("(\"User ID\", \"Password\")"));
    EXPECT_THAT(HintFor(odbc, login), HasSubstr("(\"UID\", \"PWD\")"));
    EXPECT_THAT(HintFor(own, database), HasSubstr("(\"Initial Catalog\")"));
    EXPECT_THAT(HintFor(odbc, database), HasSubstr("(\"Database\")"));
    for (const ADOError& record : {refused, stranger}) {
        EXPECT_THAT(HintFor(own, record), HasSubstr("connection string (\"Data Source\"), and"));
        EXPECT_THAT(HintFor(odbc, record), HasSubstr("connection string (\"Server\", \"Port\"), and"));
        EXPECT_THAT(HintFor("Driver=FreeTDS;Server=db;UID=a;", record), HasSubstr("(\"Server\", \"Port\"), and"));
    }
    EXPECT_THAT(HintFor("PROVIDER=SQLOLEDB;Address=db;", {.Description = "Unknown host machine name"}),
                HasSubstr("(\"Address\")"));
    EXPECT_THAT(HintFor("Driver=FreeTDS;Server=db;Trusted_Connection=Yes;", stranger),
                AllOf(HasSubstr("(\"Trusted_Connection\")"), HasSubstr("(\"UID\", \"PWD\")")));
}

} // namespace
} // namespace veldrane
