#include "shell/desktop/logon_dialog.h"

#include "shell/desktop/dropped_file.h"
#include "shell/desktop/icons.h"
#include "shell/desktop/logon_page_view.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_odbc_logon.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QSignalBlocker>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

struct PageTab
{
    const char* Name;
    const char* Caption;
    const char* Icon;
};

// In the order of logon_page.
constexpr std::array<PageTab, logon_page::kCount> kTabs{{
    {"page0", "ODBC", "DSN"},
    {"page1", "Jet", "Access"},
    {"page2", "SQL Server", "Server"},
}};

std::size_t RowOf(int index)
{
    return static_cast<std::size_t>(index);
}

} // namespace

LogonDialog::LogonDialog(frmODBCLogon& rules, QWidget* parent)
    : QDialog(parent), rules_(rules), ui_(std::make_unique<Ui::frmODBCLogon>())
{
    ui_->setupUi(this);
    ui_->lblDrop->setForegroundRole(QPalette::PlaceholderText);
    if (rules.Purpose() == LogonPurpose::EditDataSource)
        setWindowTitle(u"Edit DataSource"_s);
    AddPages();
    setTabOrder(previousInFocusChain(), ui_->cmdOK); // behind the controls of the pages, which came later
    setTabOrder(ui_->cmdOK, ui_->cmdCancel);
    for (const LogonProvider& provider : rules.Providers())
        ui_->cmbProviders->addItem(NameToQt(provider.Text));
    if (!rules.Offers(logon_page::kSqlServer)) {
        ui_->tabMain->setTabEnabled(logon_page::kSqlServer, false);
        ui_->tabMain->setTabToolTip(logon_page::kSqlServer, u"Needs the ODBC driver FreeTDS: install tdsodbc"_s);
    }
    connect(ui_->cmbProviders, &QComboBox::activated, this,
            [this](int row) { Do([&] { rules_.cmbProviders_Click(RowOf(row)); }); });
    connect(ui_->tabMain, &QTabWidget::currentChanged, this,
            [this](int page) { Do([&] { rules_.tabMain_Click(RowOf(page)); }); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] {
        Do([this] { rules_.cmdOK_Click(); });
        MoveToFocus();
    });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &LogonDialog::reject);
    Refresh();
}

LogonDialog::~LogonDialog() = default;

void LogonDialog::AddPages()
{
    for (std::size_t page = 0; page < pages_.size(); ++page) {
        pages_[page] = new LogonPageView(page, this);
        ui_->tabMain->addTab(pages_[page], Icon(kTabs[page].Icon), QLatin1StringView(kTabs[page].Caption));
        pages_[page]->setObjectName(QLatin1StringView(kTabs[page].Name));
        Connect(*pages_[page]);
    }
}

void LogonDialog::Connect(LogonPageView& view)
{
    connect(&view, &LogonPageView::Typed, this,
            [this, &view] { view.Take(rules_.Page(), rules_.chkConnectSameDirectory); });
    connect(&view, &LogonPageView::DataSourceClicked, this,
            [this](int row) { Do([&] { rules_.cmbDSN_Click(RowOf(row)); }); });
    connect(&view, &LogonPageView::DriverClicked, this,
            [this](int row) { Do([&] { rules_.cmbDrivers_Click(RowOf(row)); }); });
    connect(&view, &LogonPageView::UseDSNClicked, this, [this] { Do([this] { rules_.optUseDSN_Click(); }); });
    connect(&view, &LogonPageView::DSNLessClicked, this, [this] { Do([this] { rules_.optDSNLess_Click(); }); });
    connect(&view, &LogonPageView::BrowseClicked, this, [this] { Do([this] { rules_.cmdBrowse_Click(); }); });
}

template <class Operation>
void LogonDialog::Do(Operation&& operation)
{
    operation();
    Refresh();
    if (rules_.State() != DialogState::Shown)
        accept();
}

void LogonDialog::Refresh()
{
    const QSignalBlocker noClicks(ui_->tabMain);
    for (std::size_t page = 0; page < pages_.size(); ++page)
        pages_[page]->Show(rules_.Pages()[page], rules_.chkConnectSameDirectory);
    for (std::size_t row = 0; row < rules_.Providers().size(); ++row) {
        if (rules_.Providers()[row].Key == rules_.Provider().Key)
            ui_->cmbProviders->setCurrentIndex(static_cast<int>(row));
    }
    ui_->tabMain->setCurrentIndex(static_cast<int>(rules_.CurrentPage()));
}

void LogonDialog::MoveToFocus()
{
    auto* control = pages_.at(rules_.CurrentPage())->findChild<QWidget*>(NameToQt(rules_.Focus()));
    if (!rules_.Focus().empty() && control != nullptr)
        control->setFocus();
}

void LogonDialog::reject()
{
    rules_.cmdCancel_Click();
    QDialog::reject();
}

// A window stands in front of it.
bool LogonDialog::IsBusy() const
{
    const QWidget* front = QApplication::activeModalWidget();
    return front != nullptr && front != this;
}

void LogonDialog::dragEnterEvent(QDragEnterEvent* event)
{
    if (!IsBusy() && !DroppedFile(event->mimeData()).empty())
        event->acceptProposedAction();
}

void LogonDialog::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // The other program waits for the end of its drag, and what follows may tell something.
    QMetaObject::invokeMethod(
        this,
        [this, path = DroppedFile(event->mimeData())] {
            if (!IsBusy())
                Do([&] { rules_.DropFile(path); });
        },
        Qt::QueuedConnection);
}

} // namespace veldrane
