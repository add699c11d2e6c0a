#include "shell/project_properties/frm_logging_table.h"

#include "shell/project_properties/logging_table_script.h"
#include "support/failing_file_system.h"
#include "support/fake_connection.h"
#include "support/recorded_errors.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kServer = "PROVIDER=SQLOLEDB;Server=db;Database=log;UID=u;PWD=p;";

class LoggingTable : public ::testing::Test
{
  protected:
    frmLoggingTable Open(const std::string& connection = kServer)
    {
        return {{.TableName = "Journal", .ConnectionString = connection},
                {.Connect = connect,
                 .Files = files,
                 .Dialogs = dialogs,
                 .Messages = messages,
                 .Errors = errors,
                 .CodePage = codePage}};
    }

    // Keeps the statements behind the connection's end.
    class LastingConnection : public testing::FakeConnection
    {
      public:
        explicit LastingConnection(LoggingTable& test) : test_(test) { FailingStatement = test.failingStatement; }

        void Execute(const std::string& statement) override
        {
            FakeConnection::Execute(statement);
            test_.statements.push_back(statement);
        }

      private:
        LoggingTable& test_;
    };

    std::vector<std::string> connected;
    std::vector<std::string> statements;
    std::size_t failingStatement = static_cast<std::size_t>(-1);
    bool refused = false;
    OpenDataSource connect = [this](const std::string& text, StringOrigin /*origin*/) {
        connected.push_back(text);
        if (refused)
            throw DataSourceError(data_source_error::kFailed, "ODBC", "no such server");
        return std::make_unique<LastingConnection>(*this);
    };
    testing::FailingFileSystem files;
    testing::ScriptedFileDialogs dialogs;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    text::CodePage codePage;
};

TEST_F(LoggingTable, ShowsTheScriptOfItsTable)
{
    EXPECT_EQ(Open().txtScript(), LoggingTableScript("Journal"));
}

TEST_F(LoggingTable, RunsEachBatchOnTheLogsConnectionAndTellsThatItIsThere)
{
    frmLoggingTable form = Open();
    EXPECT_TRUE(form.cmdCreate_Enabled());
    EXPECT_TRUE(form.cmdCreate_Click());
    EXPECT_THAT(connected, ::testing::ElementsAre(kServer));
    EXPECT_EQ(statements, Batches(form.txtScript()));
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Title, "Transaction Logging Table Created");
    EXPECT_EQ(messages.Asked()[0].Text,
              "Database table created successfully. Logging is now fully enabled for this COM object. ");
    EXPECT_THAT(errors.Reported, IsEmpty());
}

TEST_F(LoggingTable, ReportsABatchThatIsRefusedAndStays)
{
    failingStatement = 1;
    frmLoggingTable form = Open();
    EXPECT_FALSE(form.cmdCreate_Click());
    EXPECT_EQ(statements.size(), 1U);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported[0].Place.ModuleName, "frmLoggingTable");
    EXPECT_EQ(errors.Reported[0].Place.RoutineName, "Create Logging Table");
    EXPECT_THAT(errors.Reported[0].Place.Hint, HasSubstr("in part"));
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(LoggingTable, ReportsAConnectionThatIsRefused)
{
    refused = true;
    frmLoggingTable form = Open();
    EXPECT_FALSE(form.cmdCreate_Click());
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported[0].Error.Description(), "no such server");
}

TEST_F(LoggingTable, CanOnlyBeSavedWhereTheConnectionIsNoSqlServers)
{
    for (const char* const connection :
         {"", "DSN=log;", "PROVIDER=MSDASQL;DSN=log;", "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=x.mdb"}) {
        const frmLoggingTable form = Open(connection);
        EXPECT_FALSE(form.cmdCreate_Enabled()) << connection;
        EXPECT_THAT(form.WhyNot(), HasSubstr("save the script")) << connection;
    }
    EXPECT_FALSE(Open("PROVIDER={SQLOLEDB").cmdCreate_Enabled());
}

TEST_F(LoggingTable, SavesTheScriptIntoAFileOfThePersonsChoice)
{
    dialogs.Add("/journal.sql");
    frmLoggingTable form = Open();
    EXPECT_TRUE(form.cmdSave_Click());
    EXPECT_EQ(files.Read("/journal.sql"), form.txtScript());
    EXPECT_EQ(dialogs.AskedToSave()[0].DefaultName, "Journal.sql");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Text, "SQL Script has been saved.");
}

TEST_F(LoggingTable, SavesNothingWhenThePersonCancels)
{
    EXPECT_FALSE(Open().cmdSave_Click());
    EXPECT_THAT(messages.Asked(), IsEmpty());
    EXPECT_THAT(errors.Reported, IsEmpty());
}

} // namespace
} // namespace veldrane
