#include "editors/frm_add_edit_event.h"

#include "datasource/naming.h"
#include "editors/discard_changes.h"
#include "editors/member_preview.h"
#include "editors/put_member.h"
#include "model/working_copy.h"

#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kFormName = "frmAddEditEvent";
constexpr std::string_view kNameControl = "txtEventName";

// Those of RecordDeleted follow the arguments of Delete, which a person may have changed.
bool HasFixedArguments(const ttcEvent& event)
{
    return event.PlusEvent && event.EventName != "RecordDeleted";
}

std::string WhyFixedOf(const ttcEvent& event)
{
    if (!event.PlusEvent)
        return "";
    return "The generated code raises the " + event.EventName + " event by this name" +
           (HasFixedArguments(event) ? ", with these arguments." : ".");
}

ArgumentOwner OwnerOf(const ttcEvent& event)
{
    return {.FormName = kFormName,
            .WhyFixed = HasFixedArguments(event) ? WhyFixedOf(event) : "",
            .WhyRequired = "Visual Basic lets no argument of an event be left out."};
}

} // namespace

frmAddEditEvent::frmAddEditEvent(const MemberSurroundings& surroundings, const std::shared_ptr<ttcEvent>& present)
    : surroundings_(surroundings), position_(PositionOf(surroundings.Edit.Class.TTCEvents, present.get())),
      present_(present ? WorkingCopy(*present) : std::make_shared<ttcEvent>()), nameTouch_(position_ == 0),
      arguments_(surroundings, OwnerOf(*present_), ArgumentsOf(present_->TTCEventParameters),
                 [this](const Arguments& list) { return PreviewWith(list); })
{
    txtEventName = present_->EventName;
}

std::string frmAddEditEvent::Caption() const
{
    // "Method", for an event too.
    return position_ == 0 ? "Add New Event" : "Edit " + present_->EventName + " Method";
}

std::string frmAddEditEvent::WhyFixed() const
{
    return WhyFixedOf(*present_);
}

void frmAddEditEvent::txtEventName_Change(std::string typed)
{
    txtEventName = std::move(typed);
    nameTouch_.Touch();
}

TypedName frmAddEditEvent::NameRules() const
{
    return EventNameRules(surroundings_.Edit.Class, present_->EventName, surroundings_.Edit.CodePage);
}

std::string frmAddEditEvent::Trouble(std::string_view control) const
{
    if (control != kNameControl || !txtEventName_Enabled() || nameTouch_.IsSilentOf(txtEventName))
        return {};
    return NameTrouble(txtEventName, NameRules());
}

std::shared_ptr<ttcEvent> frmAddEditEvent::Edited(const Arguments& arguments) const
{
    std::shared_ptr<ttcEvent> event = WorkingCopy(*present_);
    if (txtEventName_Enabled())
        event->EventName = MakeValidName(txtEventName);
    if (arguments != ArgumentsOf(event->TTCEventParameters)) // what was not touched stays as it is
        StoreArguments(arguments, event->TTCEventParameters);
    return event;
}

std::shared_ptr<ttcEvent> frmAddEditEvent::PutInto(KZMClass& item, const Arguments& arguments) const
{
    return PutMember(item, item.TTCEvents, position_, Edited(arguments), &ttcEvent::EventName);
}

TTCOutputs frmAddEditEvent::PreviewWith(const Arguments& arguments) const
{
    const std::shared_ptr<KZMClass> copy = WorkingCopy(surroundings_.Edit.Class);
    const std::shared_ptr<ttcEvent> event = PutInto(*copy, arguments);
    return EventPreview(surroundings_.Generated, *copy, *event);
}

bool frmAddEditEvent::IsModified() const
{
    return txtEventName != present_->EventName || arguments_.IsModified();
}

bool frmAddEditEvent::cmdOK_Click()
{
    ClassEdit& edit = surroundings_.Edit;
    bool accepted = false;
    nameTouch_.Touch();
    Guarded(edit.Errors, kFormName, "cmdOK_Click", [&] {
        accepted = !txtEventName_Enabled() || AcceptName(txtEventName, NameRules(), edit.Messages);
        if (accepted)
            PutInto(edit.Class, arguments_.Items());
        else
            FocusWanted.Raise(kNameControl);
    });
    return accepted;
}

bool frmAddEditEvent::cmdCancel_Click()
{
    return !IsModified() ||
           ConfirmDiscard(surroundings_.Edit.Messages,
                          "This event has been modified, do you want to discard all changes to this event?");
}

} // namespace veldrane
