#include "shell/desktop/editors/project_properties_dialog.h"

#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "shell/project_defaults.h"
#include "ui_frm_project_properties.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPalette>

#include <algorithm>
#include <array>
#include <vector>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kLinesOfHelp = 5;       // with the heading
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
    // What is told of an option of one tab says nothing on another.
    connect(ui_->tabMain, &QTabWidget::currentChanged, this, [this] {
        helped_.clear();
        ShowHelp();
    });
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
    ui_->lstPrefixes->setHeaderLabels({u"Names of"_s, u"Prefix"_s});
    ui_->lstPrefixes->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    const QFontMetrics letters(ui_->txtAutoSave->font());
    ui_->txtAutoSave->setFixedWidth(letters.horizontalAdvance(u"0000000"_s));
}

// So that nothing moves while the pointer goes over the boxes.
void ProjectPropertiesDialog::KeepRoomForHelp()
{
    QFont bold = ui_->lblHelpHeading->font();
    bold.setBold(true);
    ui_->lblHelpHeading->setFont(bold);
    ui_->fraHelp->setMinimumHeight((kLinesOfHelp + 1) * QFontMetrics(ui_->lblHelp->font()).lineSpacing());
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
    connect(ui_->lstPrefixes, &EditorList::RowOpened, this, &ProjectPropertiesDialog::EditPrefix);
    connect(ui_->cmdEditPrefix, &QPushButton::clicked, this, [this] {
        if (const auto row = ui_->lstPrefixes->CurrentRow())
            EditPrefix(*row);
    });
}

void ProjectPropertiesDialog::ConnectDefaults()
{
    const auto show = [this] { ShowState(); };
    connect(ui_->cmdSetAsDefault, &QPushButton::clicked, this, [this] { form_.cmdSetAsDefault_Click(); });
    connect(ui_->cmdSetDefaults, &QPushButton::clicked, this, [this] { form_.cmdSetDefaults_Click(); });
    connect(ui_->cmdRestoreDefaults, &QPushButton::clicked, this, [this] { form_.cmdRestoreDefaults_Click(); });
    connect(ui_->cmdRestorePrefixes, &QPushButton::clicked, this, [this] { form_.cmdRestorePrefixes_Click(); });
    for (const QPushButton* const button : {ui_->cmdRestoreDefaults, ui_->cmdRestorePrefixes})
        connect(button, &QPushButton::clicked, this, show);
}

void ProjectPropertiesDialog::EditPrefix(std::size_t row)
{
    form_.lstPrefixes_DblClick(row);
    ShowState();
}

bool ProjectPropertiesDialog::eventFilter(QObject* watched, QEvent* event)
{
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
    std::vector<EditorRow> rows;
    for (std::size_t row = 0; row < kProjectPrefixes.size(); ++row)
        rows.push_back({.Columns = {std::string(kProjectPrefixes.at(row).Name), form_.Prefix(row)}});
    ui_->lstPrefixes->Show(rows);
}

void ProjectPropertiesDialog::ShowHelp()
{
    const ProjectHelp help = form_.Help(helped_);
    ui_->lblHelpHeading->setText(NameToQt(help.Heading));
    ui_->lblHelpHeading->setVisible(!help.Heading.empty());
    ui_->lblHelp->setText(help.Text.empty() ? u"Point to an option to read what it does."_s : ToQt(help.Text));
}

} // namespace veldrane
