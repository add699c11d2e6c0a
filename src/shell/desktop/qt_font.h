#pragma once

#include "shell/main_window/preview_look.h"

#include <QFont>

namespace veldrane {

// The font of the preview as Qt draws it, and back.
[[nodiscard]] QFont FontToQt(const PreviewFont& font);
[[nodiscard]] PreviewFont FontFromQt(const QFont& font);

// The name of the system's font whose letters are equally wide.
[[nodiscard]] std::string MonospacedFontName();

} // namespace veldrane
