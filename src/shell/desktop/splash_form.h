#pragma once

#include <QWidget>

#include <chrono>

namespace veldrane {

// `frmSplash`: the program's picture, title and version, on top of all windows while the program starts. It deletes
// itself when it is closed: make it with new, and hold it by a QPointer.
class SplashForm : public QWidget
{
    Q_OBJECT

  public:
    SplashForm();

    // Shows it in the middle of the screen; a click or the end of the time, of which only served events count, takes it
    // down.
    void ShowFor(std::chrono::milliseconds duration);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace veldrane
