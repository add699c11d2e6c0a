#include "shell/desktop/editors/fill_control.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/qt_text.h"

#include <QSignalBlocker>

#include <algorithm>

namespace veldrane {
namespace {

constexpr int kIconName = Qt::UserRole;

bool IsRow(const QComboBox& box, int row, const BoxRow& wanted)
{
    return box.itemText(row) == NameToQt(wanted.Text) && box.itemData(row, kIconName) == NameToQt(wanted.Icon);
}

bool HasRows(const QComboBox& box, const std::vector<BoxRow>& rows)
{
    if (box.count() != static_cast<int>(rows.size()))
        return false;
    int row = 0;
    return std::all_of(rows.begin(), rows.end(), [&](const BoxRow& each) { return IsRow(box, row++, each); });
}

} // namespace

void ShowText(QLineEdit& field, const std::string& text)
{
    const QSignalBlocker silence(&field);
    if (field.text() != NameToQt(text))
        field.setText(NameToQt(text));
}

void ShowText(QComboBox& box, const std::string& text)
{
    const QSignalBlocker silence(&box);
    if (box.currentText() != NameToQt(text))
        box.setEditText(NameToQt(text));
}

void ShowRows(QComboBox& box, const std::vector<BoxRow>& rows)
{
    if (HasRows(box, rows))
        return;
    const QSignalBlocker silence(&box);
    const QString typed = box.currentText();
    IconSet icons;
    box.clear();
    for (const BoxRow& row : rows)
        box.addItem(icons.Of(row.Icon), NameToQt(row.Text), NameToQt(row.Icon));
    if (!box.isEditable())
        return;
    box.setCurrentIndex(-1);
    box.setEditText(typed);
    if (box.hasFocus())
        box.lineEdit()->selectAll(); // as it was when a key went there
}

void ShowRows(QComboBox& box, const std::vector<BoxRow>& rows, std::size_t chosen)
{
    ShowRows(box, rows);
    const QSignalBlocker silence(&box);
    const int row = chosen < rows.size() ? static_cast<int>(chosen) : -1;
    if (box.currentIndex() != row)
        box.setCurrentIndex(row);
}

} // namespace veldrane
