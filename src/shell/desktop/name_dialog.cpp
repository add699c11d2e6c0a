#include "shell/desktop/name_dialog.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/room_for_dialog.h"
#include "ui_frm_name.h"

#include <QDialog>

namespace veldrane {
namespace {

struct NameForm
{
    const char* Name;
    const char* Title;
    const char* Label;
    const char* Icon;
};

constexpr NameForm kAddTable{"frmAddTable", "Add a Table", "&Name of the table or view:", "Table"};
constexpr NameForm kAddSP{"frmAddSP", "Add a Stored Procedure", "&Name of the stored procedure:", "SP"};

std::optional<std::string> Ask(const NameForm& form, const std::string& before, QWidget* parent)
{
    const RoomForDialog room;
    QDialog dialog(parent);
    Ui::frmName ui;
    ui.setupUi(&dialog);
    dialog.setObjectName(QLatin1StringView(form.Name));
    dialog.setWindowTitle(QLatin1StringView(form.Title));
    dialog.setWindowIcon(Icon(form.Icon));
    ui.lblName->setText(QLatin1StringView(form.Label));
    ui.txtName->setText(NameToQt(before));
    ui.txtName->selectAll();
    QObject::connect(ui.cmdOK, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(ui.cmdCancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    return dialog.exec() == QDialog::Accepted ? std::optional(FromQt(ui.txtName->text())) : std::nullopt;
}

} // namespace

std::optional<std::string> AskForTableName(QWidget* parent, const std::string& before)
{
    return Ask(kAddTable, before, parent);
}

std::optional<std::string> AskForStoredProcedureName(QWidget* parent, const std::string& before)
{
    return Ask(kAddSP, before, parent);
}

} // namespace veldrane
