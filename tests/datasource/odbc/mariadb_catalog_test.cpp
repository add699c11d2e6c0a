#include "catalog_rows.h"

#include "support/server_database.h"
#include "text/strings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MariaDbDatabase;

using MariaDbTables = testing::DatabaseServerTest;
using MariaDbIndexes = testing::DatabaseServerTest;
using MariaDbKeys = testing::DatabaseServerTest;

std::string InBackticks(const std::string& name)
{
    return "`" + text::ReplaceAll(name, "`", "``") + "`";
}

// The keys as they are read for one table and with those of all: they agree.
std::vector<std::string> KeysBothWays(MariaDbDatabase& database, const std::string& table)
{
    std::vector<std::string> alone = KeyRows(*database.OpenCatalog(), table);
    const auto together = database.OpenCatalog();
    together->ExpectManyTables();
    EXPECT_EQ(KeyRows(*together, table), alone) << table;
    return alone;
}

// Each has the fields "id", one of its own name, "up", and a key to itself.
void ExpectAllOpen(Catalog& catalog, const std::vector<std::string>& names, bool together)
{
    if (together)
        catalog.ExpectManyTables();
    EXPECT_EQ(catalog.Tables().size(), names.size());
    for (const std::string& name : names) {
        EXPECT_THAT(FieldNames(catalog, Statement(name)), ElementsAre("id", name, "up"));
        EXPECT_THAT(PrimaryKey(catalog, name).Columns, ElementsAre("id")) << name;
        const std::vector<CatalogKey> keys = catalog.Keys(name);
        ASSERT_EQ(keys.size(), 1U) << name;
        EXPECT_EQ(keys[0].RelatedTable, name);
    }
}

TEST_F(MariaDbTables, AreListedByNameWithTheirKinds)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE b (x INT);\nCREATE TABLE A (x INT);\nCREATE VIEW v AS SELECT * FROM b;\n"
                 "CREATE SEQUENCE s;\nCREATE TABLE kept (x INT) WITH SYSTEM VERSIONING;\n"
                 "CREATE TABLE a_part (x INT) PARTITION BY HASH (x) PARTITIONS 3;\n");
    EXPECT_THAT(TableRows(*database.OpenCatalog()),
                ElementsAre("A|TABLE", "a_part|TABLE", "b|TABLE", "kept|TABLE", "s|SEQUENCE", "v|VIEW"));
}

TEST_F(MariaDbTables, AnEmptyDatabaseHoldsNone)
{
    MariaDbDatabase database;
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(catalog->Tables(), IsEmpty());
    EXPECT_THAT(catalog->Procedures(), IsEmpty());
    EXPECT_THAT(catalog->ProcedureParameters(), IsEmpty());
    EXPECT_NO_THROW(catalog->ExpectManyTables());
}

TEST_F(MariaDbTables, AConnectionWithoutADatabaseIsToldWhichKeyIsMissing)
{
    MariaDbDatabase database;
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open(text::ReplaceAll(database.ConnectionString(), "Database=" + database.Name() + ";", ""));
    const auto expectTold = [](const std::function<void()>& action) {
        try {
            action();
            ADD_FAILURE() << "nothing failed";
        } catch (const DataSourceError& error) {
            EXPECT_EQ(error.Number, data_source_error::kFailed);
            EXPECT_EQ(error.Description(), "The connection names no database: add the key Database to its string, "
                                           "such as \"Database=shop;\".");
        }
    };
    const auto catalog = connection.OpenCatalog();
    expectTold([&] { (void)catalog->Tables(); });
    expectTold([&] { (void)catalog->Procedures(); });
    expectTold([&] { (void)catalog->Fields(Statement("t")); });
    expectTold([&] { catalog->ExpectManyTables(); });
}

TEST_F(MariaDbTables, AnyNameOpensInAnyModeOfTheServer)
{
    const std::vector<std::string> names = AwkwardNames(
        {" blanks", "back\\", "\\'; x", "PRIMARY", "information", "a\tb", "unsigned", std::string(64, 'n')});
    std::string statements;
    for (const std::string& name : names) {
        const std::string quoted = InBackticks(name);
        const std::string key = "k" + std::to_string(&name - names.data());
        statements += "CREATE TABLE " + quoted + " (id INT AUTO_INCREMENT PRIMARY KEY, " + quoted +
                      " TEXT, up INT, CONSTRAINT " + key + " FOREIGN KEY (up) REFERENCES " + quoted + " (id));\n";
    }
    MariaDbDatabase database;
    database.Run(statements);
    for (const std::string mode : {"", "ANSI_QUOTES,NO_BACKSLASH_ESCAPES", "ORACLE", "TRADITIONAL"}) {
        OdbcConnection connection(OdbcConnectionOptions{.Origin = StringOrigin::CommandLine});
        connection.Open(database.ConnectionString() + "INITSTMT={SET SESSION sql_mode = '" + mode + "'};");
        for (const bool together : {false, true})
            ExpectAllOpen(*connection.OpenCatalog(), names, together);
    }
}

