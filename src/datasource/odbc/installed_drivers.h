#pragma once

#include "datasource/connection_policy.h"

namespace veldrane {

// The driver manager's own settings: odbc.ini and odbcinst.ini of the machine and the user. Names are UTF-8.
class OdbcInstalledDrivers : public DriverManager
{
  public:
    [[nodiscard]] std::string DataSourceSetting(const std::string& dataSource, const std::string& key) const override;
    [[nodiscard]] std::string DriverSetting(const std::string& driver, const std::string& key) const override;
    [[nodiscard]] std::vector<OdbcDataSource> DataSources() const override;
    [[nodiscard]] std::vector<std::string> Drivers() const override;
};

} // namespace veldrane
