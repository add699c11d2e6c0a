#include "editors/frm_add_edit_class.h"

#include "editors/key_commands.h"

#include <algorithm>

// The tools of the class editor's actBar, and which controls may be used.
namespace veldrane {

struct frmAddEditClass::Command
{
    std::string_view Tool;
    std::function<bool(const frmAddEditClass&)> IsOn;
    std::function<void(frmAddEditClass&)> Run;
};

const std::vector<frmAddEditClass::Command>& frmAddEditClass::Commands()
{
    using Form = frmAddEditClass;
    const auto always = [](const Form& /*form*/) { return true; };
    const auto onSelected = [](ClassList list) { return [list](const Form& form) { return form.HasSelected(list); }; };
    const auto onOne = [](ClassList list) {
        return [list](const Form& form) { return form.Selected(list).size() == 1; };
    };
    const auto canFindBy = [](RowKey key) {
        return [key](const Form& form) {
            const MethodItems methods = form.Picked(ClassList::lstMethods, MethodsOf(*form.class_));
            return methods.size() == 1 && CanFindBy(*form.class_, *methods.front(), key);
        };
    };
    const auto withTable = [](const Form& form) { return !form.class_->TableName.empty(); };
    static const std::vector<Command> commands{
        {"ByPrimaryKey", canFindBy(RowKey::PrimaryKey), &Form::ByPrimaryKey},
        {"ByIdentityColumn", canFindBy(RowKey::IdentityColumn), &Form::ByIdentityColumn},
        {"AddSP", always, &Form::AddSP},
        {"NewEvent", always, [](Form& form) { form.NewMember(ClassList::lstEvents, &MemberDialogs::AddEvent); }},
        {"EditEvent", onOne(ClassList::lstEvents), &Form::EditEvent},
        {"AddBuiltInEvent", always, [](Form& form) { form.AddBuiltIn(&MemberDialogs::AddBuiltInEvents); }},
        {"DeleteEvent", onSelected(ClassList::lstEvents), &Form::DeleteEvent},
        {"NewMethod", always, [](Form& form) { form.NewMember(ClassList::lstMethods, &MemberDialogs::AddMethod); }},
        {"EditMethod", onOne(ClassList::lstMethods), &Form::EditMethod},
        {"AddBuiltInMethod", always, [](Form& form) { form.AddBuiltIn(&MemberDialogs::AddBuiltInMethods); }},
        {"DeleteMethod", onSelected(ClassList::lstMethods), &Form::DeleteMethod},
        {"SetAsPrimaryKey", onSelected(ClassList::lstProperties), &Form::SetAsPrimaryKey},
        {"FieldProperties", onOne(ClassList::lstProperties), &Form::FieldProperties},
        {"NewPlusProperty", always,
         [](Form& form) { form.NewMember(ClassList::lstPlusProperties, &MemberDialogs::AddProperty); }},
        {"EditPlusProperty", onOne(ClassList::lstPlusProperties), &Form::EditPlusProperty},
        {"AddPlusProperty", always, [](Form& form) { form.AddBuiltIn(&MemberDialogs::AddBuiltInProperties); }},
        {"DeletePlusProperty", onSelected(ClassList::lstPlusProperties), &Form::DeletePlusProperty},
        {"RefreshField", onSelected(ClassList::lstProperties), &Form::RefreshField},
        {"GetNewFields", withTable, &Form::GetNewFields},
        {"GetNewRelationships", [](const Form& form) { return form.HasJoinPage(); }, &Form::GetNewRelationships},
        {"DeleteRelationship", onSelected(ClassList::lstJoins), &Form::DeleteRelationship},
    };
    return commands;
}

bool frmAddEditClass::IsEnabled(std::string_view name) const
{
    for (const Command& command : Commands())
        if (command.Tool == name)
            return command.IsOn(*this);
    if (name == "txtTableName")
        return tableIsTyped_;
    if (name == "txtParentClassName")
        return false;
    if (name == "txtCollectionName" || name == "chkNewKey")
        return form_.GenerateCollection;
    if (name == "chkIncludeAddExisting")
        return form_.GenerateCollection && !IsRootClass(*class_);
    if (name == "cmdAddRelationship")
        return Selected(ClassList::lstParentFields).size() == 1 && Selected(ClassList::lstFields).size() == 1;
    return true;
}

void frmAddEditClass::actBar_Click(std::string_view tool)
{
    const auto& commands = Commands();
    const auto command =
        std::find_if(commands.begin(), commands.end(), [&](const Command& row) { return row.Tool == tool; });
    if (command == commands.end() || !command->IsOn(*this))
        return;
    try {
        Guarded(world_.Names.Errors, kClassEditorModule, tool, [&] { command->Run(*this); });
    } catch (const ReadingCancelled&) { // nothing has changed
    }
}

} // namespace veldrane
