#include "shell/desktop/opening.h"

#include <QListWidget>
#include <QProxyStyle>
#include <QTest>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

// A desktop on which a single click activates.
class SingleClickStyle : public QProxyStyle
{
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_ItemView_ActivateItemOnSingleClick ? 1 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

TEST(Opening, NeedsADoubleClickOrReturn)
{
    SingleClickStyle style;
    QListWidget list;
    list.setStyle(&style);
    list.addItems({QStringLiteral("one"), QStringLiteral("two")});
    int opened = 0;
    OnOpening(list, [&](const QModelIndex& index) { opened += index.row() + 1; });
    QTest::keyClick(&list, Qt::Key_Return);
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.setFocus();
    const QPoint second = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_EQ(opened, 0);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_EQ(opened, 2);
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Enter);
    EXPECT_EQ(opened, 4);
}

} // namespace
} // namespace veldrane::testing
