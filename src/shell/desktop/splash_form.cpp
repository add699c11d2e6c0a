#include "shell/desktop/splash_form.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/product_text.h"
#include "ui_frm_splash.h"

#include <QTimer>

namespace veldrane {
namespace {

constexpr int kPictureSize = 96;

} // namespace

SplashForm::SplashForm() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_DeleteOnClose);
    Ui::frmSplash ui;
    ui.setupUi(this);
    ui.imgProgram->setPixmap(Icon(kProgramIcon).pixmap(kPictureSize));
    ShowTitle(*ui.lblTitle);
    ui.lblVersion->setText(VersionLine());
}

void SplashForm::ShowFor(std::chrono::milliseconds duration)
{
    show();
    QTimer::singleShot(duration, this, &QWidget::close);
}

void SplashForm::mousePressEvent(QMouseEvent*)
{
    close();
}

} // namespace veldrane
