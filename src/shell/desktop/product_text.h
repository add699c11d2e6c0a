#pragma once

#include <QLabel>
#include <QString>

namespace veldrane {

// The name of the program's own picture (icons.h).
inline constexpr const char* kProgramIcon = "Veldrane";

// Puts the program's title on the label, in large letters.
void ShowTitle(QLabel& label);

// "Version 0.1.0", with the version of this build.
[[nodiscard]] QString VersionLine();

} // namespace veldrane
