#pragma once

#include "ports/loading_form.h"
#include "shell/desktop/qt_progress.h"

#include <QWidget>

#include <memory>
#include <string>

namespace Ui {
class frmLoading;
}

namespace veldrane {

// Whether the person may break off what the form is shown for.
enum class Cancelling
{
    NotOffered,
    Offered,
};

// `frmLoading`: how far the opening of a project or the reading of a catalog is, on top of all windows. While it is
// shown no other window takes clicks or keys: either the program is busy, or the form is modal. Where cancelling is
// offered, each report of progress serves events, so that `cmdCancel` and Escape get through.
class LoadingWindow : public QWidget, public LoadingForm
{
    Q_OBJECT

  public:
    LoadingWindow(Cancelling cancelling, QWidget* parent);
    ~LoadingWindow() override;

    void SetStatus(const std::string& text) override;

    // Drawn at once: what follows may keep the program busy.
    Visibility Show(Visibility visibility) override;

    // Begins another piece of work, which nobody has cancelled yet.
    void Begin(Cancelling cancelling);

    // A bar that moves without an end, for work of an unknown length; until the next Begin.
    void ShowBusy();

    // Lets the person cancel, where that is offered.
    void ServeEvents();

    // Whoever works is handed this. A closed form takes no harm of it.
    [[nodiscard]] Progress& Watching() { return *progress_; }

    // Whether the person wants it broken off.
    [[nodiscard]] bool IsCancelled() const { return isCancelled_; }

  Q_SIGNALS:
    void Cancelled();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void WaitForKeyboard();
    void Cancel();

    std::unique_ptr<Ui::frmLoading> ui_;
    std::unique_ptr<QtProgress> progress_;
    Cancelling cancelling_ = Cancelling::NotOffered;
    bool isCancelled_ = false;
};

} // namespace veldrane
