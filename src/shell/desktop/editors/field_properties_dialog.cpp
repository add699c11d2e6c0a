#include "shell/desktop/editors/field_properties_dialog.h"

#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_field_properties.h"

#include <QHeaderView>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kTypeColumn = 1;
constexpr int kAliasColumn = 2;

std::vector<BoxRow> Rows(const std::vector<ListRow>& rows)
{
    std::vector<BoxRow> shown;
    shown.reserve(rows.size());
    for (const ListRow& row : rows)
        shown.push_back({.Text = row.Text, .Icon = row.Icon});
    return shown;
}

std::size_t RowOf(int index)
{
    return static_cast<std::size_t>(index);
}

} // namespace

FieldPropertiesDialog::FieldPropertiesDialog(frmFieldProperties& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmFieldProperties>())
{
    ui_->setupUi(this);
    setWindowTitle(NameToQt(form_.Caption()));
    ui_->lblFieldName->setText(NameToQt(form_.FieldName()));
    ui_->lblFieldName->setToolTip(PlainToolTip(NameToQt(form_.FieldName())));
    ui_->lblFieldDataType->setText(NameToQt(form_.FieldDataType()));
    ui_->lstPreview->SetLook(look);
    for (const TypeItem& type : form_.Data.Types())
        ui_->cmbDataType->addItem(NameToQt(type.Text));
    ConnectGeneral();
    ConnectLookup();
    ConnectFields();
    ConnectFormatting();
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    Follow(form_.FocusWanted);
    fieldRefused_ = form_.FocusWanted.Connect([this](std::string_view control) {
        if (control == "lstFields")
            GoToFieldInTrouble();
    });
    ShowState();
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    FocusOn("txtPropertyName");
}

FieldPropertiesDialog::~FieldPropertiesDialog() = default;

template <class Operation>
void FieldPropertiesDialog::Do(Operation&& operation)
{
    operation();
    ShowState();
}

void FieldPropertiesDialog::Bind(QAbstractButton& box, bool& state)
{
    connect(&box, &QAbstractButton::clicked, this, [this, &state](bool on) { Do([&] { state = on; }); });
}

void FieldPropertiesDialog::Bind(QLineEdit& field, std::string& text)
{
    connect(&field, &QLineEdit::textChanged, this,
            [this, &text](const QString& typed) { Do([&] { text = FromQt(typed); }); });
}

void FieldPropertiesDialog::ConnectGeneral()
{
    FieldControls& controls = form_.Data;
    Bind(*ui_->txtPropertyName, form_.txtPropertyName);
    Bind(*ui_->txtMaxLength, controls.txtMaxLength);
    Bind(*ui_->chkAddFieldToClass, form_.chkAddFieldToClass);
    Bind(*ui_->chkPropertyGet, form_.chkPropertyGet);
    Bind(*ui_->chkDisplayTruncationMessage, controls.chkDisplayTruncationMessage);
    connect(ui_->cmbDataType, &QComboBox::activated, this,
            [this](int row) { Do([&] { form_.Data.cmbDataType_Click(RowOf(row)); }); });
    connect(ui_->chkIsNullable, &QCheckBox::clicked, this,
            [this](bool on) { Do([&] { form_.Data.chkIsNullable_Click(on); }); });
    connect(ui_->chkPropertyLetSet, &QCheckBox::clicked, this,
            [this](bool on) { Do([&] { form_.Data.chkPropertyLetSet_Click(on); }); });
    connect(ui_->chkDefaultProperty, &QCheckBox::clicked, this,
            [this](bool on) { Do([&] { form_.chkDefaultProperty_Click(on); }); });
    connect(ui_->chkEnforceMaxLength, &QCheckBox::clicked, this,
            [this](bool on) { Do([&] { form_.Data.chkEnforceMaxLength_Click(on); }); });
}

