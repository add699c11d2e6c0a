#include "shell/desktop/editors/qt_project_dialogs.h"

#include "shell/desktop/editors/edit_prefix_dialog.h"
#include "shell/desktop/editors/logging_table_dialog.h"
#include "shell/desktop/room_for_dialog.h"

namespace veldrane {
namespace {

template <class Dialog, class Form>
bool Run(Form& form)
{
    const RoomForDialog room;
    Dialog dialog(form, WindowInFront());
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

bool QtProjectDialogs::Show(frmEditPrefix& form)
{
    return Run<EditPrefixDialog>(form);
}

bool QtProjectDialogs::Show(frmLoggingTable& form)
{
    return Run<LoggingTableDialog>(form);
}

} // namespace veldrane
