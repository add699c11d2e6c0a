#pragma once

#include "datasource/connection_policy.h"
#include "model/project.h"

#include <string>

namespace veldrane {

// Gives the project the connection string and the facts that it tells, as the connection dialog does: the data source's
// name and driver, the database and the login. A string without a provider is one for ODBC; a provider that stands
// elsewhere is moved to the front, where the dialog looks for it. The password stays in the string alone. Throws
// DataSourceError for a string that can't be taken apart, or not be written with its provider in front.
void SetConnection(TTCProject& project, const std::string& text, const DriverManager& installed);

} // namespace veldrane
