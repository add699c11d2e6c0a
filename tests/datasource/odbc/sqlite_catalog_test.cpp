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

std::string Statement(const std::string& table)
{
    return "SELECT * FROM [" + table + "] WHERE 1=0";
}

std::vector<std::string> FieldNames(Catalog& catalog, const std::string& statement)
{
    std::vector<std::string> names;
    for (const CatalogField& field : catalog.Fields(statement))
        names.push_back(field.Name);
    return names;
}

// "name type" of each table.
std::vector<std::string> TableRows(Catalog& catalog)
{
    std::vector<std::string> rows;
    for (const CatalogTable& table : catalog.Tables())
        rows.push_back(table.Name + "|" + table.Type);
    return rows;
}

// "name: related(column=related column, ...)" of each key.
std::vector<std::string> KeyRows(Catalog& catalog, const std::string& table)
{
    std::vector<std::string> rows;
    for (const CatalogKey& key : catalog.Keys(table)) {
        std::string row = key.Name + ": " + key.RelatedTable;
        for (const CatalogKeyColumn& column : key.Columns)
            row += " " + column.Name + "=" + column.RelatedColumn;
        EXPECT_EQ(key.Type, catalog_key_type::kForeign);
        rows.push_back(row);
    }
    return rows;
}

CatalogIndex PrimaryKey(Catalog& catalog, const std::string& table)
{
    for (CatalogIndex& index : catalog.Indexes(table))
        if (index.PrimaryKey)
            return index;
    return {};
}

std::vector<std::string> AutoIncrementFields(Catalog& catalog, const std::string& table)
{
    std::vector<std::string> names;
    for (const CatalogField& field : catalog.Fields(Statement(table)))
        if (field.IsAutoIncrement)
            names.push_back(field.Name);
    return names;
}

long NumberOfFailure(const std::function<void()>& action)
{
    try {
        action();
        return 0;
    } catch (const DataSourceError& error) {
        return error.Number;
    }
}

TEST(SqliteFields, EveryDeclaredTypeHasItsAdoType)
{
    struct Case
    {
        const char* Declared;
        std::int32_t Type;
        std::int32_t Size;
    };
    const std::vector<Case> cases{
        {"INT", adInteger, 4},
        {"INTEGER", adInteger, 4},
        {"INT2", adInteger, 4},
        {"INT8", adInteger, 4},
        {"MEDIUMINT", adInteger, 4},
        {"TINYINT", adTinyInt, 1},
        {"SMALLINT", adSmallInt, 2},
        {"BIGINT", adBigInt, 8},
        {"UNSIGNED BIG INT", adInteger, 4},
        {"REAL", adDouble, 8},
        {"FLOAT", adDouble, 8},
        {"DOUBLE", adDouble, 8},
        {"DOUBLE PRECISION", adDouble, 8},
        {"NUMERIC", adNumeric, 19},
        {"NUMERIC(10,2)", adNumeric, 19},
        {"DECIMAL(10, 2)", adNumeric, 19},
        {"MONEY", adCurrency, 8},
        {"CURRENCY", adCurrency, 8},
        {"CHAR(10)", adVarChar, 10},
        {"VARCHAR(50)", adVarChar, 50},
        {"VARCHAR", adVarChar, 255},
        {"NVARCHAR(40)", adVarChar, 40},
        {"TEXT", adLongVarChar, 65536},
        {"MEMO", adLongVarChar, 65536},
        {"NTEXT", adLongVarWChar, 65536},
        {"CLOB", adLongVarChar, 65536},
        {"CLOB(1000)", adLongVarChar, 1000},
        {"LONGTEXT", adLongVarChar, 65536},
        {"BLOB", adLongVarBinary, 255},
        {"BLOB SUB_TYPE TEXT", adLongVarBinary, 255},
        {"IMAGE", adLongVarBinary, 255},
        {"BINARY(16)", adBinary, 16},
        {"GUID", adGUID, 16},
        {"UUID", adGUID, 16},
        {"UNIQUEIDENTIFIER", adGUID, 16},
        {"DATE", adDBDate, 6},
        {"TIME", adDBTime, 6},
        {"DATETIME", adDBTimeStamp, 16},
        {"TIMESTAMP", adDBTimeStamp, 16},
        {"SMALLDATETIME", adDBTimeStamp, 16},
        {"BOOLEAN", adBoolean, 2},
        {"BOOL", adBoolean, 2},
        {"BIT", adBoolean, 2},
        {"LOGICAL", adBoolean, 2},
        {"COUNTER", adInteger, 4},
        {"ANY", adVariant, 255},
        {"", adVarChar, 255},
    };
    std::string columns;
    for (const Case& each : cases)
        columns += (columns.empty() ? "c" : ", c") + std::to_string(&each - cases.data()) + " " + each.Declared;
    SqliteFile file("CREATE TABLE t (" + columns + ");\n");
    const auto catalog = file.OpenCatalog();
    const std::vector<CatalogField> fields = catalog->Fields(Statement("t"));
    ASSERT_EQ(fields.size(), cases.size());
    for (std::size_t at = 0; at < cases.size(); ++at) {
        EXPECT_EQ(fields[at].Type, cases[at].Type) << cases[at].Declared;
        EXPECT_EQ(fields[at].DefinedSize, cases[at].Size) << cases[at].Declared;
        EXPECT_FALSE(fields[at].IsAutoIncrement) << cases[at].Declared;
    }
}