TEST_F(MariaDbTables, ALetterCaseOfItsOwnMakesAnotherTable)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE orders (a INT PRIMARY KEY);\nCREATE TABLE Orders (b INT PRIMARY KEY);\n"
                 "CREATE TABLE Lonely (c INT PRIMARY KEY);\n");
    for (const bool together : {false, true}) {
        const auto catalog = database.OpenCatalog();
        if (together)
            catalog->ExpectManyTables();
        EXPECT_THAT(FieldNames(*catalog, Statement("orders")), ElementsAre("a"));
        EXPECT_THAT(FieldNames(*catalog, Statement("Orders")), ElementsAre("b"));
        EXPECT_THAT(PrimaryKey(*catalog, "orders").Columns, ElementsAre("a"));
        EXPECT_THAT(PrimaryKey(*catalog, "Orders").Columns, ElementsAre("b"));
        EXPECT_THAT(FieldNames(*catalog, "SELECT * FROM LONELY WHERE 1=0"), ElementsAre("c"));
    }
}

TEST_F(MariaDbTables, AMissingTableIsUnknown)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE a (x INT);\n");
    const auto catalog = database.OpenCatalog();
    for (const std::string name : {"b", "b c", "x; DROP TABLE a", "a`b", "mysql.missing"}) {
        EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Fields(Statement(name)); }), data_source_error::kTableUnknown)
            << name;
        EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Keys(name); }), data_source_error::kTableUnknown) << name;
    }
    EXPECT_EQ(database.OpenCatalog()->Tables().size(), 1U);
}

TEST_F(MariaDbIndexes, APrimaryKeyKeepsItsOwnOrder)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (a INT, b INT, c INT UNIQUE, PRIMARY KEY (c, a));\n");
    for (const bool together : {false, true}) {
        const auto catalog = database.OpenCatalog();
        if (together)
            catalog->ExpectManyTables();
        const CatalogIndex key = PrimaryKey(*catalog, "t");
        EXPECT_EQ(key.Name, "PRIMARY");
        EXPECT_TRUE(key.Unique);
        EXPECT_THAT(key.Columns, ElementsAre("c", "a"));
    }
}

TEST_F(MariaDbIndexes, AUniqueColumnIsNoPrimaryKey)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (a INT NOT NULL UNIQUE, b INT);\nCREATE VIEW v AS SELECT * FROM t;\n");
    const auto catalog = database.OpenCatalog();
    const std::vector<CatalogIndex> indexes = catalog->Indexes("t");
    ASSERT_EQ(indexes.size(), 1U);
    EXPECT_FALSE(indexes[0].PrimaryKey);
    EXPECT_TRUE(indexes[0].Unique);
    EXPECT_THAT(indexes[0].Columns, ElementsAre("a"));
    EXPECT_THAT(catalog->Indexes("v"), IsEmpty());
}

TEST_F(MariaDbIndexes, UniqueOnesFollowThePrimaryKey)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (a INT, b INT, c VARCHAR(99), PRIMARY KEY (b), UNIQUE KEY Z (c(10), a),"
                 " UNIQUE KEY A (a));\n");
    const std::vector<CatalogIndex> indexes = database.OpenCatalog()->Indexes("t");
    ASSERT_EQ(indexes.size(), 3U);
    EXPECT_TRUE(indexes[0].PrimaryKey);
    EXPECT_EQ(indexes[1].Name, "A");
    EXPECT_EQ(indexes[2].Name, "Z");
    EXPECT_THAT(indexes[2].Columns, ElementsAre("c", "a"));
}

