#pragma once

#include "datasource/connection_policy.h"

#include <map>
#include <string>
#include <utility>

namespace veldrane {

// A machine with the common drivers and a few data sources.
class SampleDrivers : public InstalledDrivers
{
  public:
    [[nodiscard]] std::string DataSourceSetting(const std::string& dataSource, const std::string& key) const override
    {
        return Setting(dataSources_, dataSource, key);
    }

    [[nodiscard]] std::string DriverSetting(const std::string& driver, const std::string& key) const override
    {
        return Setting(drivers_, driver, key);
    }

  private:
    using Sections = std::map<std::pair<std::string, std::string>, std::string>;

    static std::string Setting(const Sections& sections, const std::string& section, const std::string& key)
    {
        const auto found = sections.find({section, key});
        return found == sections.end() ? "" : found->second;
    }

    Sections drivers_{
        {{"SQLite3", "Driver"}, "libsqlite3odbc.so"},       {{"My Files", "Driver"}, "/usr/lib/odbc/libsqlite3odbc.so"},
        {{"PostgreSQL Unicode", "Driver"}, "psqlodbcw.so"}, {{"MariaDB Unicode", "Driver"}, "libmaodbc.so"},
        {{"FreeTDS", "Driver"}, "libtdsodbc.so"},           {{"Strange", "Driver"}, "libstrange.so"},
    };
    Sections dataSources_{
        {{"Shop", "Driver"}, "PostgreSQL Unicode"},
        {{"Shop", "BoolsAsChar"}, "1"},
        {{"Files", "Driver"}, "/usr/lib/odbc/libsqlite3odbc.so"},
        {{"Files", "Timeout"}, "10"},
        {{"Impatient", "Driver"}, "MariaDB Unicode"},
        {{"Impatient", "CONN_TIMEOUT"}, "3"},
        {{"Payroll", "Driver"}, "FreeTDS"},
        {{"Payroll", "Server"}, "db.example"},
        {{"Payroll", "UID"}, "clerk"},
        {{"Payroll", "PWD"}, "entrusted"},
        {{"Payroll", "TDS_Version"}, "7.2"},
        {{"Payroll", "Database"}, "wages"},
        {{"Payroll", "Encryption"}, "require"},
        {{"Guessing", "Driver"}, "FreeTDS"},
        {{"Guessing", "TDS_Version"}, "auto"},
    };
};

} // namespace veldrane
