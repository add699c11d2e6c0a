#include "catalog_rows.h"
#include "sqlite_file.h"

#include "datasource/ado_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SqliteTables, AreListedInTheOrderOfTheirCreationWithSystemTablesToldApart)
{
    SqliteFile file("CREATE TABLE b (id INTEGER PRIMARY KEY AUTOINCREMENT);\n"
                    "CREATE TABLE a (x);\n"
                    "CREATE VIEW v AS SELECT * FROM a;\n");
    EXPECT_THAT(TableRows(*file.OpenCatalog()),
                ElementsAre("b|TABLE", "sqlite_sequence|SYSTEM TABLE", "a|TABLE", "v|VIEW"));
}

TEST(SqliteTables, AnEmptyFileHoldsNone)
{
    SqliteFile file("CREATE TABLE a (x);\nDROP TABLE a;\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(catalog->Tables(), IsEmpty());
    EXPECT_THAT(catalog->Procedures(), IsEmpty());
    EXPECT_NO_THROW(catalog->ExpectManyTables());
}

TEST(SqliteTables, AnyNameOpens)
{
    const std::vector<std::string> names = AwkwardNames({"", " blanks "});
    std::string statements;
    for (const std::string& name : names) {
        std::string quoted;
        for (const char c : name)
            quoted.append(c == '"' ? 2 : 1, c);
        statements.append("CREATE TABLE \"").append(quoted).append("\" (id INTEGER PRIMARY KEY, \"");
        statements.append(quoted).append(" col\" TEXT);\n");
    }
    SqliteFile file(statements);
    const auto catalog = file.OpenCatalog();
    ASSERT_EQ(catalog->Tables().size(), names.size());
    for (std::size_t at = 0; at < names.size(); ++at) {
        EXPECT_EQ(catalog->Tables()[at].Name, names[at]);
        EXPECT_THAT(FieldNames(*catalog, Statement(names[at])), ElementsAre("id", names[at] + " col")) << names[at];
        EXPECT_THAT(FieldNames(*catalog, "SELECT * FROM " + names[at] + " WHERE 1=0"),
                    ElementsAre("id", names[at] + " col"))
            << names[at];
        EXPECT_THAT(PrimaryKey(*catalog, names[at]).Columns, ElementsAre("id")) << names[at];
    }
}

TEST(SqliteTables, ALikeNameIsNotMistaken)
{
    SqliteFile file("CREATE TABLE a_b (x);\nCREATE TABLE aXb (y);\nCREATE TABLE \"a%b\" (z);\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(FieldNames(*catalog, "SELECT * FROM a_b WHERE 1=0"), ElementsAre("x"));
    EXPECT_THAT(FieldNames(*catalog, Statement("a%b")), ElementsAre("z"));
}

TEST(SqliteTables, NamesAreFoundWithoutRegardToCase)
{
    SqliteFile file("CREATE TABLE Orders (Id INTEGER PRIMARY KEY);\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(FieldNames(*catalog, "select * from orders where 1=0"), ElementsAre("Id"));
    EXPECT_THAT(PrimaryKey(*catalog, "ORDERS").Columns, ElementsAre("Id"));
}

TEST(SqliteTables, AMissingTableIsUnknown)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const auto catalog = file.OpenCatalog();
    for (const std::string name : {"b", "b c", "x; DROP TABLE a", "", "main.b"}) {
        EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Fields(Statement(name)); }), data_source_error::kTableUnknown)
            << name;
        EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Indexes(name); }), data_source_error::kTableUnknown) << name;
        EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Keys(name); }), data_source_error::kTableUnknown) << name;
        EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Columns(name); }), data_source_error::kTableUnknown) << name;
    }
    EXPECT_EQ(file.OpenCatalog()->Tables().size(), 1U);
}

TEST(SqliteTables, OnlyAStatementThatOpensATableIsSent)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const auto catalog = file.OpenCatalog();
    for (const std::string statement : {"DROP TABLE a", "SELECT * FROM a", "", "SELECT * FROM  WHERE 1=1"})
        EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Fields(statement); }), data_source_error::kFailed) << statement;
    EXPECT_EQ(file.OpenCatalog()->Tables().size(), 1U);
}

