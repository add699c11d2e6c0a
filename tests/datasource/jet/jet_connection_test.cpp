#include "datasource/jet/jet_connection.h"

#include "datasource/ado_types.h"
#include "support/recorded_watch.h"
#include "support/scripted_programs.h"

#include <gmock/gmock.h>

#include <csignal>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ScriptedPrograms;
using ::testing::SizeIs;

const std::string kProvider = "PROVIDER=Microsoft.Jet.OLEDB.4.0;";
const std::string kShop = kProvider + "Data Source=/data/shop.mdb;";

const std::string kAnswer = "veldrane-jet 1\n"
                            "table\tMSysObjects\tSYSTEM TABLE\n"
                            "table\tOrders\tTABLE\n"
                            "column\tID\t3\t4\t0\tauto\n"
                            "index\tPrimaryKey\tprimary\tunique\n"
                            "index column\tID\n"
                            "table\tOrder Lines\tTABLE\n"
                            "column\tOrderID\t3\t4\t96\t-\n"
                            "column\tText\t202\t50\t96\t-\n"
                            "table\tElsewhere\tLINK\n"
                            "query\tOpen Orders\tview\n"
                            "column\tID\t3\t4\t0\tauto\n"
                            "query\tPurge\tprocedure\n"
                            "query\tAll Names\tview\n"
                            "relationship\tOrdersLines\torder lines\tOrders\n"
                            "relationship column\tOrderID\tID\n"
                            "relationship\tToElsewhere\tElsewhere\tOrders\n"
                            "relationship column\tOrderID\tID\n"
                            "end\n";

class JetConnectionTest : public ::testing::Test
{
  protected:
    JetConnectionTest() { programs.Outcome.Output = kAnswer; }

    std::unique_ptr<Catalog> OpenShop()
    {
        connection.Open(kShop);
        return connection.OpenCatalog();
    }

    DataSourceError FailureToOpen(const std::string& text = kShop)
    {
        try {
            connection.Open(text);
        } catch (const DataSourceError& error) {
            EXPECT_FALSE(connection.IsOpen());
            EXPECT_EQ(connection.ConnectionString(), "");
            return error;
        }
        return {0, "", ""};
    }

    std::string RefusalFor(const std::string& reason, const std::string& words = "")
    {
        programs.Outcome.Output = "veldrane-jet 1\nrefused\t" + reason + "\t" + words + "\nend\n";
        return FailureToOpen().Description();
    }

    ScriptedPrograms programs;
    JetConnection connection{programs, {.Folder = "/opt/veldrane", .Timeout = std::chrono::seconds(7)}};
};

template <class Question>
long NumberOf(Question&& question)
{
    try {
        question();
    } catch (const DataSourceError& error) {
        return error.Number;
    }
    return 0;
}

TEST_F(JetConnectionTest, RunsTheReaderOfItsFolderUnderLimits)
{
    connection.Open(kShop + "Jet OLEDB:Database Password=geheim;");
    ASSERT_THAT(programs.Calls, SizeIs(1));
    EXPECT_THAT(programs.Calls[0].Command, ElementsAre("/opt/veldrane/veldrane-jet", "/data/shop.mdb"));
    EXPECT_EQ(programs.Calls[0].Input, "geheim");
    EXPECT_EQ(programs.Calls[0].Limits.Time, std::chrono::seconds(7));
    EXPECT_GT(programs.Calls[0].Limits.OutputBytes, 0U);
}

TEST_F(JetConnectionTest, LetsWhoeverWatchesFollowTheReader)
{
    testing::RecordedWatch watch;
    JetConnection watched(programs, {.Folder = "/opt/veldrane", .Watch = &watch});
    watched.Open(kShop);
    EXPECT_EQ(programs.Calls.at(0).Limits.Watch, &watch);
    connection.Open(kShop);
    EXPECT_EQ(programs.Calls.at(1).Limits.Watch, nullptr);
}

TEST_F(JetConnectionTest, KeepsItsStringWhileItIsOpen)
{
    connection.Open(kShop);
    EXPECT_TRUE(connection.IsOpen());
    EXPECT_EQ(connection.ConnectionString(), kShop);
    connection.Close();
    EXPECT_FALSE(connection.IsOpen());
    EXPECT_EQ(connection.ConnectionString(), "");
    EXPECT_EQ(NumberOf([&] { static_cast<void>(connection.OpenCatalog()); }), data_source_error::kNoOpenConnection);
}

TEST_F(JetConnectionTest, ClosesWhatWasOpenWhenAnotherFileDoesNotOpen)
{
    connection.Open(kShop);
    programs.Outcome.Output = "nonsense";
    EXPECT_EQ(FailureToOpen().Number, data_source_error::kFailed);
}

