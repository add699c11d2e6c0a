#include "datasource/odbc/odbc_connection.h"
#include "support/tds_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TdsContents;
using testing::TdsNull;
using testing::TdsParameterKind;
using testing::TdsServer;

// A catalog of what the stand-in holds.
class SqlServer
{
  public:
    explicit SqlServer(TdsContents contents, const std::string& more = "") : server_(std::move(contents))
    {
        connection_.Open(server_.ConnectionString() + more);
        catalog_ = connection_.OpenCatalog();
    }

    Catalog* operator->() const { return catalog_.get(); }

    [[nodiscard]] const std::vector<ADOError>& Errors() const { return connection_.Errors(); }

    // "type name" of every table.
    [[nodiscard]] std::vector<std::string> Tables() const
    {
        std::vector<std::string> rows;
        for (const CatalogTable& table : catalog_->Tables())
            rows.push_back(table.Type + " " + table.Name);
        return rows;
    }

    [[nodiscard]] DataSourceError FailureOn(const std::string& statement) const
    {
        try {
            (void)catalog_->Fields(statement);
        } catch (const DataSourceError& error) {
            return error;
        }
        ADD_FAILURE() << statement << " opened a table";
        return {0, "", ""};
    }

  private:
    TdsServer server_;
    OdbcConnection connection_{OdbcConnectionOptions{}};
    std::unique_ptr<Catalog> catalog_;
};

TEST(SqlServerCatalog, ShowsTheDefaultSchemaAndDboBareAndOthersByName)
{
    const SqlServer source({.Schema = "sales",
                            .Tables = {{.Name = "Archive", .Owner = "archive"},
                                       {.Name = "Order"},
                                       {.Name = "Customer"},
                                       {.Name = "Order", .Owner = "sales"},
                                       {.Name = "Totals", .Owner = "sales", .Type = "VIEW"}}});
    EXPECT_THAT(source.Tables(), ElementsAre("TABLE Customer", "TABLE Order", "VIEW Totals", "TABLE archive.Archive",
                                             "TABLE dbo.Order"));
}

TEST(SqlServerCatalog, ShowsNoTwoTablesUnderOneName)
{
    const SqlServer source({.Tables = {{.Name = "a.b", .Columns = {{"ofDbo", "int"}}},
                                       {.Name = "b", .Columns = {{"ofA", "int"}}, .Owner = "a"}}});
    EXPECT_THAT(source.Tables(), ElementsAre("TABLE dbo.a.b", "TABLE a.b"));
    EXPECT_EQ(source->Columns("dbo.a.b").at(0).Name, "ofDbo");
    EXPECT_EQ(source->Columns("a.b").at(0).Name, "ofA");
}

TEST(SqlServerCatalog, TakesDboForTheDefaultSchemaOfAServerThatDoesNotSay)
{
    const SqlServer source({.Schema = "", .Tables = {{.Name = "Customer"}, {.Name = "Customer", .Owner = "archive"}}});
    EXPECT_THAT(source.Tables(), ElementsAre("TABLE Customer", "TABLE archive.Customer"));
}

TEST(SqlServerCatalog, LeavesNoErrorBehindWhereTheServerDoesNotSayTheDefaultSchema)
{
    const SqlServer source({.Schema = ""});
    EXPECT_THAT(source.Errors(), IsEmpty());
}

TEST(SqlServerCatalog, TakesWhatTheServerKeepsForItselfForSystemObjects)
{
    const SqlServer source({.Tables = {{.Name = "Customer"},
                                       {.Name = "objects", .Owner = "sys", .Type = "VIEW"},
                                       {.Name = "TABLES", .Owner = "INFORMATION_SCHEMA", .Type = "VIEW"},
                                       {.Name = "sysobjects", .Type = "SYSTEM TABLE"}}});
    EXPECT_THAT(source.Tables(), ElementsAre("SYSTEM TABLE sysobjects", "TABLE Customer",
                                             "SYSTEM VIEW INFORMATION_SCHEMA.TABLES", "SYSTEM VIEW sys.objects"));
}

