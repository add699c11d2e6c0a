#include "editors/frm_add_edit_class.h"

#include "editors/key_commands.h"
#include "editors/method_dependencies.h"
#include "editors/remove_member.h"

#include <algorithm>
#include <utility>

// The lists of a class's members, and what the person does with selected ones.
namespace veldrane {

void frmAddEditClass::Select(ClassList list, const std::vector<std::size_t>& rows)
{
    ShownList& shown = ListOf(list);
    shown.Selected.clear();
    for (const std::size_t row : rows)
        if (row < shown.Rows.size())
            shown.Selected.push_back(row);
    Changed.Raise();
}

void frmAddEditClass::Show(ClassList list, std::vector<MemberRow> rows)
{
    ShownList& shown = ListOf(list);
    std::vector<std::string> selected;
    for (const std::size_t row : shown.Selected)
        selected.push_back(shown.Rows[row].Key);
    shown = {.Rows = std::move(rows), .Selected = {}};
    for (std::size_t row = 0; row < shown.Rows.size(); ++row)
        if (std::find(selected.begin(), selected.end(), shown.Rows[row].Key) != selected.end())
            shown.Selected.push_back(row);
    Changed.Raise();
}

template <class Items>
void frmAddEditClass::ShowMembers(ClassList list, const Items& items)
{
    std::vector<MemberRow> rows;
    rows.reserve(items.size());
    for (const auto& item : items)
        rows.push_back(RowOf(*item, *class_));
    Show(list, std::move(rows));
}

void frmAddEditClass::DisplayProperties()
{
    ShowMembers(ClassList::lstProperties, FieldPropertiesOf(*class_));
}

void frmAddEditClass::DisplayPlusProperties()
{
    ShowMembers(ClassList::lstPlusProperties, PlusPropertiesOf(*class_));
}

void frmAddEditClass::DisplayMethods()
{
    ShowMembers(ClassList::lstMethods, MethodsOf(*class_));
}

void frmAddEditClass::DisplayEvents()
{
    ShowMembers(ClassList::lstEvents, EventsOf(*class_));
}

void frmAddEditClass::DisplayAll()
{
    DisplayProperties();
    DisplayPlusProperties();
    DisplayMethods();
    DisplayEvents();
    DisplayJoins();
}

void frmAddEditClass::SelectKey(ClassList list, std::string_view key)
{
    const std::vector<MemberRow>& rows = Rows(list);
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const MemberRow& row) { return row.Key == key; });
    if (found != rows.end())
        Select(list, {static_cast<std::size_t>(found - rows.begin())});
}

void frmAddEditClass::NewMember(ClassList list, bool (MemberDialogs::*add)(KZMClass&))
{
    if (!(world_.Members.*add)(*class_))
        return;
    DisplayAll();
    if (list == ClassList::lstEvents)
        SelectKey(list, class_->TTCEvents.LastIndex());
    else
        SelectKey(list,
                  list == ClassList::lstMethods ? class_->TTCMethods.LastIndex() : class_->TTCProperties.LastIndex());
    Modify();
}

// One kind of members may bring another with it.
void frmAddEditClass::AddBuiltIn(bool (MemberDialogs::*add)(KZMClass&))
{
    if (!(world_.Members.*add)(*class_))
        return;
    DisplayAll();
    Modify();
}

// A member that got another name stays selected: no two of a list have the same.
void frmAddEditClass::ShowEdited(ClassList list, void (frmAddEditClass::*display)())
{
    const std::vector<MemberRow> before = Rows(list);
    (this->*display)();
    const std::vector<MemberRow>& rows = Rows(list);
    const auto renamed = std::find_if(rows.begin(), rows.end(), [&](const MemberRow& row) {
        return std::none_of(before.begin(), before.end(), [&](const MemberRow& old) { return old.Key == row.Key; });
    });
    if (renamed != rows.end())
        Select(list, {static_cast<std::size_t>(renamed - rows.begin())});
    Modify();
}

void frmAddEditClass::EditEvent()
{
    const EventItems events = Picked(ClassList::lstEvents, EventsOf(*class_));
    if (world_.Members.EditEvent(*class_, events.front()))
        ShowEdited(ClassList::lstEvents, &frmAddEditClass::DisplayEvents);
}

void frmAddEditClass::EditMethod()
{
    const std::shared_ptr<TTCMethod> method = Picked(ClassList::lstMethods, MethodsOf(*class_)).front();
    const bool isDone =
        method->MethodIsSP ? world_.Members.EditProcedure(*class_, method) : world_.Members.EditMethod(*class_, method);
    if (isDone)
        ShowEdited(ClassList::lstMethods, &frmAddEditClass::DisplayMethods);
}

void frmAddEditClass::FieldProperties()
{
    const PropertyItems properties = Picked(ClassList::lstProperties, FieldPropertiesOf(*class_));
    if (world_.Members.FieldProperties(*class_, properties.front()))
        ShowEdited(ClassList::lstProperties, &frmAddEditClass::DisplayProperties);
}

void frmAddEditClass::EditPlusProperty()
{
    const PropertyItems properties = Picked(ClassList::lstPlusProperties, PlusPropertiesOf(*class_));
    if (world_.Members.EditProperty(*class_, properties.front()))
        ShowEdited(ClassList::lstPlusProperties, &frmAddEditClass::DisplayPlusProperties);
}

