#include "opened_project.h"
#include "sample_database.h"

#include "model/keys.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>

namespace veldrane {
namespace {

using testing::Ended;
using testing::OpenedProject;
using testing::SampleDatabaseTest;
using testing::SampleServer;
using testing::SampleSource;

struct Counts
{
    std::size_t Tables = 0;
    std::size_t Views = 0; // materialized ones among them
    std::size_t Properties = 0;
    std::size_t PrimaryKeys = 0;
    std::size_t PrimaryKeyColumns = 0;
    std::size_t IdentityColumns = 0;
    std::size_t ForeignKeys = 0;
    std::size_t Children = 0;      // tables whose foreign keys reach exactly one other table
    std::size_t Relationships = 0; // of these tables to that table

    friend bool operator==(const Counts&, const Counts&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Counts& counts)
    {
        return stream << counts.Tables << " tables, " << counts.Views << " views, " << counts.Properties
                      << " properties, " << counts.PrimaryKeys << " primary keys of " << counts.PrimaryKeyColumns
                      << " columns, " << counts.IdentityColumns << " identity columns, " << counts.ForeignKeys
                      << " foreign keys, " << counts.Children << " children with " << counts.Relationships
                      << " relationships";
    }
};

struct Sample
{
    const char* Name;
    SampleSource Source;
    Counts InTheSql;       // counted in the text of the files
    const char* Told = ""; // what `define` says of it
};

// Once for the name of the class, and once for that of its collection.
constexpr const char* kOrderDetails =
    "Invalid Name Detected: The name: 'Order Details' is invalid because it is either a reserved word or contains"
    " invalid characters. It has been changed to 'Order_Details'\n"
    "Invalid Name Detected: The name: 'Order Details' is invalid because it is either a reserved word or contains"
    " invalid characters. It has been changed to 'Order_Details'\n";

void PrintTo(const Sample& sample, std::ostream* stream)
{
    *stream << sample.Name;
}

constexpr Counts kChinook{.Tables = 11,
                          .Properties = 64,
                          .PrimaryKeys = 11,
                          .PrimaryKeyColumns = 12,
                          .IdentityColumns = 10,
                          .ForeignKeys = 11,
                          .Children = 3,
                          .Relationships = 3};

const Sample kSamples[] = {
    {"ChinookSqlite", {SampleServer::Sqlite, {"chinook/chinook-sqlite-schema.sql"}}, kChinook},
    {"ChinookSqlServer", {SampleServer::SqlServer, {"chinook/chinook-sqlserver-identity-schema.sql"}}, kChinook},
    {"ChinookSqliteAutoincrement",
     {SampleServer::Sqlite, {"chinook/chinook-sqlite-autoincrement-schema.sql"}},
     kChinook},
    {"NorthwindSqlite",
     {SampleServer::Sqlite, {"northwind-sqlite/northwind-sqlite-schema.sql"}},
     {.Tables = 13,
      .Views = 16,
      .Properties = 88,
      .PrimaryKeys = 13,
      .PrimaryKeyColumns = 16,
      .IdentityColumns = 7,
      .ForeignKeys = 13,
      .Children = 1,
      .Relationships = 1},
     kOrderDetails},
    // A sixth view is written for another database, and is refused.
    {"SakilaSqlite",
     {SampleServer::Sqlite, {"sakila/sakila-sqlite-schema.sql"}},
     {.Tables = 16,
      .Views = 5,
      .Properties = 89,
      .PrimaryKeys = 16,
      .PrimaryKeyColumns = 18,
      .IdentityColumns = 14,
      .ForeignKeys = 22,
      .Children = 3,
      .Relationships = 4}},
    {"ChinookPostgreSqlSerial", {SampleServer::PostgreSql, {"chinook/chinook-postgres-serial-schema.sql"}}, kChinook},
    {"ChinookPostgreSqlIdentity",
     {SampleServer::PostgreSql, {"chinook/chinook-postgres-identity-schema.sql"}},
     kChinook},
    {"NorthwindPostgreSql",
     {SampleServer::PostgreSql, {"northwind-postgres/northwind-postgres-schema.sql"}},
     {.Tables = 14,
      .Properties = 92,
      .PrimaryKeys = 14,
      .PrimaryKeyColumns = 17,
      .IdentityColumns = 0,
      .ForeignKeys = 13,
      .Children = 1,
      .Relationships = 1}},
    // The six partitions inherit the columns and their defaults, and no key.
    {"SakilaPostgreSql",
     {SampleServer::PostgreSql, {"sakila/sakila-postgres-schema.sql"}},
     {.Tables = 21,
      .Views = 7,
      .Properties = 123,
      .PrimaryKeys = 15,
      .PrimaryKeyColumns = 17,
      .IdentityColumns = 19,
      .ForeignKeys = 40,
      .Children = 3,
      .Relationships = 4}},
    // The seven partitions that are attached get the primary key of their table.
    {"Pagila",
     {SampleServer::PostgreSql, {"pagila/pagila-schema.sql"}},
     {.Tables = 22,
      .Views = 8,
      .Properties = 129,
      .PrimaryKeys = 22,
      .PrimaryKeyColumns = 32,
      .IdentityColumns = 20,
      .ForeignKeys = 36,
      .Children = 4,
      .Relationships = 5}},
    {"ChinookMariaDb", {SampleServer::MariaDb, {"chinook/chinook-mysql-autoincrement-schema.sql"}}, kChinook},
    {"SakilaMariaDb",
     {SampleServer::MariaDb, {"sakila/sakila-mysql-schema.sql"}},
     {.Tables = 16,
      .Views = 7,
      .Properties = 89,
      .PrimaryKeys = 16,
      .PrimaryKeyColumns = 18,
      .IdentityColumns = 13,
      .ForeignKeys = 22,
      .Children = 3,
      .Relationships = 4}},
    {"EmployeesMariaDb",
     {SampleServer::MariaDb, {"employees/employees-mysql-schema.sql", "employees/employees-mysql-objects.sql"}},
     {.Tables = 6,
      .Views = 4,
      .Properties = 24,
      .PrimaryKeys = 6,
      .PrimaryKeyColumns = 11,
      .IdentityColumns = 0,
      .ForeignKeys = 6,
      .Children = 2,
      .Relationships = 2}},
};

void CountClass(const KZMClass& item, Counts& counts)
{
    ++counts.Tables;
    for (const TTCProperty& property : item.TTCProperties)
        counts.Properties += property.FieldName.empty() ? 0U : 1U;
    for (const TTCKey& key : item.TTCKeys) {
        if (key.KeyType == key_type::kPrimaryKey) {
            ++counts.PrimaryKeys;
            counts.PrimaryKeyColumns += key.TTCColumns.Count();
        } else {
            ++counts.IdentityColumns;
        }
    }
    counts.Children += item.ParentClassName.empty() ? 0U : 1U;
    counts.Relationships += item.TTCRelationships.Count();
}

// What the project has of the database, and from the catalog what no project holds.
Counts CountFound(const KZMClasses& classes, Catalog& catalog)
{
    Counts found;
    for (const KZMClass& item : classes)
        if (!item.TableName.empty())
            CountClass(item, found);
    catalog.ExpectManyTables();
    for (const CatalogTable& table : catalog.Tables()) {
        found.Views += table.Type == "VIEW" || table.Type == "MATVIEW" ? 1U : 0U;
        if (table.Type == "TABLE")
            found.ForeignKeys += catalog.Keys(table.Name).size();
    }
    return found;
}

class SampleDatabases : public SampleDatabaseTest, public ::testing::WithParamInterface<Sample>
{};

INSTANTIATE_TEST_SUITE_P(All, SampleDatabases, ::testing::ValuesIn(kSamples),
                         [](const auto& sample) { return std::string(sample.param.Name); });

TEST_P(SampleDatabases, GiveAProjectWithAllThatIsInTheSql)
{
    const std::string connection = Load(GetParam().Source);
    const std::string file = Workspace.Path("Sample.kzm");
    const Ended defined = Workspace.Run({"define", file, "--connection", connection, "--all"});
    EXPECT_EQ(defined.ExitCode, 0);
    EXPECT_EQ(defined.ErrorOutput, GetParam().Told);
    const OpenedProject opened(file, Workspace.ReadFile("Sample.kzm"));
    EXPECT_EQ(CountFound(opened.Classes, *OpenCatalog(connection)), GetParam().InTheSql);

    const std::string folder = Workspace.Path("out");
    std::filesystem::create_directory(folder);
    const Ended generated = Workspace.Run({"generate", file, folder});
    EXPECT_EQ(generated.ExitCode, 0);
    EXPECT_EQ(generated.ErrorOutput, "");
    for (const KZMClass& item : opened.Classes)
        EXPECT_TRUE(std::filesystem::exists(folder + "/" + item.ClassName + ".cls")) << item.ClassName;
}

} // namespace
} // namespace veldrane