TEST_F(JetConnectionTest, ListsTablesAndViewsAndNothingThatLiesElsewhere)
{
    const auto catalog = OpenShop();
    std::vector<std::string> listed;
    for (const CatalogTable& table : catalog->Tables())
        listed.push_back(table.Type + ":" + table.Name);
    EXPECT_THAT(listed, ElementsAre("SYSTEM TABLE:MSysObjects", "TABLE:Orders", "TABLE:Order Lines", "VIEW:Open Orders",
                                    "VIEW:All Names"));
}

TEST_F(JetConnectionTest, OpensTablesAndViewsForTheirFields)
{
    const auto catalog = OpenShop();
    EXPECT_THAT(catalog->Fields("SELECT * FROM Orders WHERE 1=0"), SizeIs(1));
    EXPECT_THAT(catalog->Fields("SELECT * FROM [Order Lines] WHERE 1=0"), SizeIs(2));
    EXPECT_TRUE(catalog->Fields("SELECT * FROM [Open Orders] WHERE 1=0").at(0).IsAutoIncrement);
    const std::vector<CatalogColumn> columns = catalog->Columns("Order Lines");
    ASSERT_THAT(columns, SizeIs(2));
    EXPECT_EQ(columns[1].Name, "Text");
    EXPECT_EQ(columns[1].Type, adVarWChar);
}

TEST_F(JetConnectionTest, LooksNamesUpWithoutRegardToCaseAfterTheExactOnes)
{
    programs.Outcome.Output = "veldrane-jet 1\n"
                              "table\tORDERS\tTABLE\n"
                              "column\tx\t3\t4\t0\t-\n"
                              "table\tOrders\tTABLE\n"
                              "column\ty\t3\t4\t0\t-\n"
                              "end\n";
    const auto catalog = OpenShop();
    EXPECT_EQ(catalog->Columns("Orders").at(0).Name, "y");
    EXPECT_EQ(catalog->Columns("orders").at(0).Name, "x");
}

TEST_F(JetConnectionTest, DoesNotKnowATableThatIsNotThereOrLiesElsewhere)
{
    const auto catalog = OpenShop();
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Fields("SELECT * FROM Nowhere WHERE 1=0")); }),
              data_source_error::kTableUnknown);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Fields("SELECT * FROM Elsewhere WHERE 1=0")); }),
              data_source_error::kTableUnknown);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Fields("SELECT * FROM Purge WHERE 1=0")); }),
              data_source_error::kTableUnknown);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Indexes("Nowhere")); }), data_source_error::kTableUnknown);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Keys("Nowhere")); }), data_source_error::kTableUnknown);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Fields("DELETE FROM Orders")); }), data_source_error::kFailed);
}

TEST_F(JetConnectionTest, RefusesAViewWhoseColumnsNobodyCanTell)
{
    const auto catalog = OpenShop();
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Fields("SELECT * FROM [All Names] WHERE 1=0")); }),
              data_source_error::kFailed);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Columns("All Names")); }), data_source_error::kFailed);
}

TEST_F(JetConnectionTest, SaysWhyThereAreNoColumns)
{
    const auto catalog = OpenShop();
    const auto reasonFor = [&](const std::string& table) {
        try {
            static_cast<void>(catalog->Columns(table));
        } catch (const DataSourceError& error) {
            return error.Description();
        }
        return std::string();
    };
    EXPECT_EQ(reasonFor("All Names"), "The columns of \"All Names\" can't be told without running it, which only the "
                                      "Jet engine can.");
    EXPECT_EQ(reasonFor("MSysObjects"), "The table \"MSysObjects\" has no columns: add some to it.");
}

TEST_F(JetConnectionTest, TellsIndexesAndTheKeysOfTheTableItself)
{
    const auto catalog = OpenShop();
    EXPECT_TRUE(catalog->Indexes("Orders").at(0).PrimaryKey);
    EXPECT_THAT(catalog->Indexes("Order Lines"), IsEmpty());
    EXPECT_THAT(catalog->Indexes("Open Orders"), IsEmpty());
    EXPECT_THAT(catalog->Keys("Orders"), IsEmpty());
    const std::vector<CatalogKey> keys = catalog->Keys("Order Lines");
    ASSERT_THAT(keys, SizeIs(1));
    EXPECT_EQ(keys[0].Name, "OrdersLines");
    EXPECT_EQ(keys[0].RelatedTable, "Orders");
}

TEST_F(JetConnectionTest, TellsProceduresWithoutParameters)
{
    const auto catalog = OpenShop();
    EXPECT_THAT(catalog->Procedures(), ElementsAre("Purge"));
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->ProcedureParameters()); }), data_source_error::kNotSupported);
}

