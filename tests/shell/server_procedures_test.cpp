#include "program.h"
#include "support/server_database.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

namespace veldrane {
namespace {

using testing::Ended;
using ::testing::HasSubstr;
using testing::MariaDbDatabase;
using ::testing::Not;
using testing::PostgreSqlDatabase;
using testing::Program;

// A table, a procedure with a parameter of each direction, and a function.
void Fill(const PostgreSqlDatabase& database)
{
    database.Run(R"(
        create table "Orders" (id serial primary key, customer varchar(5));
        create procedure get_orders(in customer text, inout how_many int, out total numeric)
            as $$ begin total := 1; end $$ language plpgsql;
        create function tax(amount numeric, rate float8 default 0.19) returns numeric
            as $$ select amount $$ language sql;)");
}

void Fill(const MariaDbDatabase& database)
{
    database.Run(R"(
        create table Orders (id int auto_increment primary key, customer varchar(5));
        create procedure get_orders(in customer text, inout how_many int, out total decimal(9,2)) set total = 1;
        create function tax(amount decimal(9,2), rate double) returns decimal(9,2) deterministic return amount;)");
}

template <typename Database>
class ServerProcedures : public testing::DatabaseServerTest
{
  protected:
    void SetUp() override
    {
        testing::DatabaseServerTest::SetUp();
        if (::testing::Test::IsSkipped())
            return;
        Source = std::make_unique<Database>();
        Fill(*Source);
        std::filesystem::create_directory(Workspace.Path("out"));
    }