TEST_F(MariaDbKeys, AreCompleteAndInTheOrderOfTheirNames)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE customer (id INT PRIMARY KEY, code CHAR(5) UNIQUE);\n"
                 "CREATE TABLE line (a INT, b INT, PRIMARY KEY (b, a));\n"
                 "CREATE TABLE orders (id INT PRIMARY KEY, ship INT, bill INT, up INT, x INT, y INT, code CHAR(5),"
                 " CONSTRAINT fk_ship FOREIGN KEY (ship) REFERENCES customer (id),"
                 " CONSTRAINT fk_bill FOREIGN KEY (bill) REFERENCES customer (id),"
                 " CONSTRAINT fk_code FOREIGN KEY (code) REFERENCES customer (code),"
                 " CONSTRAINT own FOREIGN KEY (up) REFERENCES orders (id),"
                 " CONSTRAINT line2 FOREIGN KEY (x, y) REFERENCES line (b, a),"
                 " CONSTRAINT line1 FOREIGN KEY (y, x) REFERENCES line (b, a), UNIQUE KEY own (up));\n");
    EXPECT_THAT(KeysBothWays(database, "orders"),
                ElementsAre("fk_bill: customer bill=id", "fk_code: customer code=code", "fk_ship: customer ship=id",
                            "line1: line y=b x=a", "line2: line x=b y=a", "own: orders up=id"));
    EXPECT_THAT(KeysBothWays(database, "customer"), IsEmpty());
}

TEST_F(MariaDbKeys, NamesThatDifferInAnAccentAloneAreTwoKeys)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE p (a INT, b INT, PRIMARY KEY (a, b));\n"
                 "CREATE TABLE c (w INT, x INT, y INT, z INT,"
                 " CONSTRAINT fk_u FOREIGN KEY (w, x) REFERENCES p (a, b),"
                 " CONSTRAINT fk_ü FOREIGN KEY (y, z) REFERENCES p (a, b));\n");
    EXPECT_THAT(KeysBothWays(database, "c"), ElementsAre("fk_u: p w=a x=b", "fk_ü: p y=a z=b"));
}

TEST_F(MariaDbKeys, ATableOfAnotherDatabaseBearsItsName)
{
    MariaDbDatabase other;
    other.Run("CREATE TABLE customer (id INT PRIMARY KEY);\nCREATE TABLE taken (id INT PRIMARY KEY);\n");
    MariaDbDatabase database;
    database.Run("CREATE TABLE customer (id INT PRIMARY KEY);\n"
                 "CREATE TABLE `" +
                 other.Name() +
                 ".taken` (id INT PRIMARY KEY);\n"
                 "CREATE TABLE orders (a INT, b INT, c INT,"
                 " CONSTRAINT near FOREIGN KEY (a) REFERENCES customer (id),"
                 " CONSTRAINT far FOREIGN KEY (b) REFERENCES " +
                 other.Name() +
                 ".customer (id),"
                 " CONSTRAINT odd FOREIGN KEY (c) REFERENCES " +
                 other.Name() + ".taken (id));\n");
    EXPECT_THAT(KeysBothWays(database, "orders"),
                ElementsAre("far: " + other.Name() + ".customer b=id", "near: customer a=id",
                            "odd: `" + other.Name() + "`.`taken` c=id"));
    EXPECT_THAT(KeysBothWays(other, "customer"), IsEmpty());
    database.Run("DROP TABLE orders;\n");
}

TEST_F(MariaDbKeys, ADatabaseOfTheSameLettersInAnotherCaseIsAnother)
{
    MariaDbDatabase database;
    const std::string other = "V" + database.Name().substr(1);
    database.Run("CREATE TABLE customer (id INT PRIMARY KEY);\nCREATE DATABASE " + other +
                 ";\n"
                 "CREATE TABLE " +
                 other +
                 ".customer (id INT PRIMARY KEY, UNIQUE KEY theirs (id));\n"
                 "CREATE PROCEDURE " +
                 other +
                 ".p() SELECT 1;\n"
                 "CREATE TABLE orders (a INT, CONSTRAINT far FOREIGN KEY (a) REFERENCES " +
                 other + ".customer (id));\n");
    EXPECT_THAT(TableRows(*database.OpenCatalog()), ElementsAre("customer|TABLE", "orders|TABLE"));
    EXPECT_THAT(KeysBothWays(database, "orders"), ElementsAre("far: " + other + ".customer a=id"));
    EXPECT_EQ(database.OpenCatalog()->Indexes("customer").size(), 1U);
    EXPECT_THAT(database.OpenCatalog()->Procedures(), IsEmpty());
    database.Run("DROP TABLE orders;\nDROP DATABASE " + other + ";\n");
}

TEST_F(MariaDbKeys, AKeyToATableThatIsGoneIsStillListed)
{
    MariaDbDatabase database;
    database.Run("SET foreign_key_checks = 0;\nCREATE TABLE gone (id INT PRIMARY KEY);\n"
                 "CREATE TABLE orders (a INT, CONSTRAINT k FOREIGN KEY (a) REFERENCES gone (id));\nDROP TABLE gone;\n");
    EXPECT_THAT(KeysBothWays(database, "orders"), ElementsAre("k: gone a=id"));
}

} // namespace
} // namespace veldrane
