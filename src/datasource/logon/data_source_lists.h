#pragma once

#include "datasource/connection_policy.h"
#include "datasource/logon/logon_page.h"

#include <string>

namespace veldrane {

// Fills the lists of data sources and drivers: those of the ODBC page with all there are, those of the SQL Server page
// with those of SQL Server's driver or of `tdsDriver`, which does its work here. Selects the first data source of
// either page, and the first driver of the ODBC page.
void FillDataSourceLists(LogonPages& pages, const DriverManager& installed, const std::string& tdsDriver);

} // namespace veldrane
