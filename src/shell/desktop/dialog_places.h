#pragma once

#include "ports/error_report.h"
#include "ports/settings.h"

#include <QDialog>
#include <QHash>
#include <QRect>

namespace veldrane {

// As an event filter of the application: each dialog of the program comes back where the person has put it, as large as
// the person has made it. One that nobody has touched comes as ever, in front of its window. Dialogs as large as what
// they tell keep their place alone.
class DialogPlaces : public QObject
{
    Q_OBJECT

  public:
    // Both must outlive it.
    DialogPlaces(RegistryAccess& settings, ErrorReport& errors);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Restore(QDialog& dialog);
    void Keep(const QDialog& dialog);

    RegistryAccess& settings_;
    ErrorReport& errors_;
    QHash<const QObject*, QRect> untouched_; // where those that are shown were before the person could touch them
};

} // namespace veldrane
