#include "datasource/odbc/installed_drivers.h"

#include <odbcinst.h>

#include <array>

namespace veldrane {
namespace {

std::string Setting(const std::string& section, const std::string& key, const char* file)
{
    // An empty section asks for the list of all sections.
    if (section.empty() || key.empty())
        return {};
    std::array<char, 1024> value{};
    const int length = SQLGetPrivateProfileString(section.c_str(), key.c_str(), "", value.data(),
                                                  static_cast<int>(value.size()), file);
    return length > 0 ? std::string(value.data()) : std::string();
}

} // namespace

std::string OdbcInstalledDrivers::DataSourceSetting(const std::string& dataSource, const std::string& key) const
{
    return Setting(dataSource, key, "odbc.ini");
}

std::string OdbcInstalledDrivers::DriverSetting(const std::string& driver, const std::string& key) const
{
    return Setting(driver, key, "odbcinst.ini");
}

} // namespace veldrane
