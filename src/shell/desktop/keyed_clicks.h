#pragma once

#include <QObject>

namespace veldrane {

// As an event filter of the application: a button's access key or shortcut clicks it at once. Qt alone shows it pressed
// for a moment first, and a key that was typed meanwhile, such as Return behind the key of an option, would come
// before.
class KeyedClicks : public QObject
{
    Q_OBJECT

  public:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace veldrane
