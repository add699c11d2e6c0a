#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <functional>

namespace veldrane {

// Lets the program do something before SIGTERM, SIGHUP or SIGINT ends it: those come when the machine goes down or the
// session ends, and nobody is asked whether to save. A signal that the program was started to ignore stays ignored, and
// so is left alone. There is at most one such object.
class EndingSignals : public QObject
{
    Q_OBJECT

  public:
    // `lastAct` is called between events; as long as it gives false it is called anew, several times a second. Then the
    // signal has the effect that it had before this object was made, and so has a second one at once: a program that is
    // stuck can be ended still.
    explicit EndingSignals(std::function<bool()> lastAct);
    ~EndingSignals() override;

  private:
    void Act();

    std::function<bool()> lastAct_;
    int signal_ = 0;
    QSocketNotifier caught_;
    QTimer again_;
};

} // namespace veldrane
