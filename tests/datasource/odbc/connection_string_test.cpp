#include "datasource/connection_string.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

std::vector<std::pair<std::string, std::string>> Parsed(std::string_view text)
{
    std::vector<std::pair<std::string, std::string>> entries;
    const ConnectionString parsed(text);
    for (const ConnectionEntry& entry : parsed.Entries())
        entries.emplace_back(entry.Key, entry.Value);
    return entries;
}

using Expected = std::vector<std::pair<std::string, std::string>>;

TEST(ConnectionString, KeepsKeysInOrder)
{
    EXPECT_EQ(Parsed("PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=;"),
              (Expected{{"PROVIDER", "MSDASQL"}, {"DSN", "Shop"}, {"UID", ""}, {"PWD", ""}}));
}

TEST(ConnectionString, PassesOverBlanksAroundKeysAndValues)
{
    EXPECT_EQ(Parsed("  DSN =  Shop  ; UID=me"), (Expected{{"DSN", "Shop"}, {"UID", "me"}}));
}

TEST(ConnectionString, PassesOverEmptyEntries)
{
    EXPECT_EQ(Parsed(";; DSN=Shop;;"), (Expected{{"DSN", "Shop"}}));
    EXPECT_TRUE(Parsed("").empty());
}

TEST(ConnectionString, AWordWithoutAValueIsAKeyWithAnEmptyOne)
{
    EXPECT_EQ(Parsed("Trusted;DSN=Shop"), (Expected{{"Trusted", ""}, {"DSN", "Shop"}}));
}

TEST(ConnectionString, KeepsWhatStandsInBraces)
{
    EXPECT_EQ(Parsed("PWD={a;b=c}}d }; DSN=Shop"), (Expected{{"PWD", "a;b=c}d "}, {"DSN", "Shop"}}));
    EXPECT_EQ(Parsed("PWD={}"), (Expected{{"PWD", ""}}));
}

TEST(ConnectionString, ABraceInsideAValueIsALetter)
{
    EXPECT_EQ(Parsed("Database=/a{b}c"), (Expected{{"Database", "/a{b}c"}}));
}

TEST(ConnectionString, AValueMayHoldAnEqualsSign)
{
    EXPECT_EQ(Parsed("PWD=a=b"), (Expected{{"PWD", "a=b"}}));
}

TEST(ConnectionString, FindsKeysWithoutRegardToCase)
{
    const ConnectionString parsed("dsn=Shop");
    EXPECT_TRUE(parsed.Contains("DSN"));
    EXPECT_EQ(parsed.Value("Dsn"), "Shop");
    EXPECT_EQ(parsed.Value("UID"), "");
}

TEST(ConnectionString, TheLastOfTwoEqualKeysCounts)
{
    EXPECT_EQ(ConnectionString("PWD=login;pwd=database").Value("PWD"), "database");
}

TEST(ConnectionString, RefusesWhatDriversCouldReadInAnotherWay)
{
    const std::vector<std::string> refused{
        "PWD={a",
        "PWD={a}}",
        "PWD={a}b;DSN=Shop",
        "PWD={a}b}",
        "=value",
        "D\xC5\xBFN=Shop", // a long s
        "DSN=Shop\nDriver=/tmp/x.so",
        std::string("DSN=Shop\0;Driver=x", 18),
        "DSN=\tShop",
        "DSN=" + std::string(ConnectionString::kMaxBytes, 'x'),
    };
    for (const std::string& text : refused)
        EXPECT_THROW(ConnectionString{text}, DataSourceError) << text.substr(0, 40);
}

TEST(ConnectionString, NeverRepeatsAValueInItsRefusal)
{
    try {
        const ConnectionString parsed("PWD={secret");
        FAIL();
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Description(), "The connection string opens a brace at \"PWD\" and does not close it.");
    }
}

} // namespace
} // namespace veldrane
