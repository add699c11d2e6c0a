#include "datasource/odbc/installed_drivers.h"

#include <iostream>

// Prints what the driver manager knows. It looks up where its settings stand but once, so a test that has settings of
// its own needs a process of its own.
int main()
{
    const veldrane::OdbcInstalledDrivers installed;
    for (const std::string& driver : installed.Drivers())
        std::cout << "driver " << driver << '\n';
    for (const veldrane::OdbcDataSource& source : installed.DataSources())
        std::cout << "source " << source.Name << " <" << source.Driver << ">\n";
}