void frmAddEditClass::AddSP()
{
    SPs picked;
    if (!world_.Members.PickProcedures(*class_, picked))
        return;
    for (std::size_t position = 1; position <= picked.Count(); ++position) {
        const std::shared_ptr<SP> procedure = picked.Item(position);
        if (procedure->SPMethodName.empty() || !world_.Members.AddProcedure(*class_, procedure))
            continue;
        DisplayMethods();
        SelectKey(ClassList::lstMethods, class_->TTCMethods.LastIndex());
        Modify();
    }
}

bool frmAddEditClass::Confirms(std::string title, std::string text) const
{
    return Asking().Ask({.Title = std::move(title),
                         .Text = std::move(text),
                         .Offered = Buttons::OkCancel,
                         .Icon = MessageIcon::Question,
                         .Default = Answer::Cancel}) == Answer::Ok;
}

void frmAddEditClass::DeleteEvent()
{
    for (const auto& event : Picked(ClassList::lstEvents, EventsOf(*class_))) {
        if (!Confirms("Confirm Delete Event",
                      "Are you sure you want to delete the '" + event->EventName + "' event from this class?"))
            return;
        RemoveItem(class_->TTCEvents, *event);
        RemoveMemberName(*class_, event->EventName);
        DisplayEvents();
        Modify();
    }
}

void frmAddEditClass::DeletePlusProperty()
{
    for (const auto& property : Picked(ClassList::lstPlusProperties, PlusPropertiesOf(*class_))) {
        if (!Confirms("Confirm Delete Property",
                      "Are you sure you want to delete the '" + property->PropertyName + "' property from this class?"))
            return;
        RemoveItem(class_->TTCProperties, *property);
        RemoveMemberName(*class_, property->PropertyName);
        DisplayPlusProperties();
        Modify();
    }
}

bool frmAddEditClass::MayDelete(const TTCMethod& method) const
{
    if (method.MethodName == "Clear" && class_->TTCMethods.Contains("Retrieve")) {
        Asking().Tell("Dependant Method",
                      "The Clear Method is needed by the Retrieve method. Please delete the Retrieve Method first.",
                      MessageIcon::Warning);
        return false;
    }
    const auto parent = world_.Names.Classes.Item(class_->ParentClassName);
    if (parent == nullptr || !IsNeededBelow(method.MethodName) || !parent->TTCMethods.Contains(method.MethodName))
        return true;
    Asking().Tell(
        "Cannot Delete Plus Property",
        "You cannot delete the " + method.MethodName +
            " method because it is a dependant of the parent class. Delete the method from the parent class first, then delete the method from this class.",
        MessageIcon::Warning);
    return false;
}

namespace {

void TellDependants(const KZMClass& item, const MethodItems& methods, Messages& messages)
{
    std::vector<std::string> names;
    for (const auto& method : methods)
        names.push_back(method->MethodName);
    const std::string dependants = DependantsText(item, names);
    if (!dependants.empty())
        messages.Tell("Dependancies about to be broken",
                      dependants +
                          "\r\nThis is only a warning, you will now be prompted to delete the selected method(s).",
                      MessageIcon::Warning);
}

void RemoveMethod(KZMClass& item, const TTCMethod& method)
{
    const std::string event(EventOfMethod(method.MethodName));
    if (item.TTCEvents.Contains(event)) {
        item.TTCEvents.Remove(event);
        RemoveMemberName(item, event);
    }
    RemoveMemberName(item, method.MethodName);
    RemoveItem(item.TTCMethods, method);
}

} // namespace

void frmAddEditClass::DeleteMethod()
{
    const MethodItems methods = Picked(ClassList::lstMethods, MethodsOf(*class_));
    TellDependants(*class_, methods, Asking());
    for (const auto& method : methods) {
        if (!MayDelete(*method))
            continue;
        if (!Confirms("Confirm Delete Method", DeletionText(*class_, method->MethodName)))
            return;
        RemoveMethod(*class_, *method);
        DisplayMethods();
        DisplayEvents();
        Modify();
    }
}

void frmAddEditClass::SetAsPrimaryKey()
{
    if (class_->TTCKeys.Count() > 0 &&
        !Confirms(
            "Confirm Replace Primary Key",
            "Are you sure you want to set the selected field(s) to be the Primary Key?\r\n(The existing Primary Key will be removed)"))
        return;
    SetPrimaryKey(*class_, Picked(ClassList::lstProperties, FieldPropertiesOf(*class_)));
    DisplayProperties();
    Modify();
}

void frmAddEditClass::ByPrimaryKey()
{
    FindBy(*class_, *Picked(ClassList::lstMethods, MethodsOf(*class_)).front(), RowKey::PrimaryKey);
    DisplayMethods();
    Modify();
}

void frmAddEditClass::ByIdentityColumn()
{
    FindBy(*class_, *Picked(ClassList::lstMethods, MethodsOf(*class_)).front(), RowKey::IdentityColumn);
    DisplayMethods();
    Modify();
}

} // namespace veldrane
