#include "shell/desktop/folder_name_dialog.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_new_folder.h"

#include <QDialog>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

// What is wrong with a name; "" for nothing.
QString TroubleWith(const QString& name)
{
    if (name.contains(u'/'))
        return u"A name can't have a slash."_s;
    if (name == u"."_s || name == u".."_s)
        return u"\"%1\" stands for a folder that is there already."_s.arg(name);
    return {};
}

} // namespace

std::string AskForFolderName(QWidget* parent)
{
    QDialog dialog(parent);
    Ui::frmNewFolder ui;
    ui.setupUi(&dialog);
    dialog.setWindowIcon(Icon("ClosedFolder"));
    ui.cmdOK->setEnabled(false);
    QObject::connect(ui.txtFolderName, &QLineEdit::textChanged, &dialog, [&ui](const QString& name) {
        ui.lblTrouble->setText(TroubleWith(name));
        ui.cmdOK->setEnabled(!name.isEmpty() && ui.lblTrouble->text().isEmpty());
    });
    QObject::connect(ui.cmdOK, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(ui.cmdCancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    return dialog.exec() == QDialog::Accepted ? FromQt(ui.txtFolderName->text()) : "";
}

} // namespace veldrane
