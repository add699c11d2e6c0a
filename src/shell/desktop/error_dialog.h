#pragma once

#include <QDialog>

#include <memory>
#include <string>

namespace Ui {
class frmError;
}

namespace veldrane {

// `frmError`: what failed and what to do in the words of the failure, and the report below (`txtError`), which
// `cmdCopy` puts on the clipboard whole; `cmdReport` begins a bug report with it.
class ErrorDialog : public QDialog
{
    Q_OBJECT

  public:
    explicit ErrorDialog(QWidget* parent);
    ~ErrorDialog() override;

    // Adds a failure behind those that the dialog shows already. An empty report is left out.
    void Add(const std::string& summary, const std::string& report);

    // Of what the words are shown in: its width tells their height.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] QString WholeText() const;
    void Copy();
    void FitWords();

    std::unique_ptr<Ui::frmError> ui_;
};

} // namespace veldrane
