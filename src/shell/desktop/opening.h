#pragma once

#include <QAbstractItemView>

#include <functional>

namespace veldrane {

// Has a double click on an entry of the view open it, and Return or Enter on the current one: a single click never
// does, whatever the desktop takes for activating.
void OnOpening(QAbstractItemView& view, std::function<void(const QModelIndex&)> open);

} // namespace veldrane
