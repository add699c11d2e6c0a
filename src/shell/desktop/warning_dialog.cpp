#include "shell/desktop/warning_dialog.h"

#include "shell/desktop/qt_text.h"
#include "shell/desktop/room_for_dialog.h"
#include "ui_frm_warning.h"

#include <QDialog>
#include <QStyle>

namespace veldrane {
namespace {

constexpr int kIconSize = 32;

} // namespace

void ShowWarning(frmWarning& warning)
{
    const RoomForDialog room;
    QDialog dialog(WindowInFront());
    Ui::frmWarning ui;
    ui.setupUi(&dialog);
    dialog.setWindowTitle(ToQt(warning.Caption()));
    ui.imgWarning->setPixmap(dialog.style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(kIconSize));
    ui.lblMessage->setText(ToQt(warning.lblMessage()));
    ui.chkDoNotShow->setVisible(warning.HasDoNotShow());
    ui.cmdOK->setFocus();
    dialog.resize(dialog.width(), dialog.layout()->totalHeightForWidth(dialog.width()));
    QObject::connect(ui.chkDoNotShow, &QCheckBox::toggled, &dialog, [&](bool on) { warning.chkDoNotShow = on; });
    QObject::connect(ui.cmdOK, &QPushButton::clicked, &dialog, &QDialog::accept);
    if (dialog.exec() == QDialog::Accepted)
        warning.cmdOK_Click();
}

} // namespace veldrane
