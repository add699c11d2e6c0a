#include "datasource/odbc/installed_drivers.h"

#include "text/case_folding.h"
#include "text/characters.h"

#include <odbcinst.h>

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>

namespace veldrane {
namespace {

constexpr std::size_t kLongestName = 1024; // longer ones are cut by the driver manager

// Sections of the driver manager's own: its options, and lists that some tools keep beside the sections.
bool IsOfDriverManager(std::string_view section)
{
    constexpr std::array<std::string_view, 3> kOwn{"ODBC", "ODBC Data Sources", "ODBC Drivers"};
    return std::any_of(kOwn.begin(), kOwn.end(), [&](std::string_view own) { return text::EqualFolded(own, section); });
}

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

// The sections of a settings file, both of the machine and of the user, each a data source or a driver. The calls made
// for it, SQLDataSources and SQLDrivers, know only what fits into 4096 bytes, and end there without a word.
std::vector<std::string> Sections(const char* file)
{
    constexpr std::size_t kMost = 16U << 20U;
    std::string names;
    std::size_t used = 0;
    for (std::size_t size = 1U << 16U; size <= kMost && used + kLongestName >= names.size(); size *= 4) {
        names.assign(size, '\0');
        used = static_cast<std::size_t>(
            std::max(0, SQLGetPrivateProfileString(nullptr, nullptr, "", names.data(), static_cast<int>(size), file)));
    }
    std::vector<std::string> sections;
    for (const char* name = names.c_str(); *name != '\0'; name += std::string_view(name).size() + 1)
        if (!IsOfDriverManager(name))
            sections.push_back(text::WellFormed(name));
    return sections;
}

std::string FileName(std::string_view path)
{
    return std::string(path.substr(path.rfind('/') + 1));
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

std::vector<OdbcDataSource> OdbcInstalledDrivers::DataSources() const
{
    std::map<std::string, std::string> driverOfLibrary;
    for (const std::string& driver : Drivers())
        driverOfLibrary.emplace(FileName(DriverSetting(driver, "Driver")), driver);
    std::vector<OdbcDataSource> sources;
    for (std::string& name : Sections("odbc.ini")) {
        std::string driver = DataSourceSetting(name, "Driver");
        if (!driver.empty() && DriverSetting(driver, "Driver").empty())
            if (const auto known = driverOfLibrary.find(FileName(driver)); known != driverOfLibrary.end())
                driver = known->second;
        sources.push_back({.Name = std::move(name), .Driver = std::move(driver)});
    }
    return sources;
}

std::vector<std::string> OdbcInstalledDrivers::Drivers() const
{
    return Sections("odbcinst.ini");
}

} // namespace veldrane
