// An SQL Server that does not open or does not answer as it should: what the user reads, and that the project stays as
// it was.

#include "support/tds_server.h"
#include "untouched_project.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using testing::TdsEndless;
using testing::TdsMoment;
using testing::TdsServer;
using testing::TdsTemper;

const std::string kEdit =
    " If you would like to modify your DataSource, you may do so by selecting Project|Edit DataSource from the menu.";
const std::string kStranger =
    "What answers there hung up or is no server of this kind: check the server and the port of the connection string "
    "(\"Server\", \"Port\"), and that the driver suits the server." +
    kEdit;
const std::string kGone =
    "The server closed the connection, or gave no answer within 1 second (\"StatementTimeout\" in "
    "the section Platform of the settings).";

const std::string kGivenUp =
    "The answer did not come to its end. The statement was given up after 1 second: set \"StatementTimeout\" in the "
    "section Platform of the settings to more seconds.";

class SqlServerFailures : public ::testing::Test
{
  protected:
    SqlServerFailures() { Settings(""); }

    void Settings(const std::string& more) const
    {
        Project.Workspace.WriteFile("settings.ini", "[Platform]\nConnectTimeout=1\nStatementTimeout=1\n" + more);
    }

    [[nodiscard]] std::string FailureOf(TdsTemper temper, TdsMoment from) const
    {
        return FailureOf({.Temper = temper, .From = from});
    }

    [[nodiscard]] std::string FailureOf(const testing::TdsManners& manners) const
    {
        const TdsServer server({.Tables = {{.Name = "T", .Columns = {{"a", "int"}}}}}, manners);
        return Project.FailureOn(server.ConnectionString());
    }

    // A driver that waits for a byte in vain waits for its own limit once more. With two seconds, that is later than
    // the end of the statement's time.
    [[nodiscard]] std::string FailureOnSlowQuestion(TdsTemper temper) const
    {
        Project.Workspace.WriteFile("settings.ini", "[Platform]\nConnectTimeout=1\nStatementTimeout=2\n");
        return FailureOf(temper, TdsMoment::Question);
    }

    testing::UntouchedProject Project;
};

TEST_F(SqlServerFailures, AWrongPasswordIsToldWithTheUsersName)
{
    const TdsServer server({});
    EXPECT_EQ(Project.FailureOn(server.ConnectionString("ann", "hush-hush", "shop")),
              "veldrane: Login failed for user 'ann'. Unable to connect to data source. Check the user's name and the "
              "password of the connection string (\"UID\", \"PWD\")." +
                  kEdit);
}

TEST_F(SqlServerFailures, AnUnknownDatabaseIsNamed)
{
    const TdsServer server({});
    EXPECT_THAT(Project.FailureOn(server.ConnectionString("ann", "secret", "nowhere")),
                AllOf(HasSubstr("Cannot open database \"nowhere\" requested by the login. The login failed."),
                      EndsWith("Check the database's name in the connection string (\"Database\"), and that the login "
                               "may use it." +
                               kEdit)));
}

TEST_F(SqlServerFailures, ALoginByTheSystemTakesATicket)
{
    const TdsServer server({});
    EXPECT_THAT(
        Project.FailureOn("PROVIDER=SQLOLEDB;Data Source=" + server.Address() + ";Integrated Security=SSPI;"),
        EndsWith("A login by the system (\"Integrated Security\") takes a Kerberos ticket, which \"kinit\" gets "
                 "and \"klist\" shows; or give a user's name and a password (\"User ID\", \"Password\")." +
                 kEdit));
}

TEST_F(SqlServerFailures, ARefusedPortAndAnUnknownHostAreNamed)
{
    EXPECT_THAT(Project.FailureOn("PROVIDER=SQLOLEDB;Data Source=127.0.0.1,1;User ID=a;Password=b;"),
                EndsWith("Check the server and the port of the connection string (\"Server\", \"Port\"), and that the "
                         "server runs." +
                         kEdit));
    EXPECT_THAT(Project.FailureOn("PROVIDER=SQLOLEDB;Data Source=no-such-host.invalid;User ID=a;Password=b;"),
                EndsWith("Check the server's name in the connection string (\"Server\")." + kEdit));
}

TEST_F(SqlServerFailures, AServerThatFallsSilentIsGivenUpAfterTheTimeOfTheSettings)
{
    for (const TdsMoment from : {TdsMoment::Greeting, TdsMoment::Login})
        EXPECT_THAT(
            FailureOf(TdsTemper::Silent, from),
            AllOf(StartsWith("veldrane: Timeout expired."), HasSubstr("did not answer within 1 second: "),
                  EndsWith("set \"ConnectTimeout\" in the section Platform of the settings to more seconds." + kEdit)));
    EXPECT_THAT(FailureOnSlowQuestion(TdsTemper::Silent), HasSubstr("The statement was given up after 2 seconds: "));
}

