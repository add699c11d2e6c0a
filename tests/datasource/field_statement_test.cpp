#include "datasource/field_statement.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(FieldStatement, BracketsANameWithABlankOrALeadingDigit)
{
    EXPECT_EQ(FieldStatement("Orders"), "SELECT * FROM Orders WHERE 1=0");
    EXPECT_EQ(FieldStatement("Order Details"), "SELECT * FROM [Order Details] WHERE 1=0");
    EXPECT_EQ(FieldStatement("2004Sales"), "SELECT * FROM [2004Sales] WHERE 1=0");
    EXPECT_EQ(FieldStatement("Order-Details"), "SELECT * FROM Order-Details WHERE 1=0");
}

TEST(FieldStatement, NamesItsTable)
{
    EXPECT_EQ(TableOfStatement("SELECT * FROM Orders WHERE 1=0"), "Orders");
    EXPECT_EQ(TableOfStatement("SELECT * FROM [Order Details] WHERE 1=0"), "Order Details");
    EXPECT_EQ(TableOfStatement("select * from [a]b] where 1=0"), "a]b");
    EXPECT_EQ(TableOfStatement("SELECT * FROM [] WHERE 1=0"), "");
    EXPECT_EQ(TableOfStatement("SELECT * FROM a WHERE 1=0 WHERE 1=0"), "a WHERE 1=0");
    EXPECT_EQ(TableOfStatement("SELECT * FROM a"), std::nullopt);
    EXPECT_EQ(TableOfStatement("SELECT * FROM WHERE 1=0"), std::nullopt);
    EXPECT_EQ(TableOfStatement(""), std::nullopt);
}

} // namespace
} // namespace veldrane
