#pragma once

#include <QWidget>

namespace veldrane {

// The pointer over something that can be clicked while a run shows the hourglass, which else stands over all windows:
// an arrow as long as it can be clicked. It belongs to the widget.
class ArrowOver : public QObject
{
  public:
    explicit ArrowOver(QWidget& widget);

    // The hourglass may have come under a pointer that rests.
    void Refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget& widget_;
};

} // namespace veldrane