TEST(SqlServerCatalog, OpensATableWhateverItsName)
{
    const std::vector<std::string> names{"Größe Ελλάς", "Order \"Details\"", "a]b", "a.b", "50%_off", "it's"};
    TdsContents contents;
    for (const std::string& name : names)
        contents.Tables.push_back({.Name = name, .Columns = {{name, "int"}}, .PrimaryKey = {{"PK", {name}}}});
    const SqlServer source(contents);
    for (const std::string& name : names) {
        const std::vector<CatalogField> fields = source->Fields("SELECT * FROM [" + name + "] WHERE 1=0");
        ASSERT_EQ(fields.size(), 1U) << name;
        EXPECT_EQ(fields.front().Name, name);
        EXPECT_THAT(source->Indexes(name).at(0).Columns, ElementsAre(name));
    }
}

struct TypeCase
{
    std::string Type;
    std::int32_t AdoType;
    std::int32_t Size;
    double SinceVersion = 7.1;
};

const std::vector<TypeCase> kTypes{
    {"bit", 11, 2},
    {"tinyint", 17, 1},
    {"smallint", 2, 2},
    {"int", 3, 4},
    {"bigint", 20, 8},
    {"real", 4, 4},
    {"float", 5, 8},
    {"decimal(10,2)", 131, 19},
    {"numeric(38,10)", 131, 19},
    {"money", 6, 8},
    {"smallmoney", 6, 8},
    {"datetime", 135, 16},
    {"smalldatetime", 135, 16},
    {"char(5)", 129, 5},
    {"varchar(8000)", 200, 8000},
    {"text", 201, 2147483647},
    {"nchar(6)", 130, 6},
    {"nvarchar(41)", 202, 41},
    {"sysname", 202, 128},
    {"ntext", 203, 1073741823},
    {"binary(7)", 128, 7},
    {"varbinary(9)", 204, 9},
    {"timestamp", 128, 8},
    {"image", 205, 2147483647},
    {"uniqueidentifier", 72, 16},
    {"sql_variant", 12, 8000},
    {"varchar(max)", 201, 2147483647, 7.2},
    {"nvarchar(max)", 203, 1073741823, 7.2},
    {"varbinary(max)", 205, 2147483647, 7.2},
    {"xml", 203, 1073741823, 7.2},
    {"date", 133, 6, 7.3},
    {"time", 202, 16, 7.3},
    {"datetime2", 135, 16, 7.3},
    {"datetimeoffset", 202, 34, 7.3},
    // Of types that are written in .NET the driver tells neither the name nor the size.
    {"hierarchyid", 205, 2147483647, 7.2},
    {"geography", 205, 2147483647, 7.2},
    {"Point", 205, 2147483647, 7.2},
};

TEST(SqlServerCatalog, OpensEveryTypeInEveryVersionOfTheProtocol)
{
    constexpr std::int32_t kBoth = field_attribute::kIsNullable | field_attribute::kMayBeNull;
    const std::map<std::string, double> versions{{"7.1", 7.1}, {"7.2", 7.2}, {"7.3", 7.3}, {"7.4", 7.4}};
    for (const auto& [version, number] : versions)
        for (const TypeCase& type : kTypes) {
            if (number < type.SinceVersion)
                continue;
            const SqlServer source(
                {.Tables = {{.Name = "T", .Columns = {{"a", type.Type}, {"b", type.Type, TdsNull::Refused}}}}},
                "TDS_Version=" + version + ";");
            const std::vector<CatalogField> fields = source->Fields("SELECT * FROM T WHERE 1=0");
            ASSERT_EQ(fields.size(), 2U) << type.Type;
            for (const CatalogField& field : fields) {
                EXPECT_EQ(field.Type, type.AdoType) << type.Type << " in " << version;
                EXPECT_EQ(field.DefinedSize, type.Size) << type.Type << " in " << version;
                EXPECT_EQ(field.Attributes, field.Name == "a" ? kBoth : 0) << type.Type << " in " << version;
                EXPECT_FALSE(field.IsAutoIncrement) << type.Type << " in " << version;
            }
        }
}

