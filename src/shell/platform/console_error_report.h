#pragma once

#include "ports/error_report.h"
#include "shell/platform/error_text.h"

#include <functional>
#include <ostream>
#include <vector>

namespace veldrane {

// Failures on a command line. First one line that says what failed and what to do, then the whole report, indented:
//
//   veldrane: /home/ann/Shop.kzm: No such file or directory. Name a file that exists.
//       Last Error Number: 53.
//       Error Description: /home/ann/Shop.kzm: No such file or directory
//       ...
//
// Mode 4 prints the hint alone, behind "veldrane: ".
class ConsoleErrorReport : public ErrorReport
{
  public:
    // The errors that stand in the shared connection when a failure is reported. Must not throw.
    using ADOErrors = std::function<std::vector<ADOError>(const RuntimeError&)>;

    explicit ConsoleErrorReport(std::ostream& out, ADOErrors adoErrors = {});

    void ReportError(const RuntimeError& error, const ErrorPlace& place) override;

    // How many failures were reported: what the exit code is made of.
    [[nodiscard]] int Count() const { return count_; }

  private:
    std::ostream& out_;
    ADOErrors adoErrors_;
    int count_ = 0;
};

} // namespace veldrane