TEST(SqliteFields, TellWhetherAFieldMayBeNull)
{
    SqliteFile file("CREATE TABLE t (a TEXT, b TEXT NOT NULL);\n");
    const std::vector<CatalogField> fields = file.OpenCatalog()->Fields(Statement("t"));
    EXPECT_EQ(fields.at(0).Attributes, field_attribute::kIsNullable | field_attribute::kMayBeNull);
    EXPECT_EQ(fields.at(1).Attributes, 0);
}

TEST(SqliteFields, KeepTheDotsInTheirNames)
{
    SqliteFile file("CREATE TABLE t (\"a.b\" TEXT, c INT AS (1), \"d.\" TEXT);\n"
                    "CREATE VIEW v AS SELECT \"a.b\" AS \"x.y\" FROM t;\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(FieldNames(*catalog, Statement("t")), ElementsAre("a.b", "c", "d."));
    EXPECT_THAT(FieldNames(*catalog, Statement("v")), ElementsAre("x.y"));
}

TEST(SqliteFields, ASizeBeyondALongIsTheGreatestLong)
{
    SqliteFile file("CREATE TABLE t (a VARCHAR(3000000000), b VARCHAR(99999999999999999999));\n");
    for (const CatalogField& field : file.OpenCatalog()->Fields(Statement("t")))
        EXPECT_GE(field.DefinedSize, 0) << field.Name;
}

TEST(SqliteFields, TheColumnThatSqliteFillsIsAutoIncrement)
{
    SqliteFile file("CREATE TABLE auto (id INTEGER PRIMARY KEY AUTOINCREMENT, a TEXT);\n"
                    "CREATE TABLE alias (a TEXT, id integer primary key);\n"
                    "CREATE TABLE at_the_end (a TEXT, id INTEGER, PRIMARY KEY (id));\n"
                    "CREATE TABLE descending (id INTEGER PRIMARY KEY DESC, a TEXT);\n"
                    "CREATE TABLE int_key (id INT PRIMARY KEY, a TEXT);\n"
                    "CREATE TABLE composite (id INTEGER, a TEXT, PRIMARY KEY (id, a));\n"
                    "CREATE TABLE without (id INTEGER PRIMARY KEY, a TEXT) WITHOUT ROWID;\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(AutoIncrementFields(*catalog, "auto"), ElementsAre("id"));
    EXPECT_THAT(AutoIncrementFields(*catalog, "alias"), ElementsAre("id"));
    EXPECT_THAT(AutoIncrementFields(*catalog, "at_the_end"), ElementsAre("id"));
    for (const std::string table : {"descending", "int_key", "composite", "without"})
        EXPECT_THAT(AutoIncrementFields(*catalog, table), IsEmpty()) << table;
}

TEST(SqliteFields, ColumnsHaveTheTypesOfTheFields)
{
    SqliteFile file("CREATE TABLE t (a MONEY, b UUID);\n");
    const std::vector<CatalogColumn> columns = file.OpenCatalog()->Columns("T");
    ASSERT_EQ(columns.size(), 2U);
    EXPECT_EQ(columns[0].Name, "a");
    EXPECT_EQ(columns[0].Type, adCurrency);
    EXPECT_EQ(columns[1].Type, adGUID);
}

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
    const std::vector<std::string> names{"Order Details",
                                         "2004Sales",
                                         "Größe",
                                         "Ελλάς",
                                         "select",
                                         "a]b",
                                         "a[b]",
                                         "it's",
                                         "qu\"ote",
                                         "a;b--c",
                                         "a`b",
                                         "a_b",
                                         "per%cent",
                                         "",
                                         "a.b",
                                         " blanks ",
                                         "表",
                                         "WHERE 1=0",
                                         "x'; DROP TABLE a_b; --"};
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
                    " lost INT REFERENCES missing, lost2 INT REFERENCES missing (z),"
                    " FOREIGN KEY (x, y) REFERENCES Lines, FOREIGN KEY (y, x) REFERENCES Lines (a, b));\n");
    EXPECT_THAT(KeyRows(*file.OpenCatalog(), "Orders"),
                ElementsAre("CustomersOrders: Customers bill=id", "CustomersOrders2: Customers ship=id",
                            "OrdersOrders: Orders up=id",
                            "missingOrders: missing lost=", "missingOrders2: missing lost2=z",
                            "LinesOrders: Lines x=b y=a", "LinesOrders2: Lines y=a x=b"));
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
