#include "editors/frm_add_edit_property.h"

#include "datasource/naming.h"
#include "datasource/type_table.h"
#include "editors/default_member.h"
#include "editors/member_preview.h"
#include "editors/put_member.h"
#include "model/working_copy.h"

#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kForm = "frmAddEditProperty";

} // namespace

frmAddEditProperty::frmAddEditProperty(const MemberSurroundings& surroundings)
    : cmbScope(kScopes.front()), surroundings_(surroundings), types_(PropertyTypes(VBTypeName(vb_type::kString))),
      type_(RowOfType(types_, VBTypeName(vb_type::kString)))
{}

frmAddEditProperty::frmAddEditProperty(const MemberSurroundings& surroundings, std::shared_ptr<TTCProperty> property)
    : txtPropertyName(property->PropertyName), cmbScope(property->Scope), chkPropertyGet(property->PropertyGet),
      chkPropertyLetSet(property->PropertyLetSet), surroundings_(surroundings), property_(std::move(property)),
      types_(PropertyTypes(property_->DataType)), type_(RowOfType(types_, property_->DataType)),
      default_(property_->DefaultProperty)
{}

std::string frmAddEditProperty::Caption() const
{
    return property_ ? "Edit " + property_->PropertyName : "Add New Property";
}

void frmAddEditProperty::cmbDataType_Click(std::size_t row)
{
    if (row < types_.size())
        type_ = row;
}

void frmAddEditProperty::chkDefaultProperty_Click(bool on)
{
    const std::string present = PresentName();
    const WantedDefault wanted{.Kind = MemberKind::Property, .Present = present, .Name = txtPropertyName};
    Guarded(surroundings_.Edit.Errors, kForm, "chkDefaultProperty_Click", [&] {
        default_ = on && ConfirmDefaultMember(surroundings_.Edit.Class, wanted, surroundings_.Edit.Messages);
    });
}

std::optional<Question> frmAddEditProperty::RoutinesRefusal() const
{
    if (chkPropertyGet || chkPropertyLetSet)
        return std::nullopt;
    return Question{.Title = "Invalid Property",
                    .Text = "A property needs a Property Get or a Property Let. Please select at least one of them.",
                    .Icon = MessageIcon::Warning};
}

std::string frmAddEditProperty::Trouble(std::string_view control) const
{
    if (control == "txtPropertyName")
        return NameTrouble(txtPropertyName, NameRules());
    return control == "chkPropertyGet" ? RoutinesRefusal().value_or(Question{}).Text : std::string();
}

TTCOutputs frmAddEditProperty::Preview() const
{
    const KZMClass& item = surroundings_.Edit.Class;
    const auto copy = WorkingCopy(item);
    const std::size_t position =
        property_ ? PositionOf(item.TTCProperties, property_.get()) : item.TTCProperties.Count() + 1;
    Store(*copy, copy->TTCProperties.Item(position));
    return PropertyPreview(surroundings_.Generated, *copy, *copy->TTCProperties.Item(position));
}

bool frmAddEditProperty::MayStore()
{
    if (!AcceptName(txtPropertyName, NameRules(), surroundings_.Edit.Messages)) {
        FocusWanted.Raise("txtPropertyName");
        return false;
    }
    const auto refusal = RoutinesRefusal();
    if (!refusal)
        return true;
    surroundings_.Edit.Messages.Ask(*refusal);
    FocusWanted.Raise("chkPropertyGet");
    return false;
}

bool frmAddEditProperty::cmdOK_Click()
{
    bool closes = false;
    const bool whole = Guarded(surroundings_.Edit.Errors, kForm, "cmdOK_Click", [&] {
        closes = MayStore();
        if (closes)
            Store(surroundings_.Edit.Class, property_);
    });
    return whole && closes;
}

void frmAddEditProperty::Store(KZMClass& item, std::shared_ptr<TTCProperty> target) const
{
    const std::string name = MakeValidName(txtPropertyName);
    if (!target)
        target = AddProperty(item, name);
    else if (name != target->PropertyName && !NameRules().IsTaken(name))
        RenameProperty(item, *target, name);
    target->DataType = types_.at(type_).Type;
    target->Scope = cmbScope.empty() ? kScopes.front() : std::string_view(cmbScope);
    target->PropertyGet = chkPropertyGet;
    target->PropertyLetSet = chkPropertyLetSet;
    if (default_)
        ClearDefaultMembers(item);
    target->DefaultProperty = default_;
}

} // namespace veldrane
