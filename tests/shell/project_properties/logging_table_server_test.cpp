// The table of the log, made on SQL Server, played by a stand-in.

#include "datasource/odbc/odbc_connection.h"
#include "shell/project_properties/frm_logging_table.h"
#include "shell/project_properties/logging_table_script.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"
#include "support/tds_server.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::TdsBatches;
using testing::TdsMoment;
using testing::TdsServer;
using testing::TdsTemper;

class LoggingTableOnServer : public ::testing::Test
{
  protected:
    frmLoggingTable Open(const TdsServer& server)
    {
        return {{.TableName = "Journal", .ConnectionString = server.ConnectionString()},
                {.Connect = connect,
                 .Files = files,
                 .Dialogs = dialogs,
                 .Messages = messages,
                 .Errors = errors,
                 .CodePage = codePage}};
    }

    OpenDataSource connect = [](const std::string& text, StringOrigin origin) {
        auto connection = std::make_unique<OdbcConnection>(OdbcConnectionOptions{.Origin = origin});
        connection->Open(text);
        return connection;
    };
    std::shared_ptr<TdsBatches> carriedOut = std::make_shared<TdsBatches>();
    testing::MemoryFileSystem files;
    testing::ScriptedFileDialogs dialogs;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    text::CodePage codePage;
};

TEST_F(LoggingTableOnServer, IsMadeBatchByBatchWithoutTheWordThatDividesThem)
{
    const TdsServer server({.CarriedOut = carriedOut});
    frmLoggingTable form = Open(server);
    EXPECT_TRUE(form.cmdCreate_Click());
    EXPECT_THAT(errors.Reported, IsEmpty());
    EXPECT_EQ(carriedOut->All(), Batches(form.txtScript()));
    EXPECT_EQ(messages.Asked().size(), 1U);
}

TEST_F(LoggingTableOnServer, ThatIsThereAlreadyIsToldInTheServersWords)
{
    const TdsServer server({.Tables = {{.Name = "Journal", .Columns = {{"x", "int"}}}}, .CarriedOut = carriedOut});
    frmLoggingTable form = Open(server);
    EXPECT_FALSE(form.cmdCreate_Click());
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_THAT(errors.Reported[0].Error.Description(),
                HasSubstr("There is already an object named 'Journal' in the database."));
    EXPECT_THAT(carriedOut->All(), IsEmpty());
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(LoggingTableOnServer, ALoginThatIsRefusedIsReported)
{
    const TdsServer server({.CarriedOut = carriedOut});
    frmLoggingTable form({.TableName = "Journal", .ConnectionString = server.ConnectionString("ann", "wrong", "shop")},
                         {.Connect = connect,
                          .Files = files,
                          .Dialogs = dialogs,
                          .Messages = messages,
                          .Errors = errors,
                          .CodePage = codePage});
    EXPECT_FALSE(form.cmdCreate_Click());
    EXPECT_EQ(errors.Reported.size(), 1U);
}

TEST_F(LoggingTableOnServer, AServerThatHangsUpIsReported)
{
    const TdsServer server({.CarriedOut = carriedOut}, {.Temper = TdsTemper::HangsUp, .From = TdsMoment::Question});
    frmLoggingTable form = Open(server);
    EXPECT_FALSE(form.cmdCreate_Click());
    EXPECT_EQ(errors.Reported.size(), 1U);
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

} // namespace
} // namespace veldrane