TEST_F(JetConnectionTest, ReadsTheFileAnewForEachCatalogAtItsFirstQuestion)
{
    const auto first = OpenShop();
    EXPECT_THAT(programs.Calls, SizeIs(1));
    EXPECT_THAT(first->Tables(), SizeIs(5));
    EXPECT_THAT(first->Procedures(), SizeIs(1));
    EXPECT_THAT(programs.Calls, SizeIs(2));
    programs.Outcome.Output = "veldrane-jet 1\ntable\tNew\tTABLE\nend\n";
    const auto second = connection.OpenCatalog();
    EXPECT_THAT(second->Tables(), SizeIs(1));
    EXPECT_THAT(first->Tables(), SizeIs(5));
    EXPECT_THAT(programs.Calls, SizeIs(3));
}

TEST_F(JetConnectionTest, ItsCatalogsFailOnceItIsClosed)
{
    const auto catalog = OpenShop();
    EXPECT_THAT(catalog->Tables(), SizeIs(5));
    connection.Close();
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Tables()); }), data_source_error::kNoOpenConnection);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Keys("Orders")); }), data_source_error::kNoOpenConnection);
}

TEST_F(JetConnectionTest, AFileThatBecameUnreadableSinceFailsInTheCatalog)
{
    const auto catalog = OpenShop();
    programs.Outcome.Output = "veldrane-jet 1\nrefused\tmissing\t\nend\n";
    EXPECT_EQ(NumberOf([&] { static_cast<void>(catalog->Tables()); }), data_source_error::kFailed);
    programs.Outcome.Output = kAnswer;
    EXPECT_THAT(catalog->Tables(), SizeIs(5));
}

TEST_F(JetConnectionTest, SaysWhyAFileIsNotRead)
{
    EXPECT_EQ(RefusalFor("missing"),
              "There is no file \"/data/shop.mdb\": check \"Data Source\" in the connection string.");
    EXPECT_EQ(RefusalFor("not-a-file"),
              "\"/data/shop.mdb\" is not a file: give the path of a Jet file (.mdb) as \"Data Source\" of the "
              "connection string.");
    EXPECT_EQ(RefusalFor("unreadable"),
              "\"/data/shop.mdb\" can't be read: check the rights to the file and to its folder.");
    EXPECT_EQ(RefusalFor("not-jet"),
              "Unrecognized database format: \"/data/shop.mdb\" is no Jet file of version 3 or 4 (.mdb): check \"Data "
              "Source\" in the connection string.");
    EXPECT_EQ(RefusalFor("ace"),
              "Unrecognized database format: \"/data/shop.mdb\" is a file of the engine that came after Jet (.accdb): "
              "save it as a Jet file of version 3 or 4 (.mdb).");
    EXPECT_EQ(RefusalFor("code-page", "932"),
              "\"/data/shop.mdb\" has its text in a code page for which this system has no converter (932): install "
              "the character sets of the C library, or save it as a Jet file of version 4.");
    EXPECT_EQ(RefusalFor("damaged"),
              "\"/data/shop.mdb\" is damaged: repair it with the program that made it, or take a sound copy.");
}

TEST_F(JetConnectionTest, PassesOnWhatTheReaderSays)
{
    EXPECT_EQ(RefusalFor("damaged", "page 7 is not there"),
              "\"/data/shop.mdb\" is damaged (page 7 is not there): repair it with the program that made it, or take a "
              "sound copy.");
    EXPECT_EQ(RefusalFor("unreadable", "Permission denied"),
              "\"/data/shop.mdb\" can't be read (Permission denied): check the rights to the file and to its folder.");
    EXPECT_EQ(RefusalFor("unreachable", "Too many levels of symbolic links"),
              "\"/data/shop.mdb\" can't be reached (Too many levels of symbolic links): check \"Data Source\" in the "
              "connection string.");
    EXPECT_EQ(RefusalFor("failing", "Input/output error"),
              "\"/data/shop.mdb\" could not be read (Input/output error): try again, and if it stays so, see to the "
              "disk that it is on.");
    EXPECT_EQ(RefusalFor("missing", "No such file or directory"),
              "There is no file \"/data/shop.mdb\": check \"Data Source\" in the connection string.");
}

TEST_F(JetConnectionTest, NamesTheKeyOfAPasswordThatIsMissingOrWrong)
{
    EXPECT_EQ(RefusalFor("password"),
              "\"/data/shop.mdb\" wants a password: give it as \"Jet OLEDB:Database Password\" in the connection "
              "string.");
    EXPECT_EQ(FailureToOpen(kShop + "Jet OLEDB:Database Password=geheim;").Description(),
              "The password is not that of \"/data/shop.mdb\": correct \"Jet OLEDB:Database Password\" in the "
              "connection string.");
}

