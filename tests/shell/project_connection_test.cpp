#include "shell/project_connection.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(ProjectConnection, KeepsTheFactsOfADataSource)
{
    TTCProject project;
    SetConnection(project, "PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=secret;Database=main;");
    EXPECT_EQ(project.DataSourceName, "Shop");
    EXPECT_EQ(project.DataSourceDriver, "");
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    EXPECT_EQ(project.DataSourceLogin, "ann");
    EXPECT_EQ(project.DataSourcePassword, "");
    EXPECT_EQ(project.DataSource(), data_source_kind::kOdbc);
}

TEST(ProjectConnection, TakesAStringWithoutAProviderForOdbc)
{
    TTCProject project;
    SetConnection(project, "Driver=SQLite3;Database=/tmp/x.db");
    EXPECT_EQ(project.ConnectionString(), "PROVIDER=MSDASQL;Driver=SQLite3;Database=/tmp/x.db");
    EXPECT_EQ(project.DataSourceDriver, "SQLite3");
    EXPECT_EQ(project.DataSourceName, "");
}

TEST(ProjectConnection, ReplacesTheFactsOfTheFormerOne)
{
    TTCProject project;
    SetConnection(project, "DSN=Shop;UID=ann;");
    SetConnection(project, "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;");
    EXPECT_EQ(project.DataSourceName, "");
    EXPECT_EQ(project.DataSourceDriver, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(project.DataSourceDatabaseName, "/data/a.mdb");
    EXPECT_EQ(project.DataSourceLogin, "Admin");
    EXPECT_EQ(project.DataSource(), data_source_kind::kJet);
}

TEST(ProjectConnection, TheServerIsNoDatabase)
{
    TTCProject project;
    SetConnection(project, "PROVIDER=SQLOLEDB;DSN=Ledger;Integrated Security=SSPI;Data Source=host;");
    EXPECT_EQ(project.DataSourceDatabaseName, "");
    SetConnection(project, "PROVIDER=SQLOLEDB;Driver=FreeTDS;Data Source=host;UID=ann;PWD=;Initial Catalog=main;");
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    EXPECT_EQ(project.DataSource(), data_source_kind::kSqlServer);
}

TEST(ProjectConnection, OnlyAJetFileMayStandBesideTheComponent)
{
    TTCProject project;
    project.ConnectSameDirectory = true;
    SetConnection(project, "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;");
    EXPECT_TRUE(project.ConnectSameDirectory);
    SetConnection(project, "Driver=SQLite3;Database=/tmp/x.db");
    EXPECT_FALSE(project.ConnectSameDirectory);
}

} // namespace
} // namespace veldrane