TEST(SqlServerCatalog, KnowsAnIdentity)
{
    const SqlServer source(
        {.Tables = {{.Name = "T",
                     .Columns = {{"id", "int", TdsNull::RefusedAndCounted}, {"n", "decimal(9)", TdsNull::Refused}}},
                    {.Name = "U", .Columns = {{"id", "numeric(9)", TdsNull::RefusedAndCounted}}}}});
    const std::vector<CatalogField> fields = source->Fields("SELECT * FROM T WHERE 1=0");
    EXPECT_TRUE(fields.at(0).IsAutoIncrement);
    EXPECT_FALSE(fields.at(1).IsAutoIncrement);
    EXPECT_TRUE(source->Fields("SELECT * FROM U WHERE 1=0").at(0).IsAutoIncrement);
}

TEST(SqlServerCatalog, HasPrimaryKeysWithTheirNamesAndOrder)
{
    const SqlServer source(
        {.Tables = {{.Name = "Line",
                     .Columns = {{"No", "int", TdsNull::Refused}, {"Order", "int", TdsNull::Refused}},
                     .PrimaryKey = {{"PK_Line", {"Order", "No"}}}},
                    {.Name = "Line", .Columns = {{"x", "int"}}, .PrimaryKey = {{"PK_Old", {"x"}}}, .Owner = "old"},
                    {.Name = "Bare", .Columns = {{"x", "int"}}}}});
    const std::vector<CatalogIndex> indexes = source->Indexes("Line");
    ASSERT_EQ(indexes.size(), 1U);
    EXPECT_EQ(indexes[0].Name, "PK_Line");
    EXPECT_TRUE(indexes[0].PrimaryKey);
    EXPECT_THAT(indexes[0].Columns, ElementsAre("Order", "No"));
    EXPECT_EQ(source->Indexes("old.Line").at(0).Name, "PK_Old");
    EXPECT_THAT(source->Indexes("Bare"), IsEmpty());
}

TEST(SqlServerCatalog, HasForeignKeysAcrossSchemasAndToTheTableItself)
{
    const SqlServer source({.Tables = {{.Name = "Employee",
                                        .Columns = {{"Id", "int"}, {"Boss", "int"}},
                                        .ForeignKeys = {{"FK_Boss", {"Boss"}, "Employee", {"Id"}}}},
                                       {.Name = "Wage",
                                        .Columns = {{"a", "int"}, {"b", "int"}, {"c", "int"}},
                                        .ForeignKeys = {{"FK_Grade", {"b", "a"}, "Grade", {"y", "x"}, "pay"},
                                                        {"FK_Who", {"c"}, "Employee", {"Id"}}}},
                                       {.Name = "Grade", .Columns = {{"x", "int"}, {"y", "int"}}, .Owner = "pay"}}});
    const auto described = [&](const std::string& table) {
        std::vector<std::string> rows;
        for (const CatalogKey& key : source->Keys(table)) {
            std::string row = key.Name + " " + key.RelatedTable + ":";
            for (const CatalogKeyColumn& column : key.Columns)
                row += " " + column.Name + "=" + column.RelatedColumn;
            rows.push_back(row);
        }
        return rows;
    };
    EXPECT_THAT(described("Employee"), ElementsAre("FK_Boss Employee: Boss=Id"));
    EXPECT_THAT(described("Wage"), ElementsAre("FK_Grade pay.Grade: b=y a=x", "FK_Who Employee: c=Id"));
    EXPECT_THAT(described("pay.Grade"), IsEmpty());
}

TEST(SqlServerCatalog, HasProceduresWithTheirNumberAndNoneOfTheServersOwn)
{
    const SqlServer source({.Schema = "sales",
                            .Procedures = {{.Name = "GetOrders;1"},
                                           {.Name = "GetOrders;1", .Owner = "archive"},
                                           {.Name = "GetOrders;1", .Owner = "sales"},
                                           {.Name = "Tax;0"},
                                           {.Name = "sp_who;1", .Owner = "sys"}}});
    EXPECT_THAT(source->Procedures(), ElementsAre("dbo.GetOrders;1", "archive.GetOrders;1", "GetOrders;1", "Tax;0"));
}

