// What the page of SQL Server makes, and what the driver manager is given of it.

#include "logon_fixture.h"

namespace veldrane {
namespace {

const std::string kAdded = "TDS_Version=7.4;ClientCharset=UTF-8;";

class SqlServerLogon : public LogonTest
{
  protected:
    // The page with its data source "Payroll", or with the driver that stands in for SQL Server's own.
    std::unique_ptr<frmODBCLogon> WithDSN()
    {
        auto dialog = LoadedAt("SQLOLEDB");
        SelectDSN(*dialog, "Payroll");
        return dialog;
    }

    std::unique_ptr<frmODBCLogon> WithDriver(std::string_view name = "FreeTDS")
    {
        auto dialog = LoadedAt("SQLOLEDB");
        dialog->optDSNLess_Click();
        SelectDriver(*dialog, name);
        return dialog;
    }

    // The same for a project from elsewhere and for the person at the dialog.
    std::string Translated(frmODBCLogon& dialog)
    {
        const ConnectionString text(StringOf(dialog));
        std::string ofProject = BuildOdbcLogon(text, installed, {.Origin = StringOrigin::ProjectFile}).Text;
        EXPECT_EQ(BuildOdbcLogon(text, installed, {.Origin = StringOrigin::CommandLine}).Text, ofProject);
        return ofProject;
    }
};

TEST_F(SqlServerLogon, ADataSourceKeepsItsServer)
{
    const auto dialog = WithDSN();
    EXPECT_EQ(Translated(*dialog), "DSN=Payroll;Trusted_Connection=Yes;" + kAdded);
    dialog->Page().txtUID = "ann";
    dialog->Page().txtPWD = "a;b";
    dialog->Page().txtDatabase = "wages";
    EXPECT_EQ(Translated(*dialog), "DSN=Payroll;UID=ann;PWD={a;b};Database=wages;" + kAdded);
}

TEST_F(SqlServerLogon, AServerGoesBeforeThatOfTheDataSource)
{
    const auto dialog = WithDSN();
    dialog->Page().txtServer = "db,1434";
    EXPECT_EQ(Translated(*dialog), "Driver=FreeTDS;Trusted_Connection=Yes;Server=db;Port=1434;" + kAdded);
}

TEST_F(SqlServerLogon, ADriverHasAServerAndALogin)
{
    const auto dialog = WithDriver();
    EXPECT_EQ(Translated(*dialog), "Driver=FreeTDS;Server=localhost;Trusted_Connection=Yes;" + kAdded);
    dialog->Page().txtServer = "db\\sales";
    dialog->Page().txtUID = "ann";
    dialog->Page().txtPWD = "secret";
    dialog->Page().txtDatabase = "wages";
    EXPECT_EQ(Translated(*dialog), "Driver=FreeTDS;Server=db\\sales;UID=ann;PWD={secret};Database=wages;" + kAdded);
}

TEST_F(SqlServerLogon, SqlServersOwnDriverIsStoodInFor)
{
    const auto dialog = WithDriver("SQL Server");
    dialog->Page().txtServer = "db";
    EXPECT_EQ(Translated(*dialog), "Driver=FreeTDS;Server=db;Trusted_Connection=Yes;" + kAdded);
}

TEST_F(SqlServerLogon, WhatIsTypedWithQuotesReachesTheServerWithThem)
{
    const auto dialog = WithDriver();
    dialog->Page().txtServer = "db";
    dialog->Page().txtUID = "'ann'";
    dialog->Page().txtPWD = "\"geheim";
    dialog->Page().txtDatabase = "\"wages\"";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=SQLOLEDB;Driver=FreeTDS;Data Source=db;UID=\"'ann'\";PWD=\"\"\"geheim\";"
                                 "Initial Catalog=\"\"\"wages\"\"\";");
    EXPECT_EQ(Translated(*dialog), "Driver=FreeTDS;Server=db;UID='ann';PWD={\"geheim};Database=\"wages\";" + kAdded);
    const auto again = LoadedOn(StringOf(*dialog));
    EXPECT_EQ(again->Page().txtUID, "'ann'");
    EXPECT_EQ(again->Page().txtPWD, "\"geheim");
    EXPECT_EQ(again->Page().txtDatabase, "\"wages\"");
}

TEST_F(SqlServerLogon, ReadsBackWhatItHasMade)
{
    const auto dialog = WithDriver();
    dialog->Page().txtServer = "db,1434";
    dialog->Page().txtUID = "ann";
    dialog->Page().txtPWD = "a;b";
    dialog->Page().txtDatabase = "wages";
    const std::string made = StringOf(*dialog);
    EXPECT_EQ(StringOf(*LoadedOn(made)), made);
}

} // namespace
} // namespace veldrane
