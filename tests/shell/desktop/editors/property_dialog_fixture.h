#pragma once

#include "editors/property_fixture.h"
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
#include <QTest>

#include <memory>

namespace veldrane::testing {

// A dialog of a property, in front of a person.
class PropertyDialogFixture : public PropertyFixture
{
  protected:
    template <class Dialog, class Form>
    Dialog& Open(Form& form)
    {
        auto opened = std::make_unique<Dialog>(form, PreviewLook{}, nullptr);
        Dialog& shown = *opened;
        dialog = std::move(opened);
        shown.show();
        shown.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
        return shown;
    }

    QCheckBox& Box(const std::string& name) { return Find<QCheckBox>(*dialog, name); }
    QComboBox& Combo(const std::string& name) { return Find<QComboBox>(*dialog, name); }
    EditorList& List(const std::string& name) { return Find<EditorList>(*dialog, name); }
    bool IsEnabled(const std::string& name) { return Find<QWidget>(*dialog, name).isEnabled(); }
    std::string TextOf(const std::string& field) { return Find<QLineEdit>(*dialog, field).text().toStdString(); }

    // What is told below a field; "" where nothing is seen.
    std::string Told(const std::string& label)
    {
        auto& words = Find<QLabel>(*dialog, label);
        return words.isVisible() ? words.text().toStdString() : std::string();
    }

    // The code that is shown.
    Texts Code()
    {
        const QAbstractItemModel& lines = *Find<CodeSample>(*dialog, "lstPreview").model();
        Texts code;
        for (int row = 0; row < lines.rowCount(); ++row)
            code.push_back(lines.index(row, 0).data().toString().toStdString());
        return code;
    }

    // The rows that are not filtered out, a blank between their columns, with a + for a tick.
    Texts Rows(const std::string& list)
    {
        Texts rows;
        for (int row = 0; row < List(list).topLevelItemCount(); ++row) {
            const QTreeWidgetItem& shown = *List(list).topLevelItem(row);
            QStringList columns;
            for (int column = 0; column < shown.columnCount(); ++column)
                columns << shown.text(column);
            if (!shown.isHidden())
                rows.push_back((shown.checkState(0) == Qt::Checked ? "+" : "") +
                               columns.join(QLatin1Char(' ')).toStdString());
        }
        return rows;
    }

    // A mouse click where a box is ticked; it may be wider than its words.
    void ClickBox(const std::string& name)
    {
        QCheckBox& box = Box(name);
        EXPECT_TRUE(box.isVisible() && box.isEnabled()) << name;
        QTest::mouseClick(&box, Qt::LeftButton, {}, {box.height() / 2, box.height() / 2});
    }

    void ClickRow(const std::string& list, int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QModelIndex index = List(list).model()->index(row, column);
        QTest::mouseClick(List(list).viewport(), Qt::LeftButton, modifiers, List(list).visualRect(index).center());
    }

    // A key where the focus is.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    std::string Focused() const
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? std::string() : focus->objectName().toStdString();
    }

    [[nodiscard]] bool IsClosedBy(int result) const { return !dialog->isVisible() && dialog->result() == result; }

    std::unique_ptr<QDialog> dialog;
};

} // namespace veldrane::testing
