#include "shell/desktop/bug_dialog.h"

#include "generator/generation_settings.h"
#include "shell/desktop/product_text.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/room_for_dialog.h"
#include "ui_frm_bug.h"
#include "ui_frm_bug_report.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSysInfo>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype kBlanksPerLevel = 4;
constexpr int kReportColumns = 80;
constexpr int kReportRows = 24;

std::string VersionText()
{
    return FromQt(VersionLine() + u", Qt "_s + QString::fromLatin1(qVersion()) + u", "_s +
                  QSysInfo::prettyProductName() + u", "_s + QSysInfo::currentCpuArchitecture());
}

} // namespace

BugDialog::BugDialog(frmBug& form, QWidget* parent) : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmBug>())
{
    ui_->setupUi(this);
    for (const BugCategory& category : frmBug::Categories())
        ui_->cmbCategory->addItem(QString(kBlanksPerLevel * (category.Level - 1), u' ') + NameToQt(category.Text));
    ui_->cmbCategory->setMaxVisibleItems(ui_->cmbCategory->count());
    ui_->txtDescription->setPlainText(ToQt(form_.txtDescription));
    connect(ui_->cmdGenerate, &QPushButton::clicked, this, &BugDialog::GenerateReport);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

BugDialog::~BugDialog() = default;

void BugDialog::GenerateReport()
{
    form_.cmbCategory = static_cast<std::size_t>(ui_->cmbCategory->currentIndex());
    form_.txtDescription = FromQt(ui_->txtDescription->toPlainText());
    form_.txtSteps = FromQt(ui_->txtSteps->toPlainText());
    BugReportDialog(form_.Report(), this).exec();
}

BugReportDialog::BugReportDialog(const std::string& report, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmBugReport>())
{
    ui_->setupUi(this);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    ui_->txtReport->setFont(fixed);
    const QFontMetrics letters(fixed);
    ui_->txtReport->setMinimumWidth(kReportColumns * letters.horizontalAdvance(u'-'));
    ui_->txtReport->setPlainText(ToQt(report));
    resize(sizeHint().width(), kReportRows * letters.lineSpacing());
    connect(ui_->cmdCopy, &QPushButton::clicked, this, &BugReportDialog::Copy);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

BugReportDialog::~BugReportDialog() = default;

void BugReportDialog::Copy()
{
    ui_->txtReport->selectAll();
    QGuiApplication::clipboard()->setText(ui_->txtReport->toPlainText());
    QMessageBox::information(this, NameToQt(kReportCopiedTitle), ToQt(ReportCopiedText()));
}

void ReportBug(QWidget* parent, const std::string& description)
{
    const RoomForDialog room;
    frmBug form(std::string(kAppTitle), VersionText());
    form.txtDescription = description;
    BugDialog(form, parent).exec();
}

} // namespace veldrane
