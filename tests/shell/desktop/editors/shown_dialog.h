#pragma once

#include "shell/desktop/editors/code_sample.h"
#include "shell/desktop/editors/editor_list.h"
#include "shell/desktop/screenshots.h"
#include "shell/desktop/widgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <string>
#include <vector>

// A person in front of an editor's dialog: what is seen in it, and what is done to it.
namespace veldrane::testing {

inline void BringToFront(QWidget& dialog)
{
    dialog.show();
    dialog.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
}

// A key where the focus is.
inline void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

// The same for a text.
inline void Write(const std::string& text)
{
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(text));
}

// The name of the control that has the focus.
inline std::string Focused()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? std::string() : focus->objectName().toStdString();
}

// The controls that TAB goes to, from the one that has the focus until the round is closed.
inline std::vector<std::string> TabOrder()
{
    std::vector<std::string> order{Focused()};
    for (Press(Qt::Key_Tab); Focused() != order.front() && order.size() < 50; Press(Qt::Key_Tab))
        order.push_back(Focused());
    return order;
}

inline bool IsEnabled(QWidget& dialog, const std::string& name)
{
    return Find<QWidget>(dialog, name).isEnabled();
}

inline std::string TextOf(QWidget& dialog, const std::string& field)
{
    return Find<QLineEdit>(dialog, field).text().toStdString();
}

// What is told below a field; "" where nothing is seen.
inline std::string TroubleIn(QWidget& dialog, const std::string& label)
{
    auto& words = Find<QLabel>(dialog, label);
    return words.isVisible() ? words.text().toStdString() : std::string();
}

// The code that is shown, its lines joined by line feeds.
inline std::string Code(QWidget& dialog)
{
    const QAbstractItemModel& lines = *Find<CodeSample>(dialog, "lstPreview").model();
    std::string code;
    for (int row = 0; row < lines.rowCount(); ++row)
        code += lines.index(row, 0).data().toString().toStdString() + '\n';
    return code;
}

// The rows that are not filtered out, a bar between their columns, with a + for a tick.
inline std::vector<std::string> Rows(QWidget& dialog, const std::string& list)
{
    const auto& shown = Find<EditorList>(dialog, list);
    std::vector<std::string> rows;
    for (int row = 0; row < shown.topLevelItemCount(); ++row) {
        const QTreeWidgetItem& item = *shown.topLevelItem(row);
        QStringList columns;
        for (int column = 0; column < item.columnCount(); ++column)
            columns << item.text(column);
        if (!item.isHidden())
            rows.push_back((item.checkState(0) == Qt::Checked ? "+" : "") +
                           columns.join(QLatin1Char('|')).toStdString());
    }
    return rows;
}

// A click on the row of the list.
inline void ClickRow(QWidget& dialog, const std::string& list, int row, Qt::KeyboardModifiers modifiers = {})
{
    auto& shown = Find<EditorList>(dialog, list);
    const QRect place = shown.visualItemRect(shown.topLevelItem(row));
    QTest::mouseClick(shown.viewport(), Qt::LeftButton, modifiers, place.center());
}

} // namespace veldrane::testing
