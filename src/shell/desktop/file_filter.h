#pragma once

#include <QStringList>

#include <string_view>

namespace veldrane {

// Names and patterns in turn, as the rules write them, as Qt's file dialog wants them: of
// "Veldrane Project|*.kzm|All Files|*.*" the rows "Veldrane Project (*.kzm)" and "All Files (*)". Several patterns of
// one name stand between semicolons. A name without a pattern offers every file.
[[nodiscard]] QStringList NameFilters(std::string_view filter);

} // namespace veldrane
