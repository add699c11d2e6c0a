#include "shell/desktop/opening.h"

#include <QLineEdit>
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

TEST(Opening, DoesNotFollowTheTypingOfALabel)
{
    QListWidget list;
    list.addItem(QStringLiteral("one"));
    list.item(0)->setFlags(list.item(0)->flags() | Qt::ItemIsEditable);
    int opened = 0;
    OnOpening(list, [&](const QModelIndex&) { ++opened; });
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.setFocus();
    list.setCurrentRow(0);
    list.editItem(list.item(0));
    auto* label = list.findChild<QLineEdit*>();
    ASSERT_NE(label, nullptr);
    ASSERT_TRUE(label->hasFocus());
    QTest::keyClicks(label, QStringLiteral("two"));
    QTest::keyClick(label, Qt::Key_Return);
    EXPECT_EQ(opened, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list.item(0)->text() == QStringLiteral("two"); }));
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(opened, 1);
}

} // namespace
} // namespace veldrane::testing
