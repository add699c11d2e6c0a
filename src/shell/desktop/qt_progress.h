#pragma once

#include "shell/progress.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>

#include <functional>

namespace veldrane {

// How far a run is, on a label and a bar of any window. Both are drawn at once; unless `drawn` serves them, events
// wait. Steps that follow within a thirtieth of a second are passed over.
class QtProgress : public Progress
{
  public:
    using Drawn = std::function<void()>;

    // `drawn` is called whenever something was drawn.
    QtProgress(QLabel& status, QProgressBar& bar, Drawn drawn = {});

    void Stage(int percent, const std::string& line) override;
    void Step(int percent, const std::string& line) override;

  private:
    void Draw(int percent, const std::string& line);

    QPointer<QLabel> status_;
    QPointer<QProgressBar> bar_;
    Drawn drawn_;
    QElapsedTimer sinceDrawn_;
};

} // namespace veldrane