TEST_F(JetConnectionTest, SaysThatTheReaderIsMissing)
{
    programs.Failure = "/opt/veldrane/veldrane-jet: No such file or directory";
    EXPECT_EQ(FailureToOpen().Description(),
              "The program that reads Jet files can't be started (/opt/veldrane/veldrane-jet: No such file or "
              "directory): install it in the folder of this program.");
    programs.Failure.clear();
    programs.Outcome = {.End = ProgramEnd::Exited, .Code = 127, .Output = ""};
    EXPECT_EQ(FailureToOpen().Description(),
              "The program that reads Jet files, \"/opt/veldrane/veldrane-jet\", does not start: install the library "
              "that it wants (libmdb3).");
}

TEST_F(JetConnectionTest, SaysThatALimitWasMet)
{
    programs.Outcome = {.End = ProgramEnd::OutOfTime, .Code = SIGKILL, .Output = kAnswer};
    EXPECT_EQ(FailureToOpen().Description(),
              "\"/data/shop.mdb\" could not be read within 7 seconds: take a sound copy of it, or set "
              "\"ConnectTimeout\" in the section Platform of the settings to more seconds.");
    for (const ProgramOutcome& outcome : {ProgramOutcome{ProgramEnd::Signalled, SIGXCPU, kAnswer},
                                          ProgramOutcome{ProgramEnd::Signalled, SIGKILL, kAnswer},
                                          ProgramOutcome{ProgramEnd::TooMuchOutput, SIGKILL, kAnswer}}) {
        programs.Outcome = outcome;
        EXPECT_EQ(FailureToOpen().Description(),
                  "Reading \"/data/shop.mdb\" was stopped at a limit of processor time or output: compact and repair "
                  "the file with the program that made it, or take a sound copy.");
    }
}

TEST_F(JetConnectionTest, NoFileIsReadForLongerThanFifteenSeconds)
{
    JetConnection patient{programs, {.Folder = "/opt/veldrane", .Timeout = std::chrono::hours(1)}};
    patient.Open(kShop);
    EXPECT_EQ(programs.Calls.back().Limits.Time, std::chrono::seconds(15));
    programs.Outcome = {.End = ProgramEnd::OutOfTime, .Code = SIGKILL, .Output = ""};
    try {
        patient.Open(kShop);
        FAIL() << "it came to the limit";
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Description(),
                  "\"/data/shop.mdb\" could not be read within 15 seconds: take a sound copy of it.");
    }
}

TEST_F(JetConnectionTest, SaysThatTheReaderFellOver)
{
    for (const int signal : {SIGABRT, SIGSEGV, SIGTRAP}) {
        programs.Outcome = {.End = ProgramEnd::Signalled, .Code = signal, .Output = kAnswer};
        EXPECT_EQ(FailureToOpen().Description(),
                  "The program that reads Jet files fell over \"/data/shop.mdb\", which is damaged most likely: "
                  "compact and repair the file with the program that made it, or take a sound copy.");
    }
}

TEST_F(JetConnectionTest, SaysThatTheReaderCouldNotAnswer)
{
    programs.Outcome = {.End = ProgramEnd::Exited, .Code = 1, .Output = kAnswer};
    EXPECT_EQ(FailureToOpen().Description(),
              "The program that reads Jet files could not answer for \"/data/shop.mdb\" (exit code 1): try again, and "
              "if it stays so, install both programs anew, from the same version.");
}

TEST_F(JetConnectionTest, SaysThatAnAnswerCannotBeUnderstood)
{
    programs.Outcome.Output = "veldrane-jet 2\nend\n";
    EXPECT_EQ(FailureToOpen().Description(),
              "What \"veldrane-jet\" tells of \"/data/shop.mdb\" can't be understood (line 1: not the first line of an "
              "answer): install both programs anew, from the same version.");
}

TEST_F(JetConnectionTest, SaysThatAFileListsMoreThanItCan)
{
    programs.Outcome.Output = "veldrane-jet 1\n" + std::string(1000001, '\n');
    EXPECT_EQ(FailureToOpen().Description(),
              "\"/data/shop.mdb\" is damaged (it lists more than any file holds): repair it with the program that made "
              "it, or take a sound copy.");
}

TEST_F(JetConnectionTest, RunsNothingForAStringThatIsRefused)
{
    EXPECT_EQ(FailureToOpen(kProvider).Number, data_source_error::kFailed);
    EXPECT_EQ(FailureToOpen(kShop + "PASSWORD={open").Number, data_source_error::kFailed);
    EXPECT_THAT(programs.Calls, IsEmpty());
}

} // namespace
} // namespace veldrane