TEST(SqliteViews, OpenLikeTables)
{
    SqliteFile file("CREATE TABLE a (id INTEGER PRIMARY KEY AUTOINCREMENT, m MONEY NOT NULL);\n"
                    "CREATE VIEW v AS SELECT id, m, m + 1 AS n FROM a;\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(FieldNames(*catalog, Statement("v")), ElementsAre("id", "m", "n"));
    EXPECT_EQ(catalog->Fields(Statement("v")).at(1).Type, adCurrency);
    EXPECT_THAT(catalog->Indexes("v"), IsEmpty());
    EXPECT_THAT(catalog->Keys("v"), IsEmpty());
}

TEST(SqliteViews, ABrokenOneFailsAloneAndWithTheDriversWords)
{
    SqliteFile file("CREATE TABLE a (x INTEGER PRIMARY KEY);\n"
                    "CREATE TABLE gone (x);\n"
                    "CREATE VIEW broken AS SELECT * FROM gone;\n"
                    "DROP TABLE gone;\n");
    const auto catalog = file.OpenCatalog();
    catalog->ExpectManyTables();
    EXPECT_THAT(PrimaryKey(*catalog, "a").Columns, ElementsAre("x"));
    EXPECT_THAT(catalog->Indexes("broken"), IsEmpty());
    try {
        (void)catalog->Fields(Statement("broken"));
        FAIL();
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Number, data_source_error::kTableUnknown);
        EXPECT_THAT(error.Description(), testing::HasSubstr("no such table: main.gone"));
        ASSERT_EQ(error.Errors.size(), 1U);
        EXPECT_EQ(error.Errors[0].NativeError, 1);
        EXPECT_EQ(error.Errors[0].SQLState, "HY000");
    }
}

TEST(SqliteIndexes, APrimaryKeyKeepsItsOwnOrder)
{
    SqliteFile file("CREATE TABLE t (a INT, b INT, c INT, PRIMARY KEY (c, a));\n"
                    "CREATE TABLE w (a INT, b INT, PRIMARY KEY (b, a)) WITHOUT ROWID;\n");
    const auto catalog = file.OpenCatalog();
    const CatalogIndex key = PrimaryKey(*catalog, "t");
    EXPECT_THAT(key.Columns, ElementsAre("c", "a"));
    EXPECT_EQ(key.Name, "PrimaryKey");
    EXPECT_TRUE(key.Unique);
    EXPECT_THAT(PrimaryKey(*catalog, "w").Columns, ElementsAre("b", "a"));
}

