#include "shell/desktop/editors/project_properties_dialog.h"

#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "shell/project_defaults.h"
#include "ui_frm_project_properties.h"

#include <QEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPalette>

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kLinesOfHelp = 4;
constexpr QRgb kMissing = 0xFFFF0000; // the red of a label whose control OK was refused for

struct LevelButton
{
    QRadioButton* Ui::frmProjectProperties::*Button;
    std::int32_t Level;
};

constexpr auto kLevelButtons = std::to_array<LevelButton>({
    {&Ui::frmProjectProperties::optServer, logging_level::kServer},
    {&Ui::frmProjectProperties::optClient, logging_level::kClient},
    {&Ui::frmProjectProperties::optBoth, logging_level::kBoth},
});

std::string NameOf(const QObject& object)
{
    return FromQt(object.objectName());
}

void Redden(QLabel& label, bool red)
{
    QPalette palette;
    if (red)
        palette.setColor(QPalette::WindowText, QColor::fromRgb(kMissing));
    label.setPalette(palette);
}

} // namespace

ProjectPropertiesDialog::ProjectPropertiesDialog(frmProjectProperties& form, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmProjectProperties>())
{
    ui_->setupUi(this);
    FillLists();
    KeepRoomForHelp();
    ConnectTexts();
    ConnectBoxes();
    ConnectPrefixes();
    ConnectDefaults();
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    Follow(form_.FocusWanted);
    ShowState();
    resize(sizeHint());
    const bool first = form_.FirstTab() == ProjectTab::General;
    ui_->tabMain->setCurrentIndex(static_cast<int>(form_.FirstTab()));
    FocusOn(first ? "txtProjectName" : "chkMTS");
}

ProjectPropertiesDialog::~ProjectPropertiesDialog() = default;

void ProjectPropertiesDialog::FillLists()
{
    ui_->cmbVBVersion->addItem(u"Visual Basic 6.0"_s, visual_basic_version::kVisualBasic6);
    ui_->cmbVBVersion->addItem(u"Visual Basic 5.0"_s, visual_basic_version::kVisualBasic5);
    for (const ProjectPrefix& prefix : kProjectPrefixes)
        new QTreeWidgetItem(ui_->lstPrefixes, {NameToQt(prefix.Name)});
    ui_->lstPrefixes->setCurrentItem(ui_->lstPrefixes->topLevelItem(0));
    ui_->lstPrefixes->resizeColumnToContents(0);
    const QFontMetrics letters(ui_->txtAutoSave->font());
    ui_->txtAutoSave->setFixedWidth(letters.horizontalAdvance(u"0000000"_s));
}

// So that nothing moves while the pointer goes over the boxes.
void ProjectPropertiesDialog::KeepRoomForHelp()
{
    QFont bold = ui_->lblHelpHeading->font();
    bold.setBold(true);
    ui_->lblHelpHeading->setFont(bold);
    ui_->lblHelp->setMinimumHeight(kLinesOfHelp * QFontMetrics(ui_->lblHelp->font()).lineSpacing());
}

void ProjectPropertiesDialog::ConnectTexts()
{
    for (auto* const field : findChildren<QLineEdit*>())
        connect(field, &QLineEdit::textChanged, this, [this, name = NameOf(*field)](const QString& text) {
            form_.Text_Change(name, FromQt(text));
            ShowState();
        });
    connect(ui_->cmbVBVersion, &QComboBox::activated, this,
            [this] { form_.cmbVBVersion_Click(ui_->cmbVBVersion->currentData().toInt()); });
}

void ProjectPropertiesDialog::ConnectBoxes()
{
    for (auto* const box : findChildren<QCheckBox*>()) {
        box->installEventFilter(this);
        connect(box, &QCheckBox::clicked, this, [this, name = NameOf(*box)](bool on) {
            form_.Check_Click(name, on);
            ShowState();
        });
    }
    for (const LevelButton& row : kLevelButtons)
        connect(ui_.get()->*row.Button, &QRadioButton::clicked, this,
                [this, level = row.Level] { form_.LoggingLevel_Click(level); });
    connect(ui_->cmdLoggingTable, &QPushButton::clicked, this, [this] {
        form_.cmdLoggingTable_Click();
        ShowState();
    });
}

