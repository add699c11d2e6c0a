#include "editors/class_editor.h"

#include "editors/frm_add_edit_class.h"

namespace veldrane {

bool ShownClassEditor::Add(const NewClass& request)
{
    frmAddEditClass form(world_, request);
    return Show(form);
}

bool ShownClassEditor::Edit(const std::shared_ptr<KZMClass>& item)
{
    frmAddEditClass form(world_, item);
    return Show(form);
}

bool ShownClassEditor::Move(const std::shared_ptr<KZMClass>& item, const std::string& newParent)
{
    const auto parent = world_.Names.Classes.Item(newParent);
    if (parent == nullptr)
        return false;
    frmAddEditClass form(
        world_, item,
        {.TableName = item->TableName, .ParentClassName = parent->ClassName, .Place = Placement::UnderParent});
    return Show(form);
}

bool ShownClassEditor::Show(frmAddEditClass& form)
{
    return form.Load() && dialogs_.Show(form);
}

} // namespace veldrane
