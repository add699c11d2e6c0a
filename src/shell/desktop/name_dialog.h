#pragma once

#include "datasource/attach_by_hand.h"

#include <QWidget>

namespace veldrane {

// Dialogs over the window `parent` that ask for one name (`txtName`): `frmAddTable` for a table's, `frmAddSP` for a
// stored procedure's. Asked again, they show the name of the last time, ready to be mended or typed over. What is
// returned may be copied, and must not be called after the window is gone.
[[nodiscard]] AskForName AskForTableName(QWidget* parent);
[[nodiscard]] AskForName AskForStoredProcedureName(QWidget* parent);

} // namespace veldrane
