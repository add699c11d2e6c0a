#pragma once

#include "ports/error_report.h"
#include "shell/desktop/error_dialog.h"
#include "shell/platform/error_text.h"

#include <QPointer>

#include <functional>
#include <vector>

namespace veldrane {

// Failures, shown in `frmError` until the person closes it: the description and the hint, then the report. Mode 4 shows
// the hint alone. A failure that is reported while the dialog is there is added to it, so that no second one is opened.
// One that can't be shown goes to standard error.
class QtErrorReport : public ErrorReport
{
  public:
    // The errors that stand in the shared connection when a failure is reported. Must not throw.
    using ADOErrors = std::function<std::vector<ADOError>(const RuntimeError&)>;

    explicit QtErrorReport(ADOErrors adoErrors = {});

    void ReportError(const RuntimeError& error, const ErrorPlace& place) override;

  private:
    void Show(const RuntimeError& error, const ErrorPlace& place);
    [[nodiscard]] std::vector<ADOError> ADOErrorsOf(const RuntimeError& error) const;

    ADOErrors adoErrors_;
    QPointer<ErrorDialog> shown_;
};

} // namespace veldrane
