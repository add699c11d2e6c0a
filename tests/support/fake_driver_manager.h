#pragma once

#include "datasource/connection_policy.h"
#include "text/case_folding.h"

#include <map>
#include <string>
#include <vector>

namespace veldrane::testing {

inline constexpr const char* kAccess = "Microsoft Access Driver (*.mdb)";

// A machine whose data sources and drivers are data.
class FakeDriverManager : public DriverManager
{
  public:
    [[nodiscard]] std::string DataSourceSetting(const std::string& dataSource, const std::string& key) const override
    {
        for (const OdbcDataSource& source : Sources)
            if (text::EqualFolded(source.Name, dataSource) && text::EqualFolded(key, "Driver"))
                return source.Driver;
        return "";
    }

    [[nodiscard]] std::string DriverSetting(const std::string& driver, const std::string& key) const override
    {
        const auto found = Libraries.find(driver);
        return found == Libraries.end() || key != "Driver" ? "" : found->second;
    }

    [[nodiscard]] std::vector<OdbcDataSource> DataSources() const override { return Sources; }

    [[nodiscard]] std::vector<std::string> Drivers() const override
    {
        std::vector<std::string> names;
        for (const auto& [name, library] : Libraries)
            names.push_back(name);
        return names;
    }

    std::vector<OdbcDataSource> Sources{{"Shop", "PostgreSQL Unicode"},
                                        {"Old Files", kAccess},
                                        {"Größe; {neu}", "SQLite3"},
                                        {"Ledger", "SQL Server"},
                                        {"Payroll", "FreeTDS"}};
    std::map<std::string, std::string> Libraries{{"FreeTDS", "libtdsodbc.so"},
                                                 {"MariaDB Unicode", "libmaodbc.so"},
                                                 {"PostgreSQL Unicode", "psqlodbcw.so"},
                                                 {"SQLite3", "libsqlite3odbc.so"}};
};

} // namespace veldrane::testing