void FieldPropertiesDialog::ConnectLookup()
{
    connect(ui_->tabMain, &QTabWidget::currentChanged, this,
            [this](int tab) { Do([&] { form_.tabMain_Click(static_cast<FieldTab>(tab)); }); });
    connect(ui_->cmbTable->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& typed) { Do([&] { form_.Lookup.cmbTable_Change(FromQt(typed)); }); });
    connect(ui_->cmbTable, &QComboBox::activated, this,
            [this](int row) { Do([&] { form_.Lookup.cmbTable_Click(RowOf(row)); }); });
    connect(ui_->cmbField, &QComboBox::activated, this,
            [this](int row) { Do([&] { form_.Lookup.cmbField_Click(RowOf(row)); }); });
    Bind(*ui_->chkUseOuterJoin, form_.Lookup.chkUseOuterJoin);
}

void FieldPropertiesDialog::ConnectFields()
{
    EditorList& list = *ui_->lstFields;
    list.setHeaderLabels({u"Field"_s, u"Type"_s, u"Property"_s});
    list.header()->setStretchLastSection(false);
    list.header()->setSectionResizeMode(QHeaderView::Stretch);
    list.header()->setSectionResizeMode(kTypeColumn, QHeaderView::ResizeToContents);
    list.LetEdit(kAliasColumn);
    list.FilterBy(*ui_->txtFilter);
    connect(&list, &EditorList::RowsTicked, this, [this](const std::vector<std::size_t>& rows, bool ticked) {
        Do([&] { form_.Lookup.lstFields_ItemCheck(rows, ticked); });
    });
    connect(&list, &EditorList::RowEdited, this, [this](std::size_t row, const QString& alias) {
        Do([&] { form_.Lookup.lstFields_AfterLabelEdit(row, FromQt(alias)); });
    });
    connect(&list, &QTreeWidget::currentItemChanged, this, &FieldPropertiesDialog::ShowFieldTrouble);
}

// A box holds the format string in hand from when it is gone into, or changed.
void FieldPropertiesDialog::ConnectFormatting()
{
    for (QComboBox* box : {ui_->cmbFormatGet, ui_->cmbFormatLet}) {
        box->setCompleter(nullptr);
        box->installEventFilter(this);
    }
    connect(ui_->cmbFormatGet, &QComboBox::editTextChanged, this,
            [this](const QString& format) { Do([&] { form_.Formatting.cmbFormatGet_Change(FromQt(format)); }); });
    connect(ui_->cmbFormatLet, &QComboBox::editTextChanged, this,
            [this](const QString& format) { Do([&] { form_.Formatting.cmbFormatLet_Change(FromQt(format)); }); });
    Bind(*ui_->chkFormatOnGet, form_.Data.chkFormatOnGet);
    Bind(*ui_->chkFormatOnLet, form_.Data.chkFormatOnLet);
    Bind(*ui_->txtInput, form_.Formatting.txtInput);
}

bool FieldPropertiesDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        if (watched == ui_->cmbFormatGet)
            form_.Formatting.cmbFormatGet_Change(form_.Formatting.cmbFormatGet());
        else
            form_.Formatting.cmbFormatLet_Change(form_.Formatting.cmbFormatLet());
        ShowFormatting();
    }
    return EditorDialog::eventFilter(watched, event);
}

void FieldPropertiesDialog::ShowState()
{
    ShowGeneral();
    ShowLength();
    ShowLookup();
    ShowFields();
    ShowFormatting();
    ui_->lstPreview->ShowLines(form_.Preview());
}

void FieldPropertiesDialog::ShowGeneral()
{
    const FieldControls& controls = form_.Data;
    ShowText(*ui_->txtPropertyName, form_.txtPropertyName);
    ui_->lblPropertyNameTrouble->ShowTrouble(form_.Trouble("txtPropertyName"));
    ui_->cmbDataType->setCurrentIndex(static_cast<int>(controls.cmbDataType()));
    ui_->lblDataTypeTrouble->ShowTrouble(form_.Trouble("cmbDataType"));
    ui_->chkAddFieldToClass->setChecked(form_.chkAddFieldToClass);
    ui_->chkIsNullable->setChecked(controls.chkIsNullable());
    ui_->chkPropertyGet->setChecked(form_.chkPropertyGet);
    ui_->chkPropertyLetSet->setChecked(controls.chkPropertyLetSet());
    ui_->chkDefaultProperty->setChecked(form_.chkDefaultProperty());
}

