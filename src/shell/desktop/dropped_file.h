#pragma once

#include <QMimeData>

#include <string>

namespace veldrane {

// The path of the one file of this machine that is dragged; "" where something else is, a folder, or several.
[[nodiscard]] std::string DroppedFile(const QMimeData* data);

} // namespace veldrane
