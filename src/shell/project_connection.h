#pragma once

#include "model/project.h"

#include <string>

namespace veldrane {

// Gives the project the connection string and the facts that it tells: the data source's name or driver, the database
// and the login. A string without a provider is one for ODBC. The password stays in the string alone. Throws
// DataSourceError for a string that can't be taken apart.
void SetConnection(TTCProject& project, const std::string& text);

} // namespace veldrane
