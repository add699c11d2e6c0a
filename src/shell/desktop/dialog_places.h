#pragma once

#include "ports/error_report.h"
#include "ports/settings.h"

#include <QDialog>
#include <QEvent>
#include <QHash>

namespace veldrane {

// As an event filter of the application: each dialog of the program comes back where the person has put it, as large as
// the person has made it. One that nobody has touched comes as ever, in front of its window, even if it has grown by
// what it tells. Dialogs as large as what they tell keep their place alone.
class DialogPlaces : public QObject
{
    Q_OBJECT

  public:
    // Both must outlive it.
    DialogPlaces(RegistryAccess& settings, ErrorReport& errors);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void FollowDesktop(const QDialog& dialog, QEvent::Type type);
    void FollowProgram(QDialog& dialog, QEvent::Type type);
    void Restore(QDialog& dialog) const;
    void Keep(const QDialog& dialog) const;

    RegistryAccess& settings_;
    ErrorReport& errors_;
    QHash<const QObject*, bool> isTouched_; // of those that are shown and were active
};

} // namespace veldrane
