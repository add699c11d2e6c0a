#include "shell/desktop/editors/qt_editor_dialogs.h"

#include "editors/frm_add_edit_class.h"

namespace veldrane {

bool QtEditorDialogs::Show(frmAddEditArgument& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmAddEditClass& form)
{
    return form.cmdOK_Click();
}

bool QtEditorDialogs::Show(frmAddEditEvent& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmAddEditMethod& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmAddEditProperty& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmAddEditSP& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmBuiltInEvents& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmBuiltInMethods& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmBuiltInProperties& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmFieldProperties& /*form*/)
{
    return false;
}

bool QtEditorDialogs::Show(frmPickSP& /*form*/)
{
    return false;
}

} // namespace veldrane