void FieldPropertiesDialog::ShowLength()
{
    const FieldControls& controls = form_.Data;
    const FieldControls::EnabledControls& enabled = controls.Enabled();
    ui_->chkEnforceMaxLength->setChecked(controls.chkEnforceMaxLength());
    ShowText(*ui_->txtMaxLength, controls.txtMaxLength);
    ui_->lblMaxLengthTrouble->ShowTrouble(form_.Trouble("txtMaxLength"));
    ui_->chkDisplayTruncationMessage->setChecked(controls.chkDisplayTruncationMessage);
    ui_->lblMessageTrouble->ShowTrouble(form_.Trouble("chkDisplayTruncationMessage"));
    ui_->fraFieldLength->setEnabled(enabled.fraFieldLength);
    ui_->chkEnforceMaxLength->setEnabled(enabled.chkEnforceMaxLength);
    ui_->txtMaxLength->setEnabled(enabled.txtMaxLength);
    ui_->lblChars->setEnabled(enabled.lblChars);
    ui_->chkDisplayTruncationMessage->setEnabled(enabled.chkDisplayTruncationMessage);
}

void FieldPropertiesDialog::ShowLookup()
{
    const LookupPage& lookup = form_.Lookup;
    ShowRows(*ui_->cmbTable, Rows(lookup.Tables()), lookup.cmbTable());
    ShowText(*ui_->cmbTable, lookup.cmbTable_Text());
    ui_->lblTableTrouble->ShowTrouble(form_.Trouble("cmbTable"));
    ShowRows(*ui_->cmbField, Rows(lookup.JoinFields()), lookup.cmbField());
    ui_->lblFieldTrouble->ShowTrouble(form_.Trouble("cmbField"));
    ui_->chkUseOuterJoin->setChecked(lookup.chkUseOuterJoin);
}

void FieldPropertiesDialog::ShowFields()
{
    std::vector<EditorRow> rows;
    for (const LookupFieldRow& field : form_.Lookup.lstFields())
        rows.push_back({.Columns = {field.FieldName, field.DataType, field.PropertyName},
                        .Icon = field.Icon,
                        .Ticked = field.Ticked,
                        .Trouble = form_.Trouble(rows.size())});
    ui_->lstFields->Show(rows, ui_->lstFields->SelectedRows());
    ShowFieldTrouble();
}

void FieldPropertiesDialog::ShowFieldTrouble()
{
    const auto row = ui_->lstFields->CurrentRow();
    ui_->lblFieldsTrouble->ShowTrouble(row ? form_.Trouble(*row) : std::string());
}

void FieldPropertiesDialog::GoToFieldInTrouble()
{
    ui_->txtFilter->clear(); // it may hide the row
    for (std::size_t row = 0; row < form_.Lookup.lstFields().size(); ++row)
        if (!form_.Trouble(row).empty())
            return ui_->lstFields->SelectRow(row);
}

void FieldPropertiesDialog::ShowFormatting()
{
    const FieldControls& controls = form_.Data;
    std::vector<BoxRow> formats;
    for (const std::string_view format : form_.Formats())
        formats.push_back({.Text = format});
    ShowRows(*ui_->cmbFormatGet, formats);
    ShowText(*ui_->cmbFormatGet, form_.Formatting.cmbFormatGet());
    ShowRows(*ui_->cmbFormatLet, formats);
    ShowText(*ui_->cmbFormatLet, form_.Formatting.cmbFormatLet());
    ui_->lblFormatGetTrouble->ShowTrouble(form_.Trouble("cmbFormatGet"));
    ui_->lblFormatLetTrouble->ShowTrouble(form_.Trouble("cmbFormatLet"));
    ui_->chkFormatOnGet->setChecked(controls.chkFormatOnGet);
    ui_->chkFormatOnLet->setChecked(controls.chkFormatOnLet);
    ui_->chkFormatOnLet->setEnabled(controls.Enabled().chkFormatOnLet);
    ui_->tabMain->setTabEnabled(static_cast<int>(FieldTab::Formatting), controls.Enabled().tabFormatting);
    ShowText(*ui_->txtInput, form_.Formatting.txtInput);
    ui_->lblSampleOutput->setText(NameToQt(form_.Formatting.lblSampleOutput()));
}

} // namespace veldrane
