#pragma once

#include <QWidget>

#include <string>

namespace veldrane {

// `frmNewFolder`: asks over `parent` for the name of a folder that is to be made. A name that would lead elsewhere is
// told in place, and can't be confirmed. "" on Cancel.
[[nodiscard]] std::string AskForFolderName(QWidget* parent);

} // namespace veldrane
