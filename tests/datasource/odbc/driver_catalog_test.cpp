#include "sqlite_file.h"

#include "datasource/ado_types.h"
#include "datasource/odbc/driver_catalog_source.h"
#include "datasource/odbc/odbc_catalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The catalog of a SQLite file as the driver's own functions tell it.
std::unique_ptr<Catalog> CatalogOfDriver(const SqliteFile& file)
{
    const OdbcLogon logon{.Text = "Driver=SQLite3;NoCreat=1;Database=" + file.Path() + ";",
                          .Profile = &ProfileOf("libsqlite3odbc.so"),
                          .Database = file.Path()};
    const auto session = std::make_shared<OdbcSession>(logon, SessionOptions{}, std::make_shared<OdbcErrors>());
    return std::make_unique<OdbcCatalog>(session, std::make_unique<DriverCatalogSource>(*session));
}

TEST(DriverCatalog, ListsTablesOnce)
{
    SqliteFile file("CREATE TABLE a (x);\nCREATE TABLE \"b c\" (x);\nCREATE VIEW v AS SELECT x FROM a;\n");
    const auto catalog = CatalogOfDriver(file);
    std::vector<std::string> rows;
    for (const CatalogTable& table : catalog->Tables())
        rows.push_back(table.Name + "|" + table.Type);
    EXPECT_THAT(rows, testing::UnorderedElementsAre("a|TABLE", "b c|TABLE", "v|VIEW"));
}

TEST(DriverCatalog, OpensATableByItsQuotedName)
{
    SqliteFile file("CREATE TABLE \"Größe \"\"x\"\"\" (a INTEGER NOT NULL, b VARCHAR(7));\n");
    const auto catalog = CatalogOfDriver(file);
    const std::vector<CatalogField> fields = catalog->Fields("SELECT * FROM [Größe \"x\"] WHERE 1=0");
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[0].Type, adInteger);
    EXPECT_EQ(fields[0].Attributes, 0);
    EXPECT_EQ(fields[1].Type, adVarChar);
    EXPECT_EQ(fields[1].DefinedSize, 7);
}

TEST(DriverCatalog, TellsBracketsOfANameFromThoseAroundIt)
{
    SqliteFile file("CREATE TABLE x (a);\nCREATE TABLE \"[x]\" (b);\nCREATE TABLE \"2y\" (c);\n"
                    "CREATE TABLE \"[2y]\" (d);\nCREATE TABLE \"[x-y]\" (e);\n");
    const auto catalog = CatalogOfDriver(file);
    EXPECT_EQ(catalog->Fields("SELECT * FROM x WHERE 1=0").at(0).Name, "a");
    EXPECT_EQ(catalog->Fields("SELECT * FROM [x] WHERE 1=0").at(0).Name, "b");
    EXPECT_EQ(catalog->Fields("SELECT * FROM [2y] WHERE 1=0").at(0).Name, "c");
    EXPECT_EQ(catalog->Fields("SELECT * FROM [[2y]] WHERE 1=0").at(0).Name, "d");
    EXPECT_EQ(catalog->Fields("SELECT * FROM [x-y] WHERE 1=0").at(0).Name, "e");
}

TEST(DriverCatalog, ReadsKeysAndNoOtherIndexThanThePrimaryOne)
{
    SqliteFile file("CREATE TABLE p (a INT, b INT, PRIMARY KEY (a, b));\n"
                    "CREATE TABLE c (id INTEGER PRIMARY KEY, x INT, y INT, z INT REFERENCES c (id),"
                    " FOREIGN KEY (x, y) REFERENCES p (a, b));\n"
                    "CREATE INDEX yx ON c (y, x);\nCREATE TABLE bare (x INT);\nCREATE INDEX bx ON bare (x);\n");
    const auto catalog = CatalogOfDriver(file);
    const std::vector<CatalogIndex> indexes = catalog->Indexes("p");
    ASSERT_FALSE(indexes.empty());
    EXPECT_TRUE(indexes[0].PrimaryKey);
    EXPECT_EQ(indexes[0].Name, "PrimaryKey");
    EXPECT_THAT(indexes[0].Columns, ElementsAre("a", "b"));
    EXPECT_EQ(catalog->Indexes("c").size(), 1U);
    EXPECT_THAT(catalog->Indexes("bare"), IsEmpty());

    std::vector<std::string> keys;
    for (const CatalogKey& key : catalog->Keys("c")) {
        std::string row = key.Name + ":";
        for (const CatalogKeyColumn& column : key.Columns)
            row += " " + column.Name + "=" + column.RelatedColumn;
        keys.push_back(row);
    }
    EXPECT_THAT(keys, testing::UnorderedElementsAre("pc: x=a y=b", "cc: z=id"));
}

TEST(DriverCatalog, AnswersWithNothingWhereThereIsNothing)
{
    SqliteFile file("CREATE TABLE a (x);\nDROP TABLE a;\nCREATE TABLE bare (x);\n");
    const auto catalog = CatalogOfDriver(file);
    EXPECT_THAT(catalog->Keys("bare"), IsEmpty());
    EXPECT_THAT(catalog->Procedures(), IsEmpty());
    EXPECT_NO_THROW(catalog->ExpectManyTables());
}

TEST(DriverCatalog, AMissingTableIsUnknown)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const auto catalog = CatalogOfDriver(file);
    try {
        (void)catalog->Fields("SELECT * FROM b WHERE 1=0");
        FAIL();
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Number, data_source_error::kTableUnknown);
    }
}

} // namespace
} // namespace veldrane
