#include "datasource/ado_types.h"
#include "datasource/odbc/diagnostics.h"
#include "datasource/odbc/field_types.h"
#include "datasource/odbc/key_names.h"
#include "datasource/odbc/sqlite_definition.h"
#include "datasource/odbc/utf16.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace veldrane {
namespace {

TEST(Utf16, GoesThereAndBack)
{
    for (const std::string text : {"", "abc", "Größe Ελλάς", "表", "\xF0\x9F\x8C\x8D!"})
        EXPECT_EQ(FromUtf16(ToUtf16(text)), text);
    EXPECT_EQ(ToUtf16("\xF0\x9F\x8C\x8D"), u"\U0001F30D");
}

TEST(Utf16, ReplacesWhatIsIllFormed)
{
    EXPECT_EQ(ToUtf16("a\xFFz"), u"a\uFFFDz");
    const std::u16string halves{u'a', char16_t{0xD800}, u'b', char16_t{0xDC00}, char16_t{0xD800}};
    EXPECT_EQ(FromUtf16(halves), "a\xEF\xBF\xBD"
                                 "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(FieldTypes, FollowTheTypesOfOdbc)
{
    struct Case
    {
        SQLSMALLINT SqlType;
        bool IsUnsigned;
        const char* TypeName;
        std::int32_t Type;
        std::int32_t Size;
    };
    const std::vector<Case> cases{
        {SQL_WVARCHAR, true, "varchar", adVarWChar, 50},
        {SQL_WCHAR, false, "bpchar", adWChar, 50},
        {SQL_WLONGVARCHAR, false, "text", adLongVarWChar, 50},
        {SQL_BIT, true, "bool", adBoolean, 2},
        {SQL_TINYINT, true, "tinyint", adUnsignedTinyInt, 1},
        {SQL_SMALLINT, true, "year", adUnsignedSmallInt, 2},
        {SQL_INTEGER, true, "oid", adUnsignedInt, 4},
        {SQL_INTEGER, false, "int4", adInteger, 4},
        {SQL_BIGINT, true, "bigint", adUnsignedBigInt, 8},
        {SQL_REAL, false, "float4", adSingle, 4},
        {SQL_FLOAT, false, "money", adCurrency, 8},
        {SQL_DECIMAL, true, "smallmoney", adCurrency, 8},
        {SQL_DECIMAL, true, "decimal", adNumeric, 19},
        {SQL_GUID, false, "uuid", adGUID, 16},
        {SQL_TYPE_DATE, true, "date", adDBDate, 6},
        {SQL_TYPE_TIME, false, "time", adDBTime, 6},
        {SQL_TYPE_TIMESTAMP, false, "timestamp", adDBTimeStamp, 16},
        {SQL_LONGVARBINARY, false, "bytea", adLongVarBinary, 50},
        {-150, false, "sql_variant", adVarWChar, 50},
    };
    for (const Case& each : cases) {
        const CatalogField field = FieldOf({.Name = "f",
                                            .SqlType = each.SqlType,
                                            .Size = 50,
                                            .IsUnsigned = each.IsUnsigned,
                                            .TypeName = each.TypeName},
                                           CallWidth::Wide);
        EXPECT_EQ(field.Type, each.Type) << each.TypeName;
        EXPECT_EQ(field.DefinedSize, each.Size) << each.TypeName;
        EXPECT_EQ(field.Attributes, field_attribute::kMayBeNull) << each.TypeName;
    }
    EXPECT_EQ(FieldOf({.Name = {}, .SqlType = -150, .TypeName = {}}, CallWidth::Narrow).Type, adVarChar);
}

TEST(FieldTypes, ASizeIsAtMostWhatALongHolds)
{
    EXPECT_EQ(DefinedSizeOf(adLongVarWChar, 4294967295U), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(DefinedSizeOf(adVarChar, 0), 0);
}

ADOError Record(std::string state, std::int32_t native, std::string words, long number)
{
    return {.Number = number,
            .Description = std::move(words),
            .NativeError = native,
            .Source = "ODBC",
            .SQLState = std::move(state)};
}

TEST(Diagnostics, AFailureHoldsTheWordsOfAllRecordsOnceAndTheFirstNumberThatTells)
{
    const DataSourceError error =
        ErrorFrom({Record("01000", 1, "first", data_source_error::kFailed),
                   Record("01000", 1, "first", data_source_error::kFailed),
                   Record("08S01", 2, "second;\n\tthird\n", data_source_error::kNoOpenConnection)});
    EXPECT_EQ(error.Description(), "first second; third");
    EXPECT_EQ(error.Number, data_source_error::kNoOpenConnection);
    ASSERT_EQ(error.Errors.size(), 3U);
    EXPECT_EQ(error.Errors[2].NativeError, 2);
}

std::string DescriptionOf(const std::vector<std::string>& words)
{
    std::vector<ADOError> records;
    for (const std::string& each : words)
        records.push_back(Record("HY000", 0, each, data_source_error::kFailed));
    return ErrorFrom(records).Description();
}

TEST(Diagnostics, RecordsAndLinesThatBeginASentenceAreSentencesOfTheDescription)
{
    EXPECT_EQ(DescriptionOf({"Unable to connect", "Login failed"}), "Unable to connect. Login failed");
    EXPECT_EQ(DescriptionOf({"connection refused\n\tIs the server running?\r\n"}),
              "connection refused. Is the server running?");
    EXPECT_EQ(DescriptionOf({"the server  closed\n\tthe connection.\n;\nThe connection is lost"}),
              "the server closed the connection. The connection is lost");
}

TEST(Diagnostics, TheNamesOfTheComponentsThatSpeakStayInTheRecords)
{
    EXPECT_EQ(DescriptionOf({"[vendor][the manager]Can't open", "[vendor][driver] [server]It's [closed]", "[open"}),
              "Can't open. It's [closed] [open");
    EXPECT_EQ(ErrorFrom({Record("HY000", 0, "[vendor]No", 1)}).Errors.at(0).Description, "[vendor]No");
}

TEST(Diagnostics, ADriverThatSaysNothingIsSpokenFor)
{
    const DataSourceError error = ErrorFrom({});
    EXPECT_EQ(error.Number, data_source_error::kFailed);
    EXPECT_EQ(error.Description(), "The driver gave no reason.");
}

TEST(KeyNames, AreMadeOfBothTablesAndNeverTwice)
{
    std::vector<CatalogKey> keys(4);
    keys[0].Name = "PC2";
    for (std::size_t at = 1; at < keys.size(); ++at)
        keys[at].RelatedTable = "P";
    NameUnnamedKeys(keys, "c");
    std::vector<std::string> names;
    names.reserve(keys.size());
    for (const CatalogKey& key : keys)
        names.push_back(key.Name);
    EXPECT_THAT(names, testing::ElementsAre("PC2", "Pc", "Pc3", "Pc4"));
}

TEST(SqliteDefinition, FindsTheNameOfThePrimaryKey)
{
    EXPECT_EQ(PrimaryKeyNameOf("CREATE TABLE t (a INT, constraint pk_t primary key(a))"), "pk_t");
    EXPECT_EQ(PrimaryKeyNameOf("CREATE TABLE t (a INT, CONSTRAINT `p k` PRIMARY\nKEY(a))"), "p k");
    EXPECT_EQ(PrimaryKeyNameOf("CREATE TABLE t (a INT CONSTRAINT Schlüssel -- CONSTRAINT x\n PRIMARY KEY)"),
              "Schlüssel");
    EXPECT_EQ(PrimaryKeyNameOf("CREATE TABLE t (a TEXT DEFAULT 'CONSTRAINT x PRIMARY KEY')"), "");
    EXPECT_EQ(PrimaryKeyNameOf("CREATE TABLE t (a INT PRIMARY KEY)"), "");
}

TEST(SqliteDefinition, ComesToAnEndOnAnyText)
{
    for (const std::string text : {"", "\"", "[", "/*", "--", "CONSTRAINT", "CONSTRAINT a PRIMARY", "''", "'''"})
        EXPECT_EQ(PrimaryKeyNameOf(text), "") << text;
}

} // namespace
} // namespace veldrane
