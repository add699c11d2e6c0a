#pragma once

#include "datasource/logon/frm_odbc_logon.h"

#include <QDialog>

#include <array>
#include <memory>

namespace Ui {
class frmODBCLogon;
}

namespace veldrane {

class LogonPageView;

// `frmODBCLogon`: shows what its rules hold and calls them. The pages "page0" to "page2" of `tabMain` have controls of
// the same names. A database file can be dropped anywhere on it, unless something
// stands in front of it.
class LogonDialog : public QDialog
{
    Q_OBJECT

  public:
    // The rules are loaded, and outlive the dialog.
    LogonDialog(frmODBCLogon& rules, QWidget* parent);
    ~LogonDialog() override;

    // Escape and closing are `cmdCancel`.
    void reject() override;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void AddPages();
    void Connect(LogonPageView& view);

    // Calls the rules, then shows what they hold.
    template <class Operation>
    void Do(Operation&& operation);

    void Refresh();
    void MoveToFocus();
    [[nodiscard]] bool IsBusy() const;

    frmODBCLogon& rules_;
    std::unique_ptr<Ui::frmODBCLogon> ui_;
    std::array<LogonPageView*, logon_page::kCount> pages_{};
};

} // namespace veldrane
