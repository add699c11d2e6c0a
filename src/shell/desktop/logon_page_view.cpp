#include "shell/desktop/logon_page_view.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/qt_text.h"
#include "ui_logon_page.h"

namespace veldrane {
namespace {

// The rows stay as the dialog was loaded with them.
void ShowRows(QComboBox& box, const ComboBox& list)
{
    if (box.count() == 0) {
        for (const ComboRow& row : list.Rows)
            box.addItem(Icon(row.Icon), NameToQt(row.Text));
    }
    box.setCurrentIndex(list.Selected ? static_cast<int>(*list.Selected) : -1);
}

// Setting the text that is there already would move the cursor.
void ShowText(QLineEdit& edit, const std::string& text)
{
    if (FromQt(edit.text()) != text)
        edit.setText(NameToQt(text));
}

} // namespace

LogonPageView::LogonPageView(std::size_t page, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::LogonPage>())
{
    ui_->setupUi(this);
    HideUnused(page);
    for (QLineEdit* edit : findChildren<QLineEdit*>()) {
        edit->setAcceptDrops(false); // a file that is dropped is the dialog's
        connect(edit, &QLineEdit::textEdited, this, &LogonPageView::Typed);
    }
    connect(ui_->chkConnectSameDirectory, &QCheckBox::clicked, this, &LogonPageView::Typed);
    connect(ui_->cmbDSN, &QComboBox::activated, this, &LogonPageView::DataSourceClicked);
    connect(ui_->cmbDrivers, &QComboBox::activated, this, &LogonPageView::DriverClicked);
    connect(ui_->optUseDSN, &QRadioButton::clicked, this, &LogonPageView::UseDSNClicked);
    connect(ui_->optDSNLess, &QRadioButton::clicked, this, &LogonPageView::DSNLessClicked);
    connect(ui_->cmdBrowse, &QPushButton::clicked, this, &LogonPageView::BrowseClicked);
}

LogonPageView::~LogonPageView() = default;

void LogonPageView::HideUnused(std::size_t page)
{
    if (page == logon_page::kJet) {
        for (QWidget* unused : std::initializer_list<QWidget*>{ui_->optUseDSN, ui_->cmbDSN, ui_->optDSNLess,
                                                               ui_->cmbDrivers, ui_->lblServer, ui_->txtServer})
            unused->hide();
        return;
    }
    ui_->chkConnectSameDirectory->hide();
    ui_->lblDBPassword->setVisible(page == logon_page::kOdbc);
    ui_->txtDBPassword->setVisible(page == logon_page::kOdbc);
}

void LogonPageView::Show(const LogonPage& page, bool connectSameDirectory)
{
    ui_->fraConnect->setEnabled(page.fraConnectEnabled);
    ShowRows(*ui_->cmbDSN, page.cmbDSN);
    ShowRows(*ui_->cmbDrivers, page.cmbDrivers);
    ui_->optUseDSN->setChecked(page.optUseDSN);
    ui_->optDSNLess->setChecked(!page.optUseDSN);
    ui_->cmbDSN->setEnabled(page.optUseDSN);
    ui_->cmbDrivers->setEnabled(!page.optUseDSN);
    ShowText(*ui_->txtServer, page.txtServer);
    ShowText(*ui_->txtDatabase, page.txtDatabase);
    ShowText(*ui_->txtUID, page.txtUID);
    ShowText(*ui_->txtPWD, page.txtPWD);
    ShowText(*ui_->txtDBPassword, page.txtDBPassword);
    ui_->cmdBrowse->setEnabled(page.cmdBrowseEnabled);
    ui_->lblServer->setEnabled(page.txtServerEnabled);
    ui_->txtServer->setEnabled(page.txtServerEnabled);
    ui_->chkConnectSameDirectory->setChecked(connectSameDirectory);
}

void LogonPageView::Take(LogonPage& page, bool& connectSameDirectory) const
{
    page.txtServer = FromQt(ui_->txtServer->text());
    page.txtDatabase = FromQt(ui_->txtDatabase->text());
    page.txtUID = FromQt(ui_->txtUID->text());
    page.txtPWD = FromQt(ui_->txtPWD->text());
    page.txtDBPassword = FromQt(ui_->txtDBPassword->text());
    connectSameDirectory = ui_->chkConnectSameDirectory->isChecked();
}

} // namespace veldrane
