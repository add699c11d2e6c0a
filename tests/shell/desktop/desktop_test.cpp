#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

TEST(Desktop, TakesKeysWithoutADisplay)
{
    QLineEdit edit;
    edit.show();
    QTest::keyClicks(&edit, QStringLiteral("Shop"));
    EXPECT_EQ(edit.text(), QStringLiteral("Shop"));
}

} // namespace
} // namespace veldrane::testing
