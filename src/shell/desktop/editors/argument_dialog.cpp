#include "shell/desktop/editors/argument_dialog.h"

#include "shell/desktop/editors/disabled_control.h"
#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_add_edit_argument.h"

namespace veldrane {

ArgumentDialog::ArgumentDialog(frmAddEditArgument& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmAddEditArgument>())
{
    ui_->setupUi(this);
    setWindowTitle(NameToQt(form_.Caption()));
    ui_->lstPreview->SetLook(look);
    for (const TypeItem& type : form_.DataTypes())
        ui_->cmbDataType->addItem(NameToQt(type.Text), NameToQt(type.Key));
    ConnectTexts();
    ConnectBoxes();
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    Follow(form_.Changed);
    Follow(form_.FocusWanted);
    ShowState();
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    FocusOn("txtArgumentName");
}

ArgumentDialog::~ArgumentDialog() = default;

void ArgumentDialog::ConnectTexts()
{
    connect(ui_->txtArgumentName, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.txtArgumentName_Change(FromQt(text));
        ShowState();
    });
    connect(ui_->txtDefaultValue, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.txtDefaultValue = FromQt(text);
        ShowState();
    });
}

void ArgumentDialog::ConnectBoxes()
{
    connect(ui_->cmbDataType, &QComboBox::activated, this, [this] {
        form_.cmbDataType = FromQt(ui_->cmbDataType->currentData().toString());
        ShowState();
    });
    connect(ui_->chkByVal, &QCheckBox::clicked, this, [this](bool on) {
        form_.chkByVal = on;
        ShowState();
    });
    connect(ui_->chkArray, &QCheckBox::clicked, this, [this](bool on) {
        form_.chkArray = on;
        ShowState();
    });
    connect(ui_->chkOptional, &QCheckBox::clicked, this, [this](bool on) { form_.chkOptional_Click(on); });
}

void ArgumentDialog::ShowState()
{
    ShowText(*ui_->txtArgumentName, form_.txtArgumentName);
    ui_->cmbDataType->setCurrentIndex(ui_->cmbDataType->findData(NameToQt(form_.cmbDataType)));
    ui_->chkByVal->setChecked(form_.chkByVal);
    ui_->chkArray->setChecked(form_.chkArray);
    ui_->chkOptional->setChecked(form_.chkOptional());
    DisableFor(*ui_->chkOptional, form_.WhyNotOptional());
    ShowText(*ui_->txtDefaultValue, form_.txtDefaultValue);
    ui_->txtDefaultValue->setEnabled(form_.txtDefaultValue_Enabled());
    ShowTroubles();
    ui_->lblSignature->setText(NameToQt(form_.lblSignature()));
    ui_->lstPreview->ShowLines(form_.Preview());
}

void ArgumentDialog::ShowTroubles()
{
    ui_->lblArgumentNameTrouble->ShowTrouble(form_.Trouble("txtArgumentName"));
    ui_->lblDataTypeTrouble->ShowTrouble(form_.Trouble("cmbDataType"));
    ui_->lblDefaultValueTrouble->ShowTrouble(form_.Trouble("txtDefaultValue"));
}

} // namespace veldrane
