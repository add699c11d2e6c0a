#include "shell/desktop/editors/logging_table_dialog.h"

#include "shell/desktop/qt_text.h"
#include "ui_frm_logging_table.h"

#include <QFontDatabase>
#include <QFontMetrics>

namespace veldrane {
namespace {

constexpr int kScriptColumns = 84;
constexpr int kScriptRows = 26;
constexpr int kTabColumns = 4;

} // namespace

LoggingTableDialog::LoggingTableDialog(frmLoggingTable& form, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmLoggingTable>())
{
    ui_->setupUi(this);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QFontMetrics letters(fixed);
    ui_->txtScript->setFont(fixed);
    ui_->txtScript->setTabStopDistance(kTabColumns * letters.horizontalAdvance(u' '));
    ui_->txtScript->setPlainText(ToQt(form.txtScript()));
    ui_->cmdCreate->setEnabled(form.cmdCreate_Enabled());
    (form.cmdCreate_Enabled() ? ui_->cmdCreate : ui_->cmdSave)->setDefault(true);
    ui_->lblCreateTrouble->ShowTrouble(form.WhyNot());
    resize(kScriptColumns * letters.horizontalAdvance(u'x'), kScriptRows * letters.lineSpacing());
    connect(ui_->cmdCreate, &QPushButton::clicked, this, [this, &form] {
        if (form.cmdCreate_Click())
            accept();
    });
    connect(ui_->cmdSave, &QPushButton::clicked, this, [this, &form] {
        if (form.cmdSave_Click())
            accept();
    });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

LoggingTableDialog::~LoggingTableDialog() = default;

} // namespace veldrane
