#pragma once

#include "editors/frm_add_edit_class.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <QStringList>
#include <QTimer>

#include <array>
#include <memory>
#include <vector>

class QAction;
class QLineEdit;
class QVBoxLayout;

namespace Ui {
class frmAddEditClass;
}

namespace veldrane {

class EditorList;

// `frmAddEditClass` as a window: a tab for each part of the class, and beside them the code that is written for it.
class ClassDialog : public EditorDialog
{
    Q_OBJECT

  public:
    // The form has been loaded, and outlives the dialog.
    ClassDialog(frmAddEditClass& form, const PreviewLook& look, QWidget* parent);
    ~ClassDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    // A list of the form with what belongs to it.
    struct ListControls
    {
        EditorList* List = nullptr;
        QLineEdit* Filter = nullptr;
        QStringList Columns;
        QVBoxLayout* Bar = nullptr; // nullptr for a list without tools
        std::vector<MemberRow> Rows;
    };

    void ConnectRules();
    void ConnectControls();
    void FindLists();
    void ConnectLists();
    void AddTools();
    void AddTool(QAction& action, ListControls& controls);
    void Open(ClassList list, std::size_t row);
    void ShowNames();
    void ShowWords();
    void ShowList(ClassList list);
    void ShowStates();
    void ShowSample();

    frmAddEditClass& form_;
    std::unique_ptr<Ui::frmAddEditClass> ui_;
    std::array<ListControls, kClassLists> lists_; // by ClassList
    std::vector<QAction*> tools_;
    QTimer tmrSample_; // the person types on meanwhile
    Connection closeWanted_;
};

} // namespace veldrane
