#include "jet/column_reference.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane::jet {
namespace {

std::string Described(const std::string& expression)
{
    const auto reference = ReadColumnReference(expression);
    if (!reference)
        return "none";
    return reference->Source + "|" + (reference->AllColumns ? "ALL" : reference->Name);
}

TEST(ColumnReference, ReadsColumnsWithAndWithoutTable)
{
    EXPECT_EQ(Described("City"), "|City");
    EXPECT_EQ(Described("Orders.City"), "Orders|City");
    EXPECT_EQ(Described("[Orders].[City]"), "Orders|City");
    EXPECT_EQ(Described("[Order Details]!Unit_Price"), "Order Details|Unit_Price");
    EXPECT_EQ(Described("  Größe "), "|Größe");
    EXPECT_EQ(Described("[a.b].[c]"), "a.b|c");
}

TEST(ColumnReference, ReadsAllColumns)
{
    EXPECT_EQ(Described("*"), "|ALL");
    EXPECT_EQ(Described("Orders.*"), "Orders|ALL");
    EXPECT_EQ(Described("[Order Details].*"), "Order Details|ALL");
    EXPECT_EQ(Described("[*]"), "|*");
}

TEST(ColumnReference, AnythingElseIsNone)
{
    for (const char* expression :
         {"",       " ",     "\"foo\"", "Max(Table2.col1)", "a+b",   "a.b.c", "a.",         ".a", "[a",
          "[]",     "[a].",  "a b",     "[a][b]",           "-City", "a.b+1", "#1/1/2000#", "**", "a..b",
          "a.[b]x", "(City)"})
        EXPECT_EQ(Described(expression), "none") << expression;
}

} // namespace
} // namespace veldrane::jet
