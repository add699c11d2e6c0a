#include "shell/desktop/editors/method_dialog.h"

#include "shell/desktop/editors/disabled_control.h"
#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_add_edit_method.h"

namespace veldrane {

MethodDialog::MethodDialog(frmAddEditMethod& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmAddEditMethod>())
{
    ui_->setupUi(this);
    setWindowTitle(NameToQt(form_.Caption()));
    ui_->lstPreview->SetLook(look);
    ui_->fraArguments->ShowList(form_.lstArguments());
    FillBoxes();
    DisableControls();
    ConnectControls();
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    Follow(form_.Changed);
    Follow(form_.lstArguments().Changed);
    Follow(form_.FocusWanted);
    ShowState();
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    FocusOn(form_.txtMethodName_Enabled() ? "txtMethodName" : "lstArguments");
}

MethodDialog::~MethodDialog() = default;

// A scope that the method has and the list lacks stands behind the others.
void MethodDialog::FillBoxes()
{
    for (const TypeItem& type : form_.ReturnTypes())
        ui_->cmbReturnType->addItem(NameToQt(type.Text), NameToQt(type.Key));
    for (const std::string_view scope : kMethodScopes)
        ui_->cmbScope->addItem(NameToQt(scope));
    if (ui_->cmbScope->findText(NameToQt(form_.cmbScope)) < 0)
        ui_->cmbScope->addItem(NameToQt(form_.cmbScope));
}

void MethodDialog::DisableControls()
{
    for (QWidget* control : {static_cast<QWidget*>(ui_->txtMethodName), static_cast<QWidget*>(ui_->cmbReturnType),
                             static_cast<QWidget*>(ui_->cmbScope), static_cast<QWidget*>(ui_->chkDefault)})
        DisableFor(*control, form_.WhyDisabled(control->objectName().toStdString()));
}

void MethodDialog::ConnectControls()
{
    connect(ui_->txtMethodName, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.txtMethodName_Change(FromQt(text));
        ShowState();
    });
    connect(ui_->cmbReturnType, &QComboBox::activated, this, [this] {
        form_.cmbReturnType = FromQt(ui_->cmbReturnType->currentData().toString());
        ShowState();
    });
    connect(ui_->cmbScope, &QComboBox::textActivated, this, [this](const QString& text) {
        form_.cmbScope = FromQt(text);
        ShowState();
    });
    connect(ui_->chkDefault, &QCheckBox::clicked, this, [this](bool on) { form_.chkDefault_Click(on); });
}

void MethodDialog::ShowState()
{
    ShowText(*ui_->txtMethodName, form_.txtMethodName);
    ui_->lblMethodNameTrouble->ShowTrouble(form_.Trouble("txtMethodName"));
    ui_->cmbReturnType->setCurrentIndex(ui_->cmbReturnType->findData(NameToQt(form_.cmbReturnType)));
    ui_->cmbScope->setCurrentIndex(ui_->cmbScope->findText(NameToQt(form_.cmbScope)));
    ui_->chkDefault->setChecked(form_.chkDefault());
    ui_->fraArguments->ShowState();
    ui_->lstPreview->ShowLines(form_.Preview());
}

} // namespace veldrane
