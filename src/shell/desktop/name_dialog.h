#pragma once

#include <QWidget>

#include <optional>
#include <string>

namespace veldrane {

// Dialogs over the window `parent` that ask for one name (`txtName`): `frmAddTable` for a table's, `frmAddSP` for a
// stored procedure's. They show the name of before, ready to be mended or typed over; nothing on Cancel.
[[nodiscard]] std::optional<std::string> AskForTableName(QWidget* parent, const std::string& before);
[[nodiscard]] std::optional<std::string> AskForStoredProcedureName(QWidget* parent, const std::string& before);

} // namespace veldrane
