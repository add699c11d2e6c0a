#include "editors/frm_field_properties.h"

#include "datasource/naming.h"
#include "editors/default_member.h"
#include "editors/member_preview.h"
#include "editors/put_member.h"
#include "editors/sample_format.h"
#include "model/working_copy.h"

#include <optional>

namespace veldrane {
namespace {

constexpr std::string_view kForm = "frmFieldProperties";

} // namespace

frmFieldProperties::frmFieldProperties(const MemberSurroundings& surroundings, std::shared_ptr<TTCProperty> property)
    : txtPropertyName(property->PropertyName), chkAddFieldToClass(property->AddToClass),
      chkPropertyGet(property->PropertyGet), Data(*property), Formatting(*property), Lookup(surroundings, property),
      surroundings_(surroundings), property_(std::move(property)), default_{.Ticked = property_->DefaultProperty}
{}

void frmFieldProperties::chkDefaultProperty_Click(bool on)
{
    const WantedDefault wanted{
        .Kind = MemberKind::Property, .Present = property_->PropertyName, .Name = txtPropertyName};
    Guarded(surroundings_.Edit.Errors, kForm, "chkDefaultProperty_Click", [&] {
        default_.Touched = true;
        default_.Ticked = on && ConfirmDefaultMember(surroundings_.Edit.Class, wanted, surroundings_.Edit.Messages);
    });
}

std::span<const std::string_view> frmFieldProperties::Formats() const
{
    return SampleFormats(Data.DataType());
}

void frmFieldProperties::tabMain_Click(FieldTab tab)
{
    if (tab == FieldTab::Lookup)
        Lookup.Load();
}

TTCOutputs frmFieldProperties::Preview() const
{
    const KZMClass& item = surroundings_.Edit.Class;
    const auto copy = WorkingCopy(item);
    const std::size_t position = PositionOf(item.TTCProperties, property_.get());
    if (const auto target = copy->TTCProperties.Item(position))
        Store(*copy, *target);
    return PropertyPreview(surroundings_.Generated, *copy, *copy->TTCProperties.Item(position));
}

bool frmFieldProperties::Refused(const std::optional<Question>& refusal, std::string_view control)
{
    if (!refusal)
        return false;
    surroundings_.Edit.Messages.Ask(*refusal);
    FocusWanted.Raise(control);
    return true;
}

// All that may refuse stands before the first change.
bool frmFieldProperties::MayStore()
{
    if (!AcceptName(txtPropertyName, NameRules(), surroundings_.Edit.Messages)) {
        FocusWanted.Raise("txtPropertyName");
        return false;
    }
    return !Refused(LengthRefusal(), "txtMaxLength") && MayStoreLookup() &&
           !Refused(FormatRefusal(FormatOnGet()), "cmbFormatGet") &&
           !Refused(FormatRefusal(FormatOnLet()), "cmbFormatLet");
}

// Where a table that was only typed is chosen now and can't be joined, the person has yet to see it.
bool frmFieldProperties::MayStoreLookup()
{
    if (Refused(Lookup.TableRefusal(), "cmbTable"))
        return false;
    if (Lookup.ChooseTypedTable() && !Lookup.JoinTrouble().empty()) {
        FocusWanted.Raise("cmbTable");
        return false;
    }
    return !Refused(Lookup.TableRefusal(), "cmbTable") && !Refused(Lookup.JoinRefusal(), "cmbField") &&
           !Refused(Lookup.FieldsRefusal(txtPropertyName), "lstFields");
}

bool frmFieldProperties::cmdOK_Click()
{
    bool closes = false;
    const bool whole = Guarded(surroundings_.Edit.Errors, kForm, "cmdOK_Click", [&] {
        closes = MayStore();
        if (closes)
            Store(surroundings_.Edit.Class, *property_);
    });
    return whole && closes;
}

void frmFieldProperties::Store(KZMClass& item, TTCProperty& target) const
{
    const std::string name = MakeValidName(txtPropertyName);
    if (name != target.PropertyName && !NameRules().IsTaken(name))
        RenameProperty(item, target, name);
    target.AddToClass = chkAddFieldToClass;
    target.DataType = Data.DataType();
    target.PropertyGet = chkPropertyGet;
    target.PropertyLetSet = Data.chkPropertyLetSet();
    target.EnforceMaxLength = Data.chkEnforceMaxLength();
    target.MaxLength = MaxLength().value_or(target.MaxLength);
    target.Scope = "Public";
    target.FormatOnGet = Data.chkFormatOnGet;
    target.FormatStringOnGet = Formatting.cmbFormatGet();
    target.FormatOnLet = Data.chkFormatOnLet;
    target.FormatStringOnLet = Formatting.cmbFormatLet();
    target.AllowPropertyToBeNull = Data.chkIsNullable();
    SetDefaultProperty(item, target, default_);
    target.DisplayTruncationMessage = Data.chkDisplayTruncationMessage;
    Lookup.Store(item, target);
}

} // namespace veldrane
