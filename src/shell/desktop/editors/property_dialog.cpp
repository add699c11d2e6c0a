#include "shell/desktop/editors/property_dialog.h"

#include "shell/desktop/editors/disabled_control.h"
#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_add_edit_property.h"

#include <algorithm>
#include <initializer_list>

namespace veldrane {

PropertyDialog::PropertyDialog(frmAddEditProperty& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmAddEditProperty>())
{
    ui_->setupUi(this);
    setWindowTitle(NameToQt(form_.Caption()));
    ui_->lstPreview->SetLook(look);
    FillBoxes();
    DisableControls();
    ConnectControls();
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    Follow(form_.FocusWanted);
    ShowState();
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    FocusOn(ui_->txtPropertyName->isEnabled() ? "txtPropertyName" : "lstPreview");
}

PropertyDialog::~PropertyDialog() = default;

// A scope that the property has and the list lacks stands behind the others.
void PropertyDialog::FillBoxes()
{
    for (const TypeItem& type : form_.Types())
        ui_->cmbDataType->addItem(NameToQt(type.Text));
    const auto& scopes = frmAddEditProperty::kScopes;
    for (const std::string_view scope : scopes)
        ui_->cmbScope->addItem(NameToQt(scope));
    if (!form_.cmbScope.empty() && std::find(scopes.begin(), scopes.end(), form_.cmbScope) == scopes.end())
        ui_->cmbScope->addItem(NameToQt(form_.cmbScope));
}

void PropertyDialog::DisableControls()
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->txtPropertyName, ui_->cmbDataType, ui_->cmbScope, ui_->chkPropertyGet,
                                         ui_->chkPropertyLetSet, ui_->chkDefaultProperty})
        DisableFor(*control, form_.WhyDisabled(control->objectName().toStdString()));
}

void PropertyDialog::ConnectControls()
{
    connect(ui_->txtPropertyName, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.txtPropertyName_Change(FromQt(text));
        ShowState();
    });
    connect(ui_->cmbDataType, &QComboBox::activated, this, [this](int row) {
        form_.cmbDataType_Click(static_cast<std::size_t>(row));
        ShowState();
    });
    connect(ui_->cmbScope, &QComboBox::textActivated, this, [this](const QString& text) {
        form_.cmbScope = FromQt(text);
        ShowState();
    });
    connect(ui_->chkPropertyGet, &QCheckBox::clicked, this, [this](bool on) {
        form_.chkPropertyGet = on;
        ShowState();
    });
    connect(ui_->chkPropertyLetSet, &QCheckBox::clicked, this, [this](bool on) {
        form_.chkPropertyLetSet = on;
        ShowState();
    });
    connect(ui_->chkDefaultProperty, &QCheckBox::clicked, this, [this](bool on) {
        form_.chkDefaultProperty_Click(on);
        ShowState();
    });
}

void PropertyDialog::ShowState()
{
    ShowText(*ui_->txtPropertyName, form_.txtPropertyName);
    ui_->cmbDataType->setCurrentIndex(static_cast<int>(form_.cmbDataType()));
    ui_->cmbScope->setCurrentIndex(ui_->cmbScope->findText(NameToQt(form_.cmbScope)));
    ui_->chkPropertyGet->setChecked(form_.chkPropertyGet);
    ui_->chkPropertyLetSet->setChecked(form_.chkPropertyLetSet);
    ui_->chkDefaultProperty->setChecked(form_.chkDefaultProperty());
    ui_->lblPropertyNameTrouble->ShowTrouble(form_.Trouble("txtPropertyName"));
    ui_->lblRoutinesTrouble->ShowTrouble(form_.Trouble("chkPropertyGet"));
    ui_->lstPreview->ShowLines(form_.Preview());
}

} // namespace veldrane
