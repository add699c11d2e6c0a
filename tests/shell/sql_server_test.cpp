// SQL Server as a data source of the whole program, played by a stand-in.

#include "opened_project.h"
#include "program.h"
#include "support/tds_server.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace veldrane {
namespace {

using testing::Ended;
using ::testing::HasSubstr;
using testing::OpenedProject;
using testing::Program;
using testing::TdsContents;
using testing::TdsNull;
using testing::TdsParameterKind;
using testing::TdsServer;

TdsContents Shop()
{
    return {.Tables = {{.Name = "Customer",
                        .Columns = {{"CustomerID", "int", TdsNull::RefusedAndCounted},
                                    {"Name", "nvarchar(40)", TdsNull::Refused},
                                    {"Balance", "money"}},
                        .PrimaryKey = {{"PK_Customer", {"CustomerID"}}}},
                       {.Name = "Wages", .Columns = {{"x", "int"}}, .IsForbidden = true},
                       {.Name = "Order",
                        .Columns = {{"OrderID", "int", TdsNull::RefusedAndCounted}, {"CustomerID", "int"}},
                        .PrimaryKey = {{"PK_Order", {"OrderID"}}},
                        .ForeignKeys = {{"FK_Order", {"CustomerID"}, "Customer", {"CustomerID"}}},
                        .Owner = "sales"},
                       {.Name = "Rich", .Columns = {{"Name", "nvarchar(40)"}}, .Type = "VIEW"},
                       {.Name = "objects", .Owner = "sys", .Type = "VIEW"}},
            .Procedures = {{.Name = "GetOrders;1",
                            .Parameters = {{"@RETURN_VALUE", "int", TdsParameterKind::ReturnValue},
                                           {"@CustomerID", "int"},
                                           {"@Total", "money", TdsParameterKind::InputOutput}}},
                           {.Name = "sp_help;1", .Owner = "sys"}}};
}

class SqlServerSource : public ::testing::Test
{
  protected:
    Ended Define(const TdsServer& server, const std::vector<std::string>& more)
    {
        std::vector<std::string> arguments{"define", Workspace.Path("Shop.kzm"), "--connection",
                                           server.ConnectionString()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Workspace.Run(arguments);
    }

    std::string Generated(const std::string& module)
    {
        std::filesystem::create_directory(Workspace.Path("out"));
        const Ended ended = Workspace.Run({"generate", Workspace.Path("Shop.kzm"), Workspace.Path("out")});
        EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
        return Workspace.ReadFile("out/" + module);
    }

    Program Workspace;
};

TEST_F(SqlServerSource, ListsItsTablesAndProcedures)
{
    const TdsServer server(Shop());
    const Ended ended = Workspace.Run({"tables", "--connection", server.ConnectionString()});
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_EQ(ended.ErrorOutput, "");
    EXPECT_EQ(ended.Output, "TABLE\tCustomer\nTABLE\tWages\nVIEW\tRich\nTABLE\tsales.Order\nPROCEDURE\tGetOrders;1\n");
}

TEST_F(SqlServerSource, GivesClassesAndKeepsItsProvider)
{
    const TdsServer server(Shop());
    const Ended ended = Define(server, {"--table", "Customer", "--table", "sales.Order=Customer"});
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    const OpenedProject opened(Workspace.Path("Shop.kzm"), Workspace.ReadFile("Shop.kzm"));
    EXPECT_EQ(opened.Project.ConnectionString(), server.ConnectionString());
    EXPECT_EQ(opened.Project.DataSourceDatabaseName, "shop");
    EXPECT_EQ(opened.Project.DataSourceLogin, "ann");
    EXPECT_THAT(Generated("Customer.cls"), HasSubstr("Public Property Get Balance() as Currency"));
    std::vector<std::string> tables;
    for (const KZMClass& item : opened.Classes)
        if (!item.TableName.empty())
            tables.push_back(item.TableName);
    EXPECT_THAT(tables, ::testing::UnorderedElementsAre("Customer", "sales.Order"));
}

TEST_F(SqlServerSource, LeavesOutATableThatTheLoginMayNotRead)
{
    const TdsServer server(Shop());
    const Ended ended = Define(server, {"--all"});
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("veldrane: 'Wages' is left out: the login may not read it.\n"));
    const OpenedProject opened(Workspace.Path("Shop.kzm"), Workspace.ReadFile("Shop.kzm"));
    EXPECT_TRUE(opened.Classes.Item("Customer"));
}

TEST_F(SqlServerSource, CallsAProcedureByItsNameWithTheNumber)
{
    const TdsServer server(Shop());
    for (const std::string name : {"GetOrders;1", "GetOrders"}) {
        const Ended ended =
            Define(server, {"--table", "Customer", "--procedure", name + "=Customer", "--set", "MTSEnabled=False"});
        EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
        const std::string customer = Generated("Customer.cls");
        EXPECT_THAT(customer, HasSubstr("Public Function GetOrders(ByRef RETURN_VALUE as Long, ByVal CustomerID as "
                                        "Variant, ByRef Total as Variant, Optional"));
        EXPECT_THAT(customer, HasSubstr("    cmd.CommandText = \"GetOrders;1\"\r\n"));
        EXPECT_THAT(customer, HasSubstr("    cmd.Parameters(\"@CustomerID\").Value = CustomerID\r\n"));
        EXPECT_THAT(customer, HasSubstr("    Total= cmd.Parameters(\"@Total\").Value\r\n"));
        EXPECT_THAT(customer, HasSubstr("    RETURN_VALUE= cmd.Parameters(\"@RETURN_VALUE\").Value\r\n"));
        std::filesystem::remove(Workspace.Path("Shop.kzm"));
    }
}

} // namespace
} // namespace veldrane
