#pragma once

#include "shell/desktop/icons.h"

#include <QTreeWidget>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class QLineEdit;

namespace veldrane {

// A row of an EditorList.
struct EditorRow
{
    std::vector<std::string> Columns;
    std::string Icon;
    std::optional<bool> Ticked; // nothing for a row without a box
    bool Enabled = true;
    bool Bold = false;
    std::string Trouble; // what is wrong with it; "" for nothing. Shown as its tip, in the colour of troubles
};

// A list in a dialog of an editor. Its rows are known by their number in the list that is shown, whatever is filtered
// out. Gone to by the keyboard, it selects its current row unless others are selected. Ticking one of several selected
// rows, by mouse or by the space bar, ticks them all.
class EditorList : public QTreeWidget
{
    Q_OBJECT

  public:
    explicit EditorList(QWidget* parent = nullptr);

    // What is typed there hides the rows that have it in no column, letter case apart. Escape there empties it, and the
    // arrow down and Return go to the list.
    void FilterBy(QLineEdit& filter);

    // Lets the texts of one column be edited in place: by F2 and Return in any column, and by a double click there.
    void LetEdit(int column);

    // What is selected is a choice of the person's: the Tab key, which may only pass, selects nothing.
    void KeepSelectionAChoice() { selectionIsChoice_ = true; }

    // The row that has the focus when the list has it; nothing in an empty list and where it is filtered out.
    [[nodiscard]] std::optional<std::size_t> CurrentRow() const;

    // Makes a row the current one, which alone is selected then, and brings it into sight.
    void SelectRow(std::size_t row);

    // Replaces the rows. The list keeps its place, and its current row unless others are selected: the first of them is
    // the current one then, and comes into sight. A filter that hides one that is selected is
    // emptied. None of the signals is raised.
    void Show(const std::vector<EditorRow>& rows, const std::vector<std::size_t>& selected = {});

    // In their order. Rows that are filtered out are not among them.
    [[nodiscard]] std::vector<std::size_t> SelectedRows() const;

  Q_SIGNALS:
    void RowsSelected(const std::vector<std::size_t>& rows);
    void RowsTicked(const std::vector<std::size_t>& rows, bool ticked);
    void RowOpened(std::size_t row); // by a double click or Return; without a receiver Return is left to the dialog
    void RowEdited(std::size_t row, const QString& text);

  protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

  private:
    void TakeChange(QTreeWidgetItem& item, int column);
    void Fill(QTreeWidgetItem& item, const EditorRow& row);
    void Filter();
    void LeaveHiddenRow();
    [[nodiscard]] bool HidesOneOf(const std::vector<std::size_t>& rows) const;
    void GoToRows();
    void SelectCurrentRow();
    [[nodiscard]] bool OpensRows() const;
    void Tick(QTreeWidgetItem& item);
    [[nodiscard]] std::size_t RowOf(QTreeWidgetItem& item) const;

    IconSet icons_;
    QLineEdit* filter_ = nullptr;
    int edited_ = -1; // the column; -1 for none
    bool selectionIsChoice_ = false;
};

} // namespace veldrane
