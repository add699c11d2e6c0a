#pragma once

#include <QPointer>
#include <QWidget>

#include <vector>

namespace veldrane {

// Makes room for something that a person has to answer: as long as it lives, windows that stay on top (the splash form,
// the loading form) are hidden and the pointer is an arrow, even over a run that shows the hourglass. The window that
// was in front is the active one again afterwards.
class RoomForDialog
{
  public:
    RoomForDialog();
    ~RoomForDialog();
    RoomForDialog(const RoomForDialog&) = delete;
    RoomForDialog& operator=(const RoomForDialog&) = delete;

    // Whether one lives.
    [[nodiscard]] static bool IsMade() { return made_ > 0; }

  private:
    static int made_; // how many live

    QPointer<QWidget> behind_; // the dialog
    std::vector<QPointer<QWidget>> hidden_;
    bool hasArrow_;
};

// The window that a dialog belongs to: the one in front, nullptr if the program has none.
[[nodiscard]] QWidget* WindowInFront();

// The height in pixels up to which a dialog shows words whole; what is taller is scrolled. A third of the dialog's
// screen, so that its buttons always lie on it.
[[nodiscard]] int MostHeightOfWords(const QWidget& dialog);

} // namespace veldrane
