#include "shell/desktop/editors/qt_editor_dialogs.h"

#include "shell/desktop/editors/argument_dialog.h"
#include "shell/desktop/editors/built_in_members_dialog.h"
#include "shell/desktop/editors/built_in_properties_dialog.h"
#include "shell/desktop/editors/class_dialog.h"
#include "shell/desktop/editors/event_dialog.h"
#include "shell/desktop/editors/field_properties_dialog.h"
#include "shell/desktop/editors/method_dialog.h"
#include "shell/desktop/editors/pick_procedures_dialog.h"
#include "shell/desktop/editors/procedure_method_dialog.h"
#include "shell/desktop/editors/property_dialog.h"
#include "shell/desktop/room_for_dialog.h"

namespace veldrane {
namespace {

template <class Dialog, class Form>
bool Run(Form& form, const PreviewLook& look)
{
    const RoomForDialog room;
    Dialog dialog(form, look, WindowInFront());
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

bool QtEditorDialogs::Show(frmAddEditArgument& form)
{
    return Run<ArgumentDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmAddEditClass& form)
{
    return Run<ClassDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmAddEditEvent& form)
{
    return Run<EventDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmAddEditMethod& form)
{
    return Run<MethodDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmAddEditProperty& form)
{
    return Run<PropertyDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmAddEditSP& form)
{
    return Run<ProcedureMethodDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmBuiltInEvents& form)
{
    return Run<BuiltInMembersDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmBuiltInMethods& form)
{
    return Run<BuiltInMembersDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmBuiltInProperties& form)
{
    return Run<BuiltInPropertiesDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmFieldProperties& form)
{
    return Run<FieldPropertiesDialog>(form, look_());
}

bool QtEditorDialogs::Show(frmPickSP& form)
{
    return Run<PickProceduresDialog>(form, look_());
}

} // namespace veldrane
