#pragma once

#include "datasource/logon/logon_page.h"

#include <QWidget>

#include <cstddef>
#include <memory>

namespace Ui {
class LogonPage;
}

namespace veldrane {

// One page of `frmODBCLogon`, with the controls that its provider has a use for.
class LogonPageView : public QWidget
{
    Q_OBJECT

  public:
    // `page` is one of logon_page.
    LogonPageView(std::size_t page, QWidget* parent);
    ~LogonPageView() override;

    void Show(const LogonPage& page, bool connectSameDirectory);

    // What the person has typed and ticked.
    void Take(LogonPage& page, bool& connectSameDirectory) const;

  Q_SIGNALS:
    void Typed();
    void DataSourceClicked(int row);
    void DriverClicked(int row);
    void UseDSNClicked();
    void DSNLessClicked();
    void BrowseClicked();

  private:
    void HideUnused(std::size_t page);

    std::unique_ptr<Ui::LogonPage> ui_;
};

} // namespace veldrane