    Ended Define(const std::vector<std::string>& more)
    {
        std::vector<std::string> arguments{"define", Workspace.Path("Shop.kzm"), "--connection",
                                           Source->ConnectionString()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Workspace.Run(arguments);
    }

    // The text of a generated module.
    std::string Generated(const std::string& module)
    {
        const Ended ended = Workspace.Run({"generate", Workspace.Path("Shop.kzm"), Workspace.Path("out")});
        EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
        return Workspace.ReadFile("out/" + module);
    }

    Program Workspace;
    std::unique_ptr<Database> Source;
};

using Servers = ::testing::Types<PostgreSqlDatabase, MariaDbDatabase>;
TYPED_TEST_SUITE(ServerProcedures, Servers);

constexpr char kHeader[] =
    "Public Function get_orders(ByVal customer as Variant, ByRef how_many as Variant, ByRef total as Variant, Optional ByVal Timeout as Integer = 60, Optional ByVal DiscardRecordset as Boolean = False, Optional ByRef RecordsAffected as Long) as ADOR.Recordset\r\n";

TYPED_TEST(ServerProcedures, AreCalledThroughACommand)
{
    const Ended ended = this->Define(
        {"--table", "Orders", "--procedure", "get_orders=Orders", "--procedure", "tax", "--set", "MTSEnabled=False"});
    ASSERT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    const std::string order = this->Generated("Order.cls");
    EXPECT_THAT(order, HasSubstr(kHeader));
    EXPECT_THAT(order, HasSubstr("    cmd.CommandText = \"get_orders\"\r\n"));
    EXPECT_THAT(order, HasSubstr("    cmd.Parameters.Refresh\r\n"
                                 "    cmd.Parameters(\"customer\").Value = customer\r\n"
                                 "    cmd.Parameters(\"how_many\").Value = how_many\r\n"
                                 "    Set adoRS = cmd.Execute(RecordsAffected)\r\n"));
    EXPECT_THAT(order, HasSubstr("    cmd.Parameters(\"customer\").Value = customer\r\n"
                                 "    how_many= cmd.Parameters(\"how_many\").Value\r\n"
                                 "    total= cmd.Parameters(\"total\").Value\r\n"));
    const std::string procedures = this->Generated("StoredProcedures.cls");
    EXPECT_THAT(procedures, HasSubstr("Public Function tax(ByRef RETURN_VALUE as Variant, ByVal amount as Variant, "
                                      "ByVal rate as Variant, Optional"));
    EXPECT_THAT(procedures, HasSubstr("    RETURN_VALUE= cmd.Parameters(\"RETURN_VALUE\").Value\r\n"));
    EXPECT_THAT(procedures, Not(HasSubstr("cmd.Parameters(\"RETURN_VALUE\").Value = ")));
}

TYPED_TEST(ServerProcedures, AreCalledThroughTheComponent)
{
    ASSERT_EQ(this->Define({"--table", "Orders", "--procedure", "get_orders=Orders", "--procedure", "tax"}).ExitCode,
              0);
    const std::string order = this->Generated("Order.cls");
    EXPECT_THAT(order, HasSubstr(kHeader));
    EXPECT_THAT(order,
                HasSubstr("    xmlAssist.AddAttribute \"SPName\", \"get_orders\", Directives.documentElement\r\n"));
    for (const auto& [name, direction] : {std::pair{"customer", "1"}, {"how_many", "2"}, {"total", "3"}})
        EXPECT_THAT(order, HasSubstr("    Set Parameter = xmlAssist.AddElement(\"" + std::string(name) +
                                     "\", Parameters)\r\n        xmlAssist.AddAttribute \"V\", " + name +
                                     ", Parameter\r\n        xmlAssist.AddAttribute \"D\", \"" + direction +
                                     "\", Parameter\r\n"));
    EXPECT_THAT(order, HasSubstr("            Case \"total\" : total = Value\r\n"));
    EXPECT_THAT(this->Generated("StoredProcedures.cls"),
                HasSubstr("        xmlAssist.AddAttribute \"V\", RETURN_VALUE, Parameter\r\n"
                          "        xmlAssist.AddAttribute \"D\", \"4\", Parameter\r\n"));
}

TYPED_TEST(ServerProcedures, FollowTheServerWhenDefineIsRunAgain)
{
    ASSERT_EQ(this->Define({"--table", "Orders", "--procedure", "get_orders=Order", "--procedure", "tax"}).ExitCode, 0);
    const std::string first = this->Workspace.ReadFile("Shop.kzm");
    ASSERT_EQ(this->Define({}).ExitCode, 0);
    EXPECT_EQ(this->Workspace.ReadFile("Shop.kzm"), first);
    this->Source->Run("drop procedure get_orders;");
    const Ended gone = this->Define({});
    EXPECT_EQ(gone.ExitCode, 1);
    EXPECT_THAT(
        gone.ErrorOutput,
        HasSubstr(
            "the method get_orders of the class Order stays as it was: its stored procedure 'get_orders' could not be read."));
    EXPECT_EQ(this->Workspace.ReadFile("Shop.kzm"), first);
}

using PostgreSqlProcedures = testing::DatabaseServerTest;

TEST_F(PostgreSqlProcedures, ComeWithTheirDefaultsWhateverIsInThem)
{
    const PostgreSqlDatabase database;
    database.Run(
        "create procedure greet(name text default 'Anna', words text default E'a\nEnd Method greet', inout n int "
        "default 5) as $$ begin n := 1; end $$ language plpgsql;"
        "create procedure part() as $$ begin end $$ language plpgsql;");
    const Program workspace;
    const std::vector<std::string> define{"define",       workspace.Path("Shop.kzm"),
                                          "--connection", database.ConnectionString(),
                                          "--procedure",  "greet",
                                          "--procedure",  "part"};
    const Ended ended = workspace.Run(define);
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    const std::string first = workspace.ReadFile("Shop.kzm");
    EXPECT_THAT(first, HasSubstr("\r\nDefaultValue\2'Anna'"));
    EXPECT_THAT(first, HasSubstr("\r\nDefaultValue\2'a End Method greet'"));
    EXPECT_THAT(first, HasSubstr("\r\nDefaultValue\0025\r\n"));
    EXPECT_THAT(first, HasSubstr("\r\nParameterHasDefault\2True\r\n"));
    EXPECT_EQ(workspace.Run(define).ExitCode, 0);
    EXPECT_EQ(workspace.ReadFile("Shop.kzm"), first);
}

TEST_F(PostgreSqlProcedures, AreToldApartByTheLetterCaseOfTheirNames)
{
    const PostgreSqlDatabase database;
    database.Run("create procedure \"Total\"(big int) as $$ begin end $$ language plpgsql;"
                 "create procedure total(small int) as $$ begin end $$ language plpgsql;");
    const Program workspace;
    const Ended ended = workspace.Run(
        {"define", workspace.Path("Shop.kzm"), "--connection", database.ConnectionString(), "--procedure", "total"});
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    EXPECT_THAT(workspace.ReadFile("Shop.kzm"), HasSubstr("\r\nSPName\2total\r\n"));
    EXPECT_THAT(workspace.ReadFile("Shop.kzm"), HasSubstr("\r\nParameterName\2small\r\n"));
}

using MariaDbProcedures = testing::DatabaseServerTest;

TEST_F(MariaDbProcedures, AreListedOnceBesideAFunctionOfTheirName)
{
    const MariaDbDatabase database;
    database.Run("create procedure ping() set @a = 1;"
                 "create function ping(n int) returns int deterministic return n;");
    const Program workspace;
    EXPECT_EQ(workspace.Run({"tables", "--connection", database.ConnectionString()}).Output, "PROCEDURE\tping\n");
}

} // namespace
} // namespace veldrane
