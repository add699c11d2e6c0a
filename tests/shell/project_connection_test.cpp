#include "shell/project_connection.h"

#include "support/fake_driver_manager.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

class ProjectConnection : public ::testing::Test
{
  protected:
    TTCProject project;
    testing::FakeDriverManager installed;
};

TEST_F(ProjectConnection, KeepsTheFactsOfADataSource)
{
    SetConnection(project, "PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=secret;Database=main;", installed);
    EXPECT_EQ(project.DataSourceName, "Shop");
    EXPECT_EQ(project.DataSourceDriver, "PostgreSQL Unicode");
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    EXPECT_EQ(project.DataSourceLogin, "ann");
    EXPECT_EQ(project.DataSourcePassword, "");
    EXPECT_EQ(project.DataSource(), data_source_kind::kOdbc);
}

TEST_F(ProjectConnection, TakesAStringWithoutAProviderForOdbc)
{
    SetConnection(project, "Driver=SQLite3;Database=/tmp/x.db", installed);
    EXPECT_EQ(project.ConnectionString(), "PROVIDER=MSDASQL;Driver=SQLite3;Database=/tmp/x.db");
    EXPECT_EQ(project.DataSourceDriver, "SQLite3");
    EXPECT_EQ(project.DataSourceName, "");
}

TEST_F(ProjectConnection, ReplacesTheFactsOfTheFormerOne)
{
    SetConnection(project, "DSN=Shop;UID=ann;", installed);
    SetConnection(project, "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;",
                  installed);
    EXPECT_EQ(project.DataSourceName, "");
    EXPECT_EQ(project.DataSourceDriver, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(project.DataSourceDatabaseName, "/data/a.mdb");
    EXPECT_EQ(project.DataSourceLogin, "");
    EXPECT_EQ(project.DataSource(), data_source_kind::kJet);
}

TEST_F(ProjectConnection, TheServerIsNoDatabase)
{
    SetConnection(project, "PROVIDER=SQLOLEDB;DSN=Ledger;Integrated Security=SSPI;Data Source=host;", installed);
    EXPECT_EQ(project.DataSourceDatabaseName, "");
    SetConnection(project, "PROVIDER=SQLOLEDB;Driver=FreeTDS;Data Source=host;UID=ann;PWD=;Initial Catalog=main;",
                  installed);
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    EXPECT_EQ(project.DataSource(), data_source_kind::kSqlServer);
}

TEST_F(ProjectConnection, QuotesOfAStringForSqlServerAreNoPartOfItsFacts)
{
    SetConnection(project,
                  "PROVIDER=SQLOLEDB;Driver=\"FreeTDS\";Data Source=db;User ID='ann';Initial Catalog=\"main\";",
                  installed);
    EXPECT_EQ(project.DataSourceDriver, "FreeTDS");
    EXPECT_EQ(project.DataSourceLogin, "ann");
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    SetConnection(project, "Driver=FreeTDS;Server=db;UID='ann';", installed);
    EXPECT_EQ(project.DataSourceLogin, "'ann'");
}

TEST_F(ProjectConnection, OnlyAJetFileMayStandBesideTheComponent)
{
    project.ConnectSameDirectory = true;
    SetConnection(project, "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;",
                  installed);
    EXPECT_TRUE(project.ConnectSameDirectory);
    SetConnection(project, "Driver=SQLite3;Database=/tmp/x.db", installed);
    EXPECT_FALSE(project.ConnectSameDirectory);
}

TEST_F(ProjectConnection, KeepsALoginOfAJetFileThatIsNotThatOfEveryone)
{
    SetConnection(project, "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/a.mdb;USER ID=ann;", installed);
    EXPECT_EQ(project.DataSourceLogin, "ann");
    SetConnection(project, "DSN=Shop;UID=Admin;", installed);
    EXPECT_EQ(project.DataSourceLogin, "Admin");
}

TEST_F(ProjectConnection, KeepsTheFactsOfAJetFileWithoutTheirQuotes)
{
    SetConnection(project,
                  "Provider=Microsoft.Jet.OLEDB.4.0;User ID=\"ann \"\"b\"\"\";Data Source=\"/x y.mdb\";"
                  "Jet OLEDB:Database Password='geheim'",
                  installed);
    EXPECT_EQ(project.DataSourceDatabaseName, "/x y.mdb");
    EXPECT_EQ(project.DataSourceLogin, "ann \"b\"");
    EXPECT_EQ(project.ConnectionString(), "Provider=Microsoft.Jet.OLEDB.4.0;User ID=\"ann \"\"b\"\"\";"
                                          "Data Source=\"/x y.mdb\";Jet OLEDB:Database Password='geheim'");
    SetConnection(project, "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source='/x y.mdb';UID='Admin';", installed);
    EXPECT_EQ(project.DataSourceDatabaseName, "/x y.mdb");
    EXPECT_EQ(project.DataSourceLogin, "");
}

TEST_F(ProjectConnection, QuotesAreNothingButTextForOdbc)
{
    SetConnection(project, "DSN=Shop;UID=\"ann\";Database='main';", installed);
    EXPECT_EQ(project.DataSourceLogin, "\"ann\"");
    EXPECT_EQ(project.DataSourceDatabaseName, "'main'");
}

TEST_F(ProjectConnection, ADataSourceThatIsNotSetUpHasNoDriver)
{
    SetConnection(project, "DSN=Gone;", installed);
    EXPECT_EQ(project.DataSourceName, "Gone");
    EXPECT_EQ(project.DataSourceDriver, "");
}

TEST_F(ProjectConnection, BesideADataSourceOfSqlServerTheDriverIsTheChosenOne)
{
    SetConnection(project, "PROVIDER=SQLOLEDB;DSN=Ledger;Data Source=host;", installed);
    EXPECT_EQ(project.DataSourceDriver, "");
    SetConnection(project, "PROVIDER=SQLOLEDB;DSN=Ledger;Driver=FreeTDS;Data Source=host;", installed);
    EXPECT_EQ(project.DataSourceDriver, "FreeTDS");
}

TEST_F(ProjectConnection, AProviderIsTheSameWithItsVersion)
{
    SetConnection(project, "PROVIDER=SQLOLEDB.1;DSN=Shop;Driver=FreeTDS;Data Source=host;", installed);
    EXPECT_EQ(project.DataSourceDriver, "FreeTDS");
}

TEST_F(ProjectConnection, QuotesStayAsTheyAreWhereTheProviderIsMoved)
{
    SetConnection(project, "Data Source=\"/x y.mdb\";Provider=Microsoft.Jet.OLEDB.4.0", installed);
    EXPECT_EQ(project.ConnectionString(), "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=\"/x y.mdb\";");
    EXPECT_EQ(project.DataSourceDatabaseName, "/x y.mdb");
}

TEST_F(ProjectConnection, MovesTheProviderToTheFront)
{
    SetConnection(project, "DSN=Shop; uid = ann;PWD={a;b}}};provider=MSDASQL;Database=main", installed);
    EXPECT_EQ(project.ConnectionString(), "provider=MSDASQL;DSN=Shop;uid=ann;PWD={a;b}}};Database=main;");
    EXPECT_EQ(project.DataSource(), data_source_kind::kOdbc);
}

} // namespace
} // namespace veldrane
