#include "sqlite_file.h"
#include "support/sample_data.h"

#include "datasource/ado_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

// Sample databases that do not come with the project.
class SampleData : public ::testing::Test
{
  protected:
    // The catalog of a schema below the folder of the samples, loaded into a file of its own.
    std::unique_ptr<Catalog> Load(const std::string& schema)
    {
        file_.Run("DROP TABLE placeholder;\n");
        const std::string command = "sqlite3 '" + file_.Path() + "' < '" + folder_ + schema + "' > /dev/null";
        if (std::system(command.c_str()) != 0) // NOLINT(concurrency-mt-unsafe)
            throw RuntimeError(error_number::kFileNotFound, "SampleData", "The sqlite3 command can't load " + schema);
        return file_.OpenCatalog();
    }

    void SetUp() override
    {
        if (folder_.empty())
            GTEST_SKIP() << testing::kNoSampleData;
    }

  private:
    std::string folder_ = testing::SampleDataFolder(".");
    SqliteFile file_{"CREATE TABLE placeholder (x);\n"};
};

std::ptrdiff_t CountOf(Catalog& catalog, const std::string& type)
{
    const std::vector<CatalogTable>& tables = catalog.Tables();
    return std::count_if(tables.begin(), tables.end(), [&](const CatalogTable& table) { return table.Type == type; });
}

std::ptrdiff_t CountOfKeys(Catalog& catalog)
{
    std::ptrdiff_t count = 0;
    for (const CatalogTable& table : catalog.Tables())
        count += static_cast<std::ptrdiff_t>(catalog.Keys(table.Name).size());
    return count;
}

std::vector<std::string> PrimaryKey(Catalog& catalog, const std::string& table)
{
    for (const CatalogIndex& index : catalog.Indexes(table))
        if (index.PrimaryKey)
            return index.Columns;
    return {};
}

CatalogField Field(Catalog& catalog, const std::string& table, const std::string& name)
{
    for (const CatalogField& field : catalog.Fields("SELECT * FROM [" + table + "] WHERE 1=0"))
        if (field.Name == name)
            return field;
    ADD_FAILURE() << table << " has no field " << name;
    return {};
}

void ExpectEveryTableOpens(Catalog& catalog)
{
    for (const CatalogTable& table : catalog.Tables())
        EXPECT_FALSE(catalog.Fields("SELECT * FROM [" + table.Name + "] WHERE 1=0").empty()) << table.Name;
}

TEST_F(SampleData, Northwind)
{
    const auto catalog = Load("northwind-sqlite/northwind-sqlite-schema.sql");
    catalog->ExpectManyTables();
    EXPECT_EQ(CountOf(*catalog, "TABLE"), 13);
    EXPECT_EQ(CountOf(*catalog, "SYSTEM TABLE"), 1);
    EXPECT_EQ(CountOf(*catalog, "VIEW"), 16);
    EXPECT_EQ(CountOfKeys(*catalog), 13);
    ExpectEveryTableOpens(*catalog);
    EXPECT_THAT(PrimaryKey(*catalog, "Order Details"), ElementsAre("OrderID", "ProductID"));
    EXPECT_TRUE(Field(*catalog, "Orders", "OrderID").IsAutoIncrement);
    EXPECT_EQ(Field(*catalog, "Orders", "OrderID").Attributes, 0);
    EXPECT_EQ(Field(*catalog, "Orders", "Freight").Type, adNumeric);
    EXPECT_EQ(Field(*catalog, "Orders", "OrderDate").Type, adDBTimeStamp);
    EXPECT_EQ(Field(*catalog, "Categories", "Picture").Type, adLongVarBinary);
    EXPECT_FALSE(Field(*catalog, "Customers", "CustomerID").IsAutoIncrement);
    const std::vector<CatalogKey> keys = catalog->Keys("Employees");
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys[0].RelatedTable, "Employees");
    EXPECT_EQ(keys[0].Columns.at(0).Name, "ReportsTo");
    EXPECT_EQ(keys[0].Columns.at(0).RelatedColumn, "EmployeeID");
}

TEST_F(SampleData, Chinook)
{
    const auto catalog = Load("chinook/chinook-sqlite-schema.sql");
    catalog->ExpectManyTables();
    EXPECT_EQ(CountOf(*catalog, "TABLE"), 11);
    EXPECT_EQ(CountOfKeys(*catalog), 11);
    ExpectEveryTableOpens(*catalog);
    EXPECT_EQ(catalog->Indexes("PlaylistTrack").at(0).Name, "PK_PlaylistTrack");
    EXPECT_THAT(PrimaryKey(*catalog, "PlaylistTrack"), ElementsAre("PlaylistId", "TrackId"));
    EXPECT_TRUE(Field(*catalog, "Track", "TrackId").IsAutoIncrement);
    EXPECT_EQ(Field(*catalog, "Track", "Name").DefinedSize, 200);
    EXPECT_EQ(Field(*catalog, "InvoiceLine", "UnitPrice").Type, adNumeric);
}

TEST_F(SampleData, Sakila)
{
    const auto catalog = Load("sakila/sakila-sqlite-schema.sql");
    catalog->ExpectManyTables();
    EXPECT_EQ(CountOf(*catalog, "TABLE"), 16);
    EXPECT_EQ(CountOf(*catalog, "VIEW"), 5);
    EXPECT_EQ(CountOfKeys(*catalog), 22);
    ExpectEveryTableOpens(*catalog);
    EXPECT_THAT(PrimaryKey(*catalog, "film_actor"), ElementsAre("actor_id", "film_id"));
    EXPECT_EQ(Field(*catalog, "film", "rental_rate").Type, adNumeric);
    EXPECT_EQ(Field(*catalog, "film", "length").Type, adSmallInt);
    const std::vector<CatalogKey> keys = catalog->Keys("film");
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_EQ(keys[0].Name, "languagefilm");
    EXPECT_EQ(keys[1].Name, "languagefilm2");
    EXPECT_EQ(keys[1].Columns.at(0).Name, "original_language_id");
}

} // namespace
} // namespace veldrane
