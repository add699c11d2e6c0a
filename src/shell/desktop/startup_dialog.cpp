#include "shell/desktop/startup_dialog.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/product_text.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_startup.h"

#include <QApplication>
#include <QPushButton>

namespace veldrane {

StartupDialog::StartupDialog(frmStartup& rules, QWidget* parent)
    : QDialog(parent), rules_(rules), ui_(std::make_unique<Ui::frmStartup>())
{
    ui_->setupUi(this);
    ui_->lblNoRecent->setForegroundRole(QPalette::PlaceholderText);
    ShowTitle(*ui_->lblTitle);
    ui_->imgProgram->setPixmap(Icon(kProgramIcon).pixmap(ui_->imgProgram->minimumSize()));
    ShowRows();
    // Return on a row comes by the default button.
    for (const QListWidget* list : {ui_->lstNew, ui_->lstRecent})
        connect(list, &QListWidget::itemDoubleClicked, this, [this] { OpenSelected(); });
    connect(ui_->chkDontShow, &QCheckBox::clicked, this, [this] {
        rules_.chkDontShow_Click();
        ui_->chkDontShow->setChecked(rules_.chkDontShow());
    });
    connect(ui_->cmdOpen, &QPushButton::clicked, this, [this] { OpenSelected(); });
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    // Tab chooses in a list, too.
    for (QListWidget* list : {ui_->lstNew, ui_->lstRecent})
        connect(qApp, &QApplication::focusChanged, list, [list](QWidget*, QWidget* now) {
            if (list == now && list->currentItem() != nullptr)
                list->currentItem()->setSelected(true);
        });
    // One row of the two lists is chosen at a time.
    connect(ui_->lstNew, &QListWidget::itemSelectionChanged, this, [this] {
        if (!ui_->lstNew->selectedItems().isEmpty())
            ui_->lstRecent->clearSelection();
    });
    connect(ui_->lstRecent, &QListWidget::itemSelectionChanged, this, [this] {
        if (!ui_->lstRecent->selectedItems().isEmpty())
            ui_->lstNew->clearSelection();
    });
}

StartupDialog::~StartupDialog() = default;

void StartupDialog::ShowRows()
{
    for (const StartupRow& row : frmStartup::lstNew()) {
        auto* item = new QListWidgetItem(Icon(row.Icon), ToQt(row.Text), ui_->lstNew);
        item->setData(Qt::UserRole, ToQt(row.Key));
    }
    for (const RecentProject& project : rules_.lstRecent()) {
        auto* item = new QListWidgetItem(Icon("Root"), NameToQt(project.ProjectName), ui_->lstRecent);
        item->setToolTip(PlainToolTip(NameToQt(project.Path)));
    }
    ui_->lblNoRecent->setVisible(rules_.lstRecent().empty());
    ui_->lstRecent->setVisible(!rules_.lstRecent().empty());
    ui_->chkDontShow->setChecked(rules_.chkDontShow());
    QListWidget& first = rules_.lstRecent().empty() ? *ui_->lstNew : *ui_->lstRecent;
    first.setCurrentRow(0);
    first.setFocus();
}

void StartupDialog::Choose(const std::optional<StartupChoice>& choice)
{
    if (!choice)
        return;
    choice_ = *choice;
    accept();
}

void StartupDialog::OpenSelected()
{
    if (const auto rows = ui_->lstNew->selectedItems(); !rows.isEmpty())
        Choose(rules_.lstNew_DblClick(FromQt(rows.front()->data(Qt::UserRole).toString())));
    else if (const auto recent = ui_->lstRecent->selectedItems(); !recent.isEmpty())
        Choose(rules_.lstRecent_DblClick(static_cast<std::size_t>(ui_->lstRecent->row(recent.front()))));
}

} // namespace veldrane
