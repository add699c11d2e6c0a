#pragma once

#include "datasource/logon/frm_odbc_logon.h"
#include "model/project.h"
#include "ports/messages.h"

#include <functional>

namespace veldrane {

// Shows the connection dialog for the open project, and returns when it is left.
using ShowLogon = std::function<void(LogonPurpose)>;

// What OpenDatasource is called for.
enum class OpenDatasourceFor
{
    ProjectWithoutOne, // a project that has a connection string keeps it
    UsersChoice,       // whatever the project has
};

// Asks whether the data source of the project is really to be changed, and shows the dialog after a Yes. No leaves
// everything as it is.
void EditDataSource(Messages& messages, const ShowLogon& show);

// Shows the dialog for a data source that is new to the project.
void OpenDatasource(const TTCProject& project, OpenDatasourceFor reason, const ShowLogon& show);

} // namespace veldrane
