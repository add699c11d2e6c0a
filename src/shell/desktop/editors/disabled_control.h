#pragma once

#include <QWidget>

#include <string_view>

namespace veldrane {

// Disables a control for as long as its dialog is there; its tip says why. Where there is no reason, it stays as it is.
void DisableFor(QWidget& control, std::string_view why);

} // namespace veldrane
