#pragma once

#include "shell/progress.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>

namespace veldrane {

// How far a run is, on a label and a bar of any window. Both are drawn at once, and no event is served: what the person
// does meanwhile waits. Steps that follow within a thirtieth of a second are passed over.
class QtProgress : public Progress
{
  public:
    QtProgress(QLabel& status, QProgressBar& bar);

    void Stage(int percent, const std::string& line) override;
    void Step(int percent, const std::string& line) override;

  private:
    void Draw(int percent, const std::string& line);

    QPointer<QLabel> status_;
    QPointer<QProgressBar> bar_;
    QElapsedTimer sinceDrawn_;
};

} // namespace veldrane
