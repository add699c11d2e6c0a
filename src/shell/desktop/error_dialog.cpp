#include "shell/desktop/error_dialog.h"

#include "shell/desktop/bug_dialog.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/room_for_dialog.h"
#include "ui_frm_error.h"

#include <QClipboard>
#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QStyle>

#include <algorithm>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kIconSize = 32;

} // namespace

ErrorDialog::ErrorDialog(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmError>())
{
    ui_->setupUi(this);
    ui_->imgError->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(kIconSize));
    ui_->txtError->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui_->txtError->hide();
    ui_->scrError->viewport()->installEventFilter(this);
    ui_->cmdOK->setFocus();
    connect(ui_->cmdCopy, &QPushButton::clicked, this, &ErrorDialog::Copy);
    connect(ui_->cmdReport, &QPushButton::clicked, this, [this] { ReportBug(this, FromQt(WholeText())); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

ErrorDialog::~ErrorDialog() = default;

void ErrorDialog::Add(const std::string& summary, const std::string& report)
{
    const QString before = ui_->lblError->text();
    ui_->lblError->setText(before.isEmpty() ? ToQt(summary) : before + u"\n\n"_s + ToQt(summary));
    if (!report.empty()) {
        ui_->txtError->appendPlainText(ToQt(report));
        ui_->txtError->show();
    }
    FitWords();
}

bool ErrorDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        FitWords();
    return QDialog::eventFilter(watched, event);
}

void ErrorDialog::FitWords()
{
    const int most = MostHeightOfWords(*this);
    const int needed = ui_->lblError->heightForWidth(ui_->scrError->viewport()->width());
    ui_->scrError->setFixedHeight(std::clamp(needed, kIconSize, std::max(most, kIconSize)));
}

QString ErrorDialog::WholeText() const
{
    return ui_->lblError->text() + u"\n\n"_s + ui_->txtError->toPlainText();
}

void ErrorDialog::Copy()
{
    QGuiApplication::clipboard()->setText(WholeText());
}

} // namespace veldrane
