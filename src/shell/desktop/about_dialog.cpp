#include "shell/desktop/about_dialog.h"

#include "generator/generation_settings.h"
#include "shell/desktop/icons.h"
#include "shell/desktop/product_text.h"
#include "shell/desktop/qt_text.h"
#include "shell/product.h"
#include "ui_frm_about.h"

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPictureSize = 64;

} // namespace

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent)
{
    Ui::frmAbout ui;
    ui.setupUi(this);
    ui.imgProgram->setPixmap(Icon(kProgramIcon).pixmap(kPictureSize));
    ShowTitle(*ui.lblTitle);
    ui.lblVersion->setText(VersionLine());
    ui.lblSupport->setText(u"Support: "_s + NameToQt(kSupportAddress));
    connect(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace veldrane
