#pragma once

#include <QWidget>

#include <string>
#include <vector>

namespace veldrane::testing {

// The access keys that more than one of the controls has that the window shows now, or more than one of the entries of
// a menu of its, each with the texts of those: the key then does nothing but go from one to the other.
[[nodiscard]] std::vector<std::string> CollidingAccessKeys(const QWidget& window);

} // namespace veldrane::testing
