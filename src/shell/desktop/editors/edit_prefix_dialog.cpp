#include "shell/desktop/editors/edit_prefix_dialog.h"

#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_edit_prefix.h"

namespace veldrane {

EditPrefixDialog::EditPrefixDialog(frmEditPrefix& form, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmEditPrefix>())
{
    ui_->setupUi(this);
    setWindowTitle(NameToQt(form_.Caption()));
    connect(ui_->txtPrefix, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.txtPrefix = FromQt(text);
        ShowState();
    });
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    ShowState();
    FocusOn("txtPrefix");
}

EditPrefixDialog::~EditPrefixDialog() = default;

void EditPrefixDialog::ShowState()
{
    ShowText(*ui_->txtPrefix, form_.txtPrefix);
    ui_->lblPrefixTrouble->ShowTrouble(form_.Trouble());
}

} // namespace veldrane
