// An SQL Server that does not open or does not answer as it should: what the user reads, and that the project stays as
// it was.

#include "support/tds_server.h"
#include "untouched_project.h"

#include <gmock/gmock.h>

#include <arpa/inet.h>
#include <array>
#include <cstdint>
#include <sys/socket.h>
#include <unistd.h>

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
    "(\"Data Source\"), and that the driver suits the server." +
    kEdit;
const std::string kGone =
    "The server closed the connection, or gave no answer within 1 second (\"StatementTimeout\" in "
    "the section Platform of the settings).";

const std::string kGivenUp =
    "The answer did not come to its end. The statement was given up after 1 second: set \"StatementTimeout\" in the "
    "section Platform of the settings to more seconds.";

const std::string kFlooded =
    "The server sends without end: more than 512 KB came in place of an answer. Check the server and the port of the "
    "connection string (\"Data Source\"), and that no procedure or trigger of the server prints messages without end.";

// The service that tells the ports of a machine's instances, on a machine of its own, where it never says a word.
class SilentBrowser
{
  public:
    SilentBrowser() : socket_(socket(AF_INET, SOCK_DGRAM, 0))
    {
        constexpr std::uint16_t kPort = 1434;
        const sockaddr_in address{.sin_family = AF_INET,
                                  .sin_port = htons(kPort),
                                  .sin_addr = {inet_addr(Machine().c_str())},
                                  .sin_zero = {}};
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    }
    SilentBrowser(const SilentBrowser&) = delete;
    SilentBrowser& operator=(const SilentBrowser&) = delete;
    ~SilentBrowser() { close(socket_); }

    // An address of this machine that no other process takes.
    [[nodiscard]] std::string Machine() const
    {
        const pid_t process = getpid();
        return "127." + std::to_string(1 + process / 65536 % 254) + "." + std::to_string(process / 256 % 256) + "." +
               std::to_string(process % 256);
    }

    // What it was asked first, "" if nothing.
    [[nodiscard]] std::string Question() const
    {
        std::array<char, 256> bytes{};
        const ssize_t size = recv(socket_, bytes.data(), bytes.size(), MSG_DONTWAIT);
        return size > 0 ? std::string(bytes.data(), static_cast<std::size_t>(size)) : "";
    }

  private:
    int socket_;
};

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
              "password of the connection string (\"User ID\", \"Password\")." +
                  kEdit);
}

TEST_F(SqlServerFailures, AnUnknownDatabaseIsNamed)
{
    const TdsServer server({});
    EXPECT_THAT(
        Project.FailureOn(server.ConnectionString("ann", "secret", "nowhere")),
        AllOf(HasSubstr("Cannot open database \"nowhere\" requested by the login. The login failed."),
              EndsWith("Check the database's name in the connection string (\"Initial Catalog\"), and that the login "
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
                EndsWith("Check the server and the port of the connection string (\"Data Source\"), and that the "
                         "server runs." +
                         kEdit));
    EXPECT_THAT(Project.FailureOn("PROVIDER=SQLOLEDB;Data Source=no-such-host.invalid;User ID=a;Password=b;"),
                EndsWith("Check the server's name in the connection string (\"Data Source\")." + kEdit));
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
    const SilentBrowser browser;
    const std::string server = browser.Machine() + "\\sales";
    EXPECT_THAT(Project.FailureOn("PROVIDER=SQLOLEDB;Data Source=" + server + ";User ID=a;Password=b;"),
                AllOf(StartsWith("veldrane: Timeout expired."),
                      HasSubstr("The server \"" + server +
                                "\" did not answer within 1 second: name the port in place of the instance (\"Data "
                                "Source=host,port\"), or set \"ConnectTimeout\" in the section Platform of the "
                                "settings to more seconds.")));
    EXPECT_THAT(browser.Question(), HasSubstr("sales"));
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
    EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = TdsEndless::Changes}), HasSubstr(kFlooded));
    EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = TdsEndless::Rows}),
                AnyOf(HasSubstr(kGivenUp), HasSubstr("The answer has more than 1000000 rows."))); // which comes first
}

TEST_F(SqlServerFailures, ALoginThatIsFloodedIsCutOff)
{
    EXPECT_THAT(FailureOf(TdsTemper::NeverEnds, TdsMoment::Login),
                AllOf(StartsWith("veldrane: The server sends without end: more than 64 KB came in place of an answer."),
                      EndsWith("Check the server and the port of the connection string (\"Data Source\"), and that no "
                               "procedure or trigger of the server prints messages without end." +
                               kEdit)));
}

// The driver manager looks through all messages once more for each of them, so there are not too many here.
TEST_F(SqlServerFailures, MessagesWithoutEndAreCutOff)
{
    for (const TdsMoment from : {TdsMoment::Question, TdsMoment::Opening})
        EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .From = from, .Endless = TdsEndless::LongMessages}),
                    HasSubstr(kFlooded));
    EXPECT_THAT(
        FailureOf(
            {.Temper = TdsTemper::NeverEnds, .Endless = TdsEndless::Messages, .Pause = std::chrono::milliseconds(1)}),
        HasSubstr(kGivenUp));
}

TEST_F(SqlServerFailures, AValueWithoutEndIsCutOff)
{
    EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = TdsEndless::Value}), HasSubstr(kFlooded));
}

TEST_F(SqlServerFailures, AFloodIsCutOffLongBeforeTheTimeOfAStatement)
{
    Settings("StatementTimeout=86400\n");
    for (const TdsEndless endless : {TdsEndless::Changes, TdsEndless::LongMessages, TdsEndless::Value})
        EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = endless}), HasSubstr(kFlooded));
}

TEST_F(SqlServerFailures, AnAnswerThatComesInDribletsIsCutOffThoughNoneIsLongInComing)
{
    constexpr std::chrono::milliseconds pause(400);
    for (const TdsEndless endless : {TdsEndless::Rows, TdsEndless::Changes, TdsEndless::Messages, TdsEndless::Value})
        EXPECT_THAT(FailureOf({.Temper = TdsTemper::NeverEnds, .Endless = endless, .Pause = pause}),
                    HasSubstr(kGivenUp));
}

TEST_F(SqlServerFailures, AnAnswerThatComesByteByByteIsCutOff)
{
    constexpr std::chrono::milliseconds pause(300);
    for (const TdsMoment from : {TdsMoment::Greeting, TdsMoment::Login})
        EXPECT_THAT(FailureOf({.Temper = TdsTemper::Drips, .From = from, .Pause = pause}),
                    AllOf(StartsWith("veldrane: Timeout expired."), HasSubstr("\"ConnectTimeout\" in the section")));
    for (const TdsMoment from : {TdsMoment::Question, TdsMoment::Opening})
        EXPECT_THAT(FailureOf({.Temper = TdsTemper::Drips, .From = from, .Pause = pause}), HasSubstr(kGivenUp));
}

TEST_F(SqlServerFailures, RowsWithoutEndBehindATableThatIsOpenedAreNotReadToTheirEnd)
{
    EXPECT_THAT(FailureOf(TdsTemper::NeverEnds, TdsMoment::Opening), AnyOf(HasSubstr(kGivenUp), HasSubstr(kFlooded)));
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
