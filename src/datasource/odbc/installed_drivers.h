#pragma once

#include "datasource/connection_policy.h"

namespace veldrane {

// The driver manager's own settings: odbc.ini and odbcinst.ini of the machine and the user.
class OdbcInstalledDrivers : public InstalledDrivers
{
  public:
    [[nodiscard]] std::string DataSourceSetting(const std::string& dataSource, const std::string& key) const override;
    [[nodiscard]] std::string DriverSetting(const std::string& driver, const std::string& key) const override;
};

} // namespace veldrane
