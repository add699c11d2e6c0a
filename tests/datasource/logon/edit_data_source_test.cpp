#include "datasource/logon/edit_data_source.h"

#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <vector>

namespace veldrane {
namespace {

using Purposes = std::vector<LogonPurpose>;

class LogonEntryPoints : public ::testing::Test
{
  protected:
    TTCProject project;
    Purposes shown;
    ShowLogon show = [this](LogonPurpose purpose) { shown.push_back(purpose); };
};

TEST_F(LogonEntryPoints, EditingADataSourceIsAskedForWordByWordAndThenShowsTheDialog)
{
    testing::ScriptedMessages messages({Answer::Yes});
    EditDataSource(messages, show);
    EXPECT_EQ(shown, Purposes{LogonPurpose::EditDataSource});
    ASSERT_EQ(messages.Asked().size(), 1U);
    const Question& question = messages.Asked().front();
    EXPECT_EQ(question.Title, "Edit DataSource Message");
    EXPECT_EQ(question.Text,
              "Warning! Changing DataSources may render this project unusable. Only change your data source if: \r\n"
              "  1) The new DataSource has the same structure as the existing DataSource\r\n"
              "OR 2) The existing DataSource is moving locations (i.e. to a different directory or server)\r\n"
              "\r\n"
              "Are you sure you want to edit the DataSource?");
    EXPECT_EQ(question.Offered, Buttons::YesNo);
    EXPECT_EQ(question.Icon, MessageIcon::None);
    EXPECT_EQ(question.Default, Answer::No);
}

TEST_F(LogonEntryPoints, NoLeavesTheDataSourceAsItIs)
{
    testing::ScriptedMessages messages({Answer::No});
    EditDataSource(messages, show);
    EXPECT_TRUE(shown.empty());
}

TEST_F(LogonEntryPoints, AProjectWithoutADataSourceIsAskedForOne)
{
    OpenDatasource(project, OpenDatasourceFor::ProjectWithoutOne, show);
    EXPECT_EQ(shown, Purposes{LogonPurpose::NewDataSource});
}

TEST_F(LogonEntryPoints, AProjectThatHasADataSourceGetsAnotherOnlyByTheUsersChoice)
{
    project.SetConnectionString("PROVIDER=MSDASQL;DSN=Shop;");
    OpenDatasource(project, OpenDatasourceFor::ProjectWithoutOne, show);
    EXPECT_TRUE(shown.empty());
    OpenDatasource(project, OpenDatasourceFor::UsersChoice, show);
    EXPECT_EQ(shown, Purposes{LogonPurpose::NewDataSource});
    EXPECT_EQ(project.ConnectionString(), "PROVIDER=MSDASQL;DSN=Shop;");
}

} // namespace
} // namespace veldrane