TEST(SqlServerCatalog, AProcedureOfTheDefaultSchemaHidesEveryNumberOfItsNameInDbo)
{
    const SqlServer source(
        {.Schema = "sales",
         .Procedures = {{.Name = "P;1"}, {.Name = "P;2"}, {.Name = "P;1", .Owner = "sales"}, {.Name = "Q;2"}}});
    EXPECT_THAT(source->Procedures(), ElementsAre("dbo.P;1", "dbo.P;2", "P;1", "Q;2"));
}

TEST(SqlServerCatalog, HasParametersByTheServersWords)
{
    using Kind = TdsParameterKind;
    const SqlServer source(
        {.Procedures = {{.Name = "GetOrders;1",
                         .Parameters = {{"@RETURN_VALUE", "int", Kind::ReturnValue},
                                        {"@CustomerID", "nchar(5)"},
                                        {"@Level", "tinyint"},
                                        {"@Since", "datetime"},
                                        {"@Amount", "decimal(12,3)"},
                                        {"@Price", "money", Kind::InputOutput},
                                        {"@Key", "uniqueidentifier"},
                                        {"@Note", "nvarchar(25)", Kind::InputOutput},
                                        {"@Text", "nvarchar(max)"}}},
                        {.Name = "Nothing;1", .Parameters = {{"@RETURN_VALUE", "int", Kind::ReturnValue}}},
                        {.Name = "Old;1", .Parameters = {{"@x", "float"}}, .Owner = "archive"}}});
    std::vector<std::string> rows;
    for (const auto& [procedure, each] : source->ProcedureParameters())
        rows.push_back(procedure + " " + each.ParameterName + " " + each.DataType + " " +
                       std::to_string(each.DataTypeNumber) + " " + std::to_string(each.Direction) + " [" +
                       each.CharacterMaximumLength + "," + each.NumericPrecision + "," + each.NumericScale + "] " +
                       (each.IsNullable ? "null" : "no null"));
    EXPECT_THAT(
        rows, ::testing::UnorderedElementsAre(
                  "GetOrders;1 @RETURN_VALUE int 3 4 [,10,] no null", "GetOrders;1 @CustomerID nchar 130 1 [5,,] null",
                  "GetOrders;1 @Level tinyint 17 1 [,3,] null", "GetOrders;1 @Since datetime 135 1 [,,] null",
                  "GetOrders;1 @Amount decimal 131 1 [,12,3] null", "GetOrders;1 @Price money 6 2 [,19,] null",
                  "GetOrders;1 @Key uniqueidentifier 72 1 [,,] null", "GetOrders;1 @Note nvarchar 202 2 [25,,] null",
                  "GetOrders;1 @Text nvarchar 203 1 [1073741823,,] null",
                  "Nothing;1 @RETURN_VALUE int 3 4 [,10,] no null", "archive.Old;1 @x float 5 1 [,53,] null"));
}

TEST(SqlServerCatalog, AnUnknownTableIsToldInTheServersWords)
{
    const SqlServer source({});
    const DataSourceError error = source.FailureOn("SELECT * FROM Missing WHERE 1=0");
    EXPECT_EQ(error.Number, data_source_error::kTableUnknown);
    EXPECT_EQ(std::string(error.Description()), "Invalid object name 'Missing'.");
    EXPECT_EQ(error.Errors.at(0).NativeError, 208);
}

TEST(SqlServerCatalog, ATableThatTheLoginMayNotReadIsToldInTheServersWords)
{
    const SqlServer source({.Tables = {{.Name = "Wages", .Columns = {{"x", "int"}}, .IsForbidden = true}}});
    const DataSourceError error = source.FailureOn("SELECT * FROM Wages WHERE 1=0");
    EXPECT_EQ(error.Number, data_source_error::kPermissionDenied);
    EXPECT_EQ(std::string(error.Description()),
              "The SELECT permission was denied on the object 'Wages', database 'shop', schema 'dbo'.");
}

} // namespace
} // namespace veldrane
