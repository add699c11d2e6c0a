#include "datasource/odbc/installed_drivers.h"

#include "sqlite_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr std::string_view kTwoDrivers = "[SQLite3]\n"
                                         "Driver=libsqlite3odbc.so\n"
                                         "[Größe (*.db)]\n"
                                         "Driver=libsqlite3odbc-0.9998.so\n"
                                         "Description=Driver for Ελλάς\n";

// A machine of one test: a driver manager that reads its settings from a folder of its own.
class InstalledDriversTest : public ::testing::Test
{
  protected:
    void Write(const std::string& name, std::string_view text) const { std::ofstream(Path(name)) << text; }

    [[nodiscard]] std::string Path(const std::string& name) const { return file.Folder() + "/" + name; }

    // One line a driver and a data source.
    [[nodiscard]] std::vector<std::string> Listed() const
    {
        const std::string command =
            "ODBCSYSINI='" + file.Folder() + "' ODBCINI='" + Path("user.ini") + "' '" VELDRANE_LIST_INSTALLED "'";
        std::FILE* pipe = ::popen(command.c_str(), "r");
        if (pipe == nullptr)
            return {"not started"};
        std::vector<std::string> lines;
        std::array<char, 2048> line{};
        while (std::fgets(line.data(), static_cast<int>(line.size()), pipe) != nullptr)
            lines.emplace_back(line.data(), std::string_view(line.data()).find('\n'));
        EXPECT_EQ(::pclose(pipe), 0);
        return lines;
    }

    SqliteFile file{"CREATE TABLE a (x);\n"};
};

TEST_F(InstalledDriversTest, AMachineWithNothingSetUpHasNothing)
{
    EXPECT_THAT(Listed(), IsEmpty());
}

TEST_F(InstalledDriversTest, DriversAreThereWithoutADataSource)
{
    Write("odbcinst.ini", kTwoDrivers);
    EXPECT_THAT(Listed(), ElementsAre("driver SQLite3", "driver Größe (*.db)"));
}

TEST_F(InstalledDriversTest, DataSourcesOfMachineAndUserNameTheirDriver)
{
    Write("odbcinst.ini", kTwoDrivers);
    Write("odbc.ini", "[Zahlen Ελλάς]\nDriver=Größe (*.db)\n[Described]\nDriver=SQLite3\nDescription=My data\n");
    Write("user.ini", "[Own]\nDriver=SQLite3\n[Described]\nDriver=SQLite3\n");
    EXPECT_THAT(Listed(), UnorderedElementsAre("driver SQLite3", "driver Größe (*.db)", "source Own <SQLite3>",
                                               "source Zahlen Ελλάς <Größe (*.db)>", "source Described <SQLite3>"));
}

TEST_F(InstalledDriversTest, OptionsOfTheDriverManagerAreNoDriversNorDataSources)
{
    Write("odbcinst.ini", "[ODBC]\nTrace=0\n[ODBC Drivers]\nSQLite3=Installed\n[SQLite3]\nDriver=libsqlite3odbc.so\n");
    Write("odbc.ini", "[ODBC Data Sources]\nOwn=SQLite3\n[Own]\nDriver=SQLite3\n[ODBC]\nTrace=0\n");
    EXPECT_THAT(Listed(), ElementsAre("driver SQLite3", "source Own <SQLite3>"));
}

TEST_F(InstalledDriversTest, ALibraryCountsAsTheDriverThatIsSetUpWithIt)
{
    Write("odbcinst.ini", kTwoDrivers);
    Write(
        "user.ini",
        "[By Path]\nDriver=/usr/lib/odbc/libsqlite3odbc.so\n[Strange]\nDriver=/opt/libstrange.so\n"
        "[Bare]\nDriver=libsqlite3odbc.so\n[Bare And Strange]\nDriver=libstrange.so\n[Undone]\nDescription=no driver\n");
    EXPECT_THAT(Listed(), ElementsAre("driver SQLite3", "driver Größe (*.db)", "source By Path <SQLite3>",
                                      "source Strange </opt/libstrange.so>", "source Bare <SQLite3>",
                                      "source Bare And Strange <libstrange.so>", "source Undone <>"));
}

TEST_F(InstalledDriversTest, AllOfManyDriversAndDataSourcesAreThere)
{
    std::string drivers;
    std::string sources;
    for (int i = 1; i <= 200; ++i) {
        drivers += "[Driver with a rather long name, number " + std::to_string(i) + "]\nDriver=libsqlite3odbc.so\n";
        sources += "[Data source with a rather long name, number " + std::to_string(i) +
                   "]\nDriver=Driver with a rather long name, number 1\n";
    }
    Write("odbcinst.ini", drivers);
    Write("user.ini", sources);
    const std::vector<std::string> listed = Listed();
    EXPECT_EQ(listed.size(), 400U);
    EXPECT_THAT(listed, Contains("driver Driver with a rather long name, number 200"));
    EXPECT_THAT(listed, Contains("source Data source with a rather long name, number 200 "
                                 "<Driver with a rather long name, number 1>"));
}

TEST_F(InstalledDriversTest, ADataSourceBeyondAsciiIsRefusedForAWideDriverWithWhatHelps)
{
    Write("user.ini", "[Maße Ελλάς]\nDriver=PostgreSQL Unicode\nServername=/nowhere\n");
    ::setenv("ODBCINI", Path("user.ini").c_str(), 1);
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        try {
            OdbcConnection({.Origin = origin}).Open("PROVIDER=MSDASQL;DSN=Maße Ελλάς;UID=;PWD=;");
            ADD_FAILURE() << "not refused";
        } catch (const DataSourceError& error) {
            EXPECT_EQ(error.Description(),
                      "The ODBC driver manager can't find the data source \"Maße Ελλάς\" for its driver, for the name "
                      "has letters beyond ASCII: rename the data source, or name its driver (Driver) and its keys in "
                      "the connection string instead.");
        }
    ::unsetenv("ODBCINI");
}

TEST_F(InstalledDriversTest, ADataSourceOfANarrowDriverOpensWhateverItsName)
{
    Write("user.ini", "[Zahlen Ελλάς]\nDriver=SQLite3\nDatabase=" + file.Path() + "\n");
    ::setenv("ODBCINI", Path("user.ini").c_str(), 1);
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open("PROVIDER=MSDASQL;DSN=Zahlen Ελλάς;UID=;PWD=;");
    ::unsetenv("ODBCINI");
    EXPECT_EQ(connection.OpenCatalog()->Tables().size(), 1U);
}

} // namespace
} // namespace veldrane
