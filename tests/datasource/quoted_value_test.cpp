#include "datasource/quoted_value.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(QuotedValue, LosesItsQuotes)
{
    EXPECT_EQ(Unquoted("\"a b\""), "a b");
    EXPECT_EQ(Unquoted("'a \"b\"'"), "a \"b\"");
    EXPECT_EQ(Unquoted("\"a \"\"b\"\"\""), "a \"b\"");
    EXPECT_EQ(Unquoted("''"), "");
}

TEST(QuotedValue, BeginsWithOne)
{
    for (const std::string value : {"", "a", "a\"b\"", " \"a\"", "it's"})
        EXPECT_EQ(Unquoted(value), value);
}

TEST(QuotedValue, IsNoneIfItsQuotesDoNotCloseAtItsEnd)
{
    for (const std::string value : {"\"", "'", "\"a", "\"a\"b", "\"a\"\"", "\"a'"})
        EXPECT_EQ(Unquoted(value), std::nullopt) << value;
}

TEST(QuotedValue, IsWrittenWhereAValueBeginsWithAQuoteAlone)
{
    EXPECT_EQ(QuotedIfNeeded("a\"b\""), "a\"b\"");
    EXPECT_EQ(QuotedIfNeeded(""), "");
    EXPECT_EQ(QuotedIfNeeded("\"a"), "\"\"\"a\"");
    EXPECT_EQ(QuotedIfNeeded("'a'"), "\"'a'\"");
    for (const std::string value : {"\"", "'", "\"\"", "'\"", "\"a\"", "a"})
        EXPECT_EQ(Unquoted(QuotedIfNeeded(value)), value);
}

} // namespace
} // namespace veldrane
