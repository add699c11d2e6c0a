#include "datasource/logon/edit_data_source.h"

namespace veldrane {

namespace {

bool ConfirmEditDataSource(Messages& messages)
{
    const Question question{
        .Title = "Edit DataSource Message",
        .Text = "Warning! Changing DataSources may render this project unusable. Only change your data source if: \r\n"
                "  1) The new DataSource has the same structure as the existing DataSource\r\n"
                "OR 2) The existing DataSource is moving locations (i.e. to a different directory or server)\r\n\r\n"
                "Are you sure you want to edit the DataSource?",
        .Offered = Buttons::YesNo,
        .Default = Answer::No};
    return messages.Ask(question) == Answer::Yes;
}

} // namespace

void EditDataSource(Messages& messages, const ShowLogon& show)
{
    if (ConfirmEditDataSource(messages))
        show(LogonPurpose::EditDataSource);
}

void OpenDatasource(const TTCProject& project, OpenDatasourceFor reason, const ShowLogon& show)
{
    if (reason == OpenDatasourceFor::UsersChoice || project.ConnectionString().empty())
        show(LogonPurpose::NewDataSource);
}

} // namespace veldrane
