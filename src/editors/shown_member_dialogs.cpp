#include "editors/shown_member_dialogs.h"

#include "editors/frm_add_edit_event.h"
#include "editors/frm_add_edit_method.h"
#include "editors/frm_add_edit_property.h"
#include "editors/frm_built_in_events.h"
#include "editors/frm_built_in_methods.h"
#include "editors/frm_built_in_properties.h"
#include "editors/frm_field_properties.h"
#include "editors/frm_pick_sp.h"
#include "editors/member_preview.h"

#include <string>

namespace veldrane {

bool ShownMemberDialogs::Use(KZMClass& item, const std::function<bool(const MemberSurroundings&)>& use)
{
    const std::unique_ptr<Catalog> source = ports_.Source();
    ClassEdit edit{.Class = item,
                   .Source = source.get(),
                   .Messages = ports_.Names.Messages,
                   .Errors = ports_.Names.Errors,
                   .CodePage = ports_.Names.CodePage};
    return use(
        {.Edit = edit, .Generated = ports_.Generated, .Dialogs = ports_.Dialogs, .UserSettings = ports_.UserSettings});
}

template <class Form, class... Member>
bool ShownMemberDialogs::ShowForm(KZMClass& item, const Member&... member)
{
    return Use(item, [&](const MemberSurroundings& surroundings) {
        Form form(surroundings, member...);
        return ports_.Dialogs.Show(form);
    });
}

bool ShownMemberDialogs::AddMethod(KZMClass& item)
{
    return ShowForm<frmAddEditMethod>(item);
}

bool ShownMemberDialogs::EditMethod(KZMClass& item, const std::shared_ptr<TTCMethod>& method)
{
    return ShowForm<frmAddEditMethod>(item, method);
}

bool ShownMemberDialogs::AddBuiltInMethods(KZMClass& item)
{
    return ShowForm<frmBuiltInMethods>(item);
}

bool ShownMemberDialogs::PickProcedures(KZMClass& item, SPs& picked)
{
    return Use(item, [&](const MemberSurroundings& surroundings) {
        return frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, picked);
    });
}

ProcedureEdit ShownMemberDialogs::EditOf(const std::shared_ptr<SP>& procedure, KZMClass& item) const
{
    return {.Procedure = procedure,
            .Class = item,
            .Messages = ports_.Names.Messages,
            .Errors = ports_.Names.Errors,
            .CodePage = ports_.Names.CodePage,
            .Preview = [this, &item](const SP& edited) { return ProcedurePreview(ports_.Generated, item, edited); }};
}

bool ShownMemberDialogs::AddProcedure(KZMClass& item, const std::shared_ptr<SP>& procedure)
{
    frmAddEditSP form(EditOf(procedure, item));
    return ports_.Dialogs.Show(form);
}

bool ShownMemberDialogs::EditProcedure(KZMClass& item, const std::shared_ptr<TTCMethod>& method)
{
    ProcedureEdit edit = EditOf(method->StoredProcedure, item);
    edit.Mode = ProcedureMode::Edit;
    edit.Key = method->MethodName;
    frmAddEditSP form(std::move(edit));
    return ports_.Dialogs.Show(form);
}

bool ShownMemberDialogs::AddEvent(KZMClass& item)
{
    return ShowForm<frmAddEditEvent>(item);
}

bool ShownMemberDialogs::EditEvent(KZMClass& item, const std::shared_ptr<ttcEvent>& event)
{
    return ShowForm<frmAddEditEvent>(item, event);
}

bool ShownMemberDialogs::AddBuiltInEvents(KZMClass& item)
{
    return ShowForm<frmBuiltInEvents>(item);
}

bool ShownMemberDialogs::FieldProperties(KZMClass& item, const std::shared_ptr<TTCProperty>& property)
{
    const std::string before = property->DataType;
    if (!ShowForm<frmFieldProperties>(item, property))
        return false;
    if (property->DataType != before)
        ports_.DataTypeChanged();
    return true;
}

bool ShownMemberDialogs::AddProperty(KZMClass& item)
{
    return ShowForm<frmAddEditProperty>(item);
}

bool ShownMemberDialogs::EditProperty(KZMClass& item, const std::shared_ptr<TTCProperty>& property)
{
    return ShowForm<frmAddEditProperty>(item, property);
}

bool ShownMemberDialogs::AddBuiltInProperties(KZMClass& item)
{
    return ShowForm<frmBuiltInProperties>(item);
}

} // namespace veldrane
