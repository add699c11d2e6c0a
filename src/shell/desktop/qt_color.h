#pragma once

#include "generator/line_class.h"

#include <QColor>
#include <QPalette>

namespace veldrane {

// The colour on the screen; one of the system's is taken from the palette, and a number that the system has none for is
// its text.
[[nodiscard]] QColor ColorToQt(Color color, const QPalette& palette);

// Whether what is read stands on a dark background.
[[nodiscard]] bool IsDark(const QPalette& palette);

// What warns: a red that can be read on the palette's background, dark or light.
[[nodiscard]] QColor TroubleColor(const QPalette& palette);

// The value that stands for the colour.
[[nodiscard]] Color ColorFromQt(const QColor& color);

} // namespace veldrane
