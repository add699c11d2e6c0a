#pragma once

#include "datasource/class_edit.h"
#include "editors/editor_dialogs.h"
#include "ports/settings.h"
#include "preview/preview.h"

namespace veldrane {

// What the dialogs of a member work with. All must outlive them.
struct MemberSurroundings
{
    ClassEdit& Edit; // the class that the member is of, as its editor holds it
    const PreviewSource& Generated;
    EditorDialogs& Dialogs;
    Settings& UserSettings; // the limit of the list of tables
};

} // namespace veldrane