void ProjectPropertiesDialog::ConnectPrefixes()
{
    connect(ui_->lstPrefixes, &QTreeWidget::itemDoubleClicked, this, &ProjectPropertiesDialog::EditPrefix);
    connect(ui_->cmdEditPrefix, &QPushButton::clicked, this, &ProjectPropertiesDialog::EditPrefix);
    ui_->lstPrefixes->installEventFilter(this);
}

void ProjectPropertiesDialog::ConnectDefaults()
{
    const auto runs = [this](QPushButton& button, void (frmProjectProperties::*routine)()) {
        connect(&button, &QPushButton::clicked, this, [this, routine] {
            (form_.*routine)();
            ShowState();
        });
    };
    runs(*ui_->cmdSetAsDefault, &frmProjectProperties::cmdSetAsDefault_Click);
    runs(*ui_->cmdRestoreDefaults, &frmProjectProperties::cmdRestoreDefaults_Click);
    runs(*ui_->cmdSetDefaults, &frmProjectProperties::cmdSetDefaults_Click);
    runs(*ui_->cmdRestorePrefixes, &frmProjectProperties::cmdRestorePrefixes_Click);
}

void ProjectPropertiesDialog::EditPrefix()
{
    form_.lstPrefixes_DblClick(static_cast<std::size_t>(ui_->lstPrefixes->currentIndex().row()));
    ShowState();
}

// Return edits the prefix in the list, where it would else leave the dialog.
bool ProjectPropertiesDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui_->lstPrefixes && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        EditPrefix();
        return true;
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::Enter) {
        helped_ = NameOf(*watched);
        ShowHelp();
    }
    return EditorDialog::eventFilter(watched, event);
}

void ProjectPropertiesDialog::ShowState()
{
    ShowTexts();
    for (auto* const box : findChildren<QCheckBox*>())
        box->setChecked(form_.IsChecked(NameOf(*box)));
    for (const LevelButton& row : kLevelButtons) {
        (ui_.get()->*row.Button)->setAutoExclusive(form_.LoggingLevel() != 0);
        (ui_.get()->*row.Button)->setChecked(form_.LoggingLevel() == row.Level);
    }
    ui_->cmbVBVersion->setCurrentIndex(ui_->cmbVBVersion->findData(form_.cmbVBVersion()));
    for (auto* const control : findChildren<QWidget*>())
        if (!control->objectName().isEmpty())
            control->setEnabled(form_.IsEnabled(NameOf(*control)));
    ui_->chkForms->setText(NameToQt(form_.chkForms_Caption()).replace(u"Form "_s, u"&Form "_s));
    ShowLabels();
    ShowPrefixes();
    ShowHelp();
}

void ProjectPropertiesDialog::ShowTexts()
{
    for (auto* const field : findChildren<QLineEdit*>())
        ShowText(*field, form_.Text(NameOf(*field)));
}

void ProjectPropertiesDialog::ShowLabels()
{
    for (auto* const label : findChildren<QLabel*>()) {
        if (label->buddy() == nullptr)
            continue;
        const std::string control = NameOf(*label->buddy());
        if (auto* const trouble = qobject_cast<TroubleLabel*>(label))
            trouble->ShowTrouble(form_.Trouble(control));
        else
            Redden(*label, form_.IsMissing(control));
    }
}

void ProjectPropertiesDialog::ShowPrefixes()
{
    for (std::size_t row = 0; row < kProjectPrefixes.size(); ++row)
        ui_->lstPrefixes->topLevelItem(static_cast<int>(row))->setText(1, NameToQt(form_.Prefix(row)));
}

void ProjectPropertiesDialog::ShowHelp()
{
    const ProjectHelp help = form_.Help(helped_);
    ui_->lblHelpHeading->setText(NameToQt(help.Heading));
    ui_->lblHelp->setText(help.Text.empty() ? u"Point to an option to read what it does."_s : ToQt(help.Text));
}

} // namespace veldrane