TEST_F(SqlServerFailures, AProjectCannotHaveTheDriverGuessTheVersionAndWaitForEachGuess)
{
    const TdsServer server({}, {.Temper = TdsTemper::Silent, .From = TdsMoment::Greeting});
    for (const std::string version : {"", "auto", "5.0"})
        EXPECT_THAT(Project.FailureOn(server.ConnectionString() + "TDS_Version=" + version + ";"),
                    HasSubstr("did not answer within 1 second: "));
}

TEST_F(SqlServerFailures, AnInstanceWhosePortNobodyTellsIsGivenUpAfterThreeTimesTheLimit)
{
    EXPECT_THAT(Project.FailureOn("PROVIDER=SQLOLEDB;Data Source=127.0.0.1\\sales;User ID=a;Password=b;"),
                AllOf(StartsWith("veldrane: Timeout expired."),
                      HasSubstr("The server \"127.0.0.1\\sales\" did not answer within 1 second: name the port in "
                                "place of the instance (\"Data Source=host,port\"), or set \"ConnectTimeout\"")));
}

TEST_F(SqlServerFailures, AServerThatClosesTheConnectionIsTold)
{
    for (const TdsTemper temper : {TdsTemper::HangsUp, TdsTemper::BreaksOff}) {
        EXPECT_THAT(FailureOf(temper, TdsMoment::Greeting), EndsWith(kStranger));
        EXPECT_THAT(FailureOf(temper, TdsMoment::Login), EndsWith(kStranger));
        EXPECT_THAT(FailureOf(temper, TdsMoment::Question), HasSubstr(kGone));
    }
}

TEST_F(SqlServerFailures, NonsenseIsNoAnswer)
{
    for (const TdsMoment from : {TdsMoment::Greeting, TdsMoment::Login})
        EXPECT_THAT(FailureOf(TdsTemper::Babbles, from), StartsWith("veldrane: Timeout expired."));
    EXPECT_THAT(FailureOnSlowQuestion(TdsTemper::Babbles), HasSubstr("The statement was given up after 2 seconds: "));
}

TEST_F(SqlServerFailures, AnAnswerWithoutEndIsCutOff)
{
    EXPECT_THAT(FailureOf(TdsTemper::NeverEnds, TdsMoment::Greeting), EndsWith(kStranger)); // a greeting is short
    EXPECT_THAT(
        FailureOf(TdsTemper::NeverEnds, TdsMoment::Login),
        AllOf(StartsWith("veldrane: Timeout expired."), HasSubstr("did not answer within 1 second: "),
              EndsWith("set \"ConnectTimeout\" in the section Platform of the settings to more seconds." + kEdit)));
    EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = TdsEndless::Changes}), HasSubstr(kGivenUp));
    EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = TdsEndless::Rows}),
                AnyOf(HasSubstr(kGivenUp), HasSubstr("The answer has more than 1000000 rows."))); // which comes first
}

TEST_F(SqlServerFailures, AnAnswerThatComesInDribletsIsCutOffThoughNoneIsLongInComing)
{
    constexpr std::chrono::milliseconds pause(400);
    for (const TdsEndless endless : {TdsEndless::Rows, TdsEndless::Changes, TdsEndless::Messages})
        EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = endless, .Pause = pause}),
                    HasSubstr(kGivenUp));
    EXPECT_THAT(FailureOf({.Temper = TdsTemper::Drips, .Pause = pause}), HasSubstr(kGivenUp));
}

TEST_F(SqlServerFailures, RowsWithoutEndBehindATableThatIsOpenedAreNotReadToTheirEnd)
{
    EXPECT_THAT(FailureOf(TdsTemper::NeverEnds, TdsMoment::Opening), HasSubstr(kGivenUp));
}

TEST_F(SqlServerFailures, ADriverThatIsNotSetUpIsNamedWithItsSetting)
{
    Settings("TdsDriver=My TDS\n");
    EXPECT_EQ(
        Project.FailureOn("PROVIDER=SQLOLEDB;Data Source=db;Integrated Security=SSPI;"),
        "veldrane: There is no ODBC driver named \"My TDS\" on this machine, by which SQL Server would be reached: "
        "\"odbcinst -q -d\" lists those that are set up; \"TdsDriver\" in the section Platform of the settings "
        "names another." +
            kEdit);
}

} // namespace
} // namespace veldrane
