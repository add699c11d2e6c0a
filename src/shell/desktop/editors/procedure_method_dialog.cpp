#include "shell/desktop/editors/procedure_method_dialog.h"

#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/editors/parameter_rows.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_add_edit_sp.h"

namespace veldrane {

ProcedureMethodDialog::ProcedureMethodDialog(frmAddEditSP& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmAddEditSP>())
{
    ui_->setupUi(this);
    setWindowTitle(NameToQt(form_.Caption()));
    ui_->lstPreview->SetLook(look);
    ShowParameters(*ui_->lstParameters, form_.lstParameters());
    connect(ui_->txtMethodName, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.txtMethodName = FromQt(text);
        ShowState();
    });
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    Follow(form_.FocusWanted);
    ShowState();
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    FocusOn("txtMethodName");
}

ProcedureMethodDialog::~ProcedureMethodDialog() = default;

void ProcedureMethodDialog::ShowState()
{
    ShowText(*ui_->txtMethodName, form_.txtMethodName);
    ui_->lblMethodNameTrouble->ShowTrouble(form_.Trouble("txtMethodName"));
    ui_->lstPreview->ShowLines(form_.Preview());
}

} // namespace veldrane