TEST(SqliteIndexes, APrimaryKeyBearsTheNameOfItsConstraint)
{
    SqliteFile file("CREATE TABLE t (a INT /* CONSTRAINT no PRIMARY KEY */, b INT CONSTRAINT nn NOT NULL,"
                    " CONSTRAINT [the key] PRIMARY KEY (a, b));\n"
                    "CREATE TABLE u (a INTEGER CONSTRAINT \"k\"\"1\" PRIMARY KEY);\n"
                    "CREATE TABLE v (\"CONSTRAINT\" TEXT, \"PRIMARY\" INT, \"KEY\" INT PRIMARY KEY);\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_EQ(PrimaryKey(*catalog, "t").Name, "the key");
    EXPECT_EQ(PrimaryKey(*catalog, "u").Name, "k\"1");
    EXPECT_EQ(PrimaryKey(*catalog, "v").Name, "PrimaryKey");
}

TEST(SqliteIndexes, OthersFollowThePrimaryKey)
{
    SqliteFile file("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT, b TEXT UNIQUE);\n"
                    "CREATE INDEX later ON t (b, a);\n"
                    "CREATE UNIQUE INDEX expressed ON t (lower(a), b);\n"
                    "CREATE TABLE none (a TEXT);\n");
    const auto catalog = file.OpenCatalog();
    const std::vector<CatalogIndex> indexes = catalog->Indexes("t");
    ASSERT_EQ(indexes.size(), 4U);
    EXPECT_TRUE(indexes[0].PrimaryKey);
    EXPECT_TRUE(indexes[1].Unique);
    EXPECT_THAT(indexes[1].Columns, ElementsAre("b"));
    EXPECT_EQ(indexes[2].Name, "later");
    EXPECT_FALSE(indexes[2].Unique);
    EXPECT_THAT(indexes[2].Columns, ElementsAre("b", "a"));
    EXPECT_THAT(indexes[3].Columns, ElementsAre("b"));
    EXPECT_THAT(catalog->Indexes("none"), IsEmpty());
}

TEST(SqliteKeys, AreNamedAndInTheOrderOfTheDefinition)
{
    SqliteFile file("CREATE TABLE Customers (id INTEGER PRIMARY KEY);\n"
                    "CREATE TABLE Lines (a INT, b INT, PRIMARY KEY (b, a));\n"
                    "CREATE TABLE Orders (id INTEGER PRIMARY KEY, bill INT REFERENCES customers,"
                    " ship INT REFERENCES Customers (id), x INT, y INT, up INT REFERENCES Orders (id),"
                    " lost INT REFERENCES missing, lost2 INT REFERENCES missing (z), lost3 INT REFERENCES Missing (z),"
                    " FOREIGN KEY (x, y) REFERENCES Lines, FOREIGN KEY (y, x) REFERENCES Lines (a, b));\n");
    EXPECT_THAT(
        KeyRows(*file.OpenCatalog(), "Orders"),
        ElementsAre("CustomersOrders: Customers bill=id", "CustomersOrders2: Customers ship=id",
                    "OrdersOrders: Orders up=id", "missingOrders: missing lost=", "missingOrders2: missing lost2=z",
                    "MissingOrders3: Missing lost3=z", "LinesOrders: Lines x=b y=a", "LinesOrders2: Lines y=a x=b"));
}

TEST(SqliteKeys, NameTheColumnsOfTheOtherTableAsItDoes)
{
    SqliteFile file("CREATE TABLE Customers (CustomerID INTEGER PRIMARY KEY, \"Größe\" INT, Region TEXT);\n"
                    "CREATE TABLE Orders (id INT, c INT REFERENCES CUSTOMERS (customerid), g INT, r TEXT,"
                    " FOREIGN KEY (G, R) REFERENCES customers (\"Größe\", REGION));\n");
    EXPECT_THAT(KeyRows(*file.OpenCatalog(), "Orders"),
                ElementsAre("CustomersOrders: Customers c=CustomerID", "CustomersOrders2: Customers g=Größe r=Region"));
}

TEST(SqliteKeys, AreTheSameReadTogetherAndOneByOne)
{
    SqliteFile file("CREATE TABLE p (a INT, b INT, PRIMARY KEY (b, a));\n"
                    "CREATE TABLE c (x INT UNIQUE, y INT, FOREIGN KEY (y, x) REFERENCES p);\n");
    const auto together = file.OpenCatalog();
    together->ExpectManyTables();
    const std::vector<std::string> expected{"pc: p y=b x=a"};
    EXPECT_EQ(KeyRows(*together, "c"), expected);
    EXPECT_EQ(together->Indexes("c").size(), 1U);
    EXPECT_EQ(KeyRows(*file.OpenCatalog(), "c"), expected);
}

TEST(SqliteCatalog, AnswersForThousandsOfTables)
{
    constexpr int kTables = 3000;
    std::string statements = "BEGIN;\nCREATE TABLE t0 (id INTEGER PRIMARY KEY, n VARCHAR(20));\n";
    for (int number = 1; number < kTables; ++number)
        statements.append("CREATE TABLE t" + std::to_string(number))
            .append(" (id INTEGER PRIMARY KEY, parent INT REFERENCES t" + std::to_string(number - 1))
            .append(");\n");
    SqliteFile file(statements + "COMMIT;\n");
    const auto catalog = file.OpenCatalog();
    catalog->ExpectManyTables();
    ASSERT_EQ(catalog->Tables().size(), static_cast<std::size_t>(kTables));
    for (int number = 1; number < kTables; ++number) {
        const std::string name = "t" + std::to_string(number);
        const std::string parent = "t" + std::to_string(number - 1);
        std::string expected = parent;
        expected.append(name).append(": ").append(parent).append(" parent=id");
        ASSERT_EQ(PrimaryKey(*catalog, name).Columns.size(), 1U) << name;
        ASSERT_EQ(KeyRows(*catalog, name), std::vector<std::string>{expected});
        ASSERT_EQ(FieldNames(*catalog, Statement(name)).size(), 2U) << name;
    }
}

TEST(SqliteCatalog, KeepsItsAnswersAndANewOneSeesTheFileAsItIs)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const auto before = file.OpenCatalog();
    EXPECT_EQ(before->Tables().size(), 1U);
    EXPECT_THAT(FieldNames(*before, Statement("a")), ElementsAre("x"));
    file.Run("ALTER TABLE a ADD y;\nCREATE TABLE b (z);\n");
    EXPECT_EQ(before->Tables().size(), 1U);
    EXPECT_THAT(FieldNames(*before, Statement("a")), ElementsAre("x"));
    const auto after = file.OpenCatalog();
    EXPECT_EQ(after->Tables().size(), 2U);
    EXPECT_THAT(FieldNames(*after, Statement("a")), ElementsAre("x", "y"));
}

TEST(SqliteCatalog, ATableOfAModuleThatIsNotThereSpoilsNoOther)
{
    SqliteFile file("CREATE TABLE p (id INTEGER PRIMARY KEY);\n"
                    "CREATE TABLE c (x INT REFERENCES p);\n"
                    "PRAGMA writable_schema = 1;\n"
                    "INSERT INTO sqlite_master VALUES ('table', 'strange', 'strange', 0,"
                    " 'CREATE VIRTUAL TABLE strange USING nomodule(x)');\n");
    const auto catalog = file.OpenCatalog();
    catalog->ExpectManyTables();
    EXPECT_EQ(catalog->Tables().size(), 3U);
    EXPECT_THAT(KeyRows(*catalog, "c"), ElementsAre("pc: p x=id"));
    EXPECT_THAT(KeyRows(*catalog, "strange"), IsEmpty());
    EXPECT_THAT(catalog->Indexes("strange"), IsEmpty());
    EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Fields(Statement("strange")); }), data_source_error::kFailed);
}

} // namespace
} // namespace veldrane
