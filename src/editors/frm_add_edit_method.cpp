#include "editors/frm_add_edit_method.h"

#include "datasource/naming.h"
#include "editors/default_member.h"
#include "editors/discard_changes.h"
#include "editors/member_preview.h"
#include "editors/put_member.h"
#include "model/working_copy.h"

#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kFormName = "frmAddEditMethod";
constexpr std::string_view kNameControl = "txtMethodName";

std::string ScopeOf(const TTCMethod& method)
{
    return method.Scope.empty() ? std::string(kMethodScopes.front()) : method.Scope;
}

} // namespace

frmAddEditMethod::frmAddEditMethod(const MemberSurroundings& surroundings, const std::shared_ptr<TTCMethod>& present)
    : surroundings_(surroundings), position_(PositionOf(surroundings.Edit.Class.TTCMethods, present.get())),
      present_(present ? WorkingCopy(*present) : std::make_shared<TTCMethod>()), isDefault_(present_->DefaultMethod),
      arguments_(surroundings, kFormName, ArgumentsOf(present_->Arguments),
                 [this](const Arguments& list) { return PreviewWith(list); })
{
    txtMethodName = present_->MethodName;
    cmbReturnType = TypeKey(present_->ReturnDataType);
    cmbScope = ScopeOf(*present_);
}

std::string frmAddEditMethod::Caption() const
{
    return position_ == 0 ? "Add New Method" : "Edit " + present_->MethodName + " Method";
}

bool frmAddEditMethod::txtMethodName_Enabled() const
{
    return !present_->PlusMethod && !present_->MethodIsSP;
}

std::vector<TypeItem> frmAddEditMethod::ReturnTypes() const
{
    return TypeList({.None = true, .Present = present_->ReturnDataType});
}

void frmAddEditMethod::chkDefault_Click(bool on)
{
    const WantedDefault wanted{.Kind = MemberKind::Method, .Present = present_->MethodName, .Name = txtMethodName};
    isDefault_ = on && ConfirmDefaultMember(surroundings_.Edit.Class, wanted, surroundings_.Edit.Messages);
    Changed.Raise();
}

TypedName frmAddEditMethod::NameRules() const
{
    return MethodNameRules(surroundings_.Edit.Class, present_->MethodName, surroundings_.Edit.CodePage);
}

std::string frmAddEditMethod::Trouble(std::string_view control) const
{
    return control == kNameControl && txtMethodName_Enabled() ? NameTrouble(txtMethodName, NameRules()) : std::string();
}

std::shared_ptr<TTCMethod> frmAddEditMethod::Edited(const Arguments& arguments) const
{
    std::shared_ptr<TTCMethod> method = WorkingCopy(*present_);
    if (txtMethodName_Enabled())
        method->MethodName = MakeValidName(txtMethodName);
    method->ReturnDataType = TypeOfKey(cmbReturnType);
    method->Scope = cmbScope;
    method->DefaultMethod = isDefault_;
    if (arguments != ArgumentsOf(method->Arguments)) // what was not touched stays as it is
        StoreArguments(arguments, method->Arguments);
    return method;
}

std::shared_ptr<TTCMethod> frmAddEditMethod::PutInto(KZMClass& item, const Arguments& arguments) const
{
    if (isDefault_)
        ClearDefaultMembers(item);
    return PutMember(item.TTCMethods, item.TTCMembers, position_, Edited(arguments), &TTCMethod::MethodName);
}

TTCOutputs frmAddEditMethod::PreviewWith(const Arguments& arguments) const
{
    const std::shared_ptr<KZMClass> copy = WorkingCopy(surroundings_.Edit.Class);
    const std::shared_ptr<TTCMethod> method = PutInto(*copy, arguments);
    return MethodPreview(surroundings_.Generated, *copy, *method);
}

bool frmAddEditMethod::IsModified() const
{
    return txtMethodName != present_->MethodName || TypeOfKey(cmbReturnType) != present_->ReturnDataType ||
           cmbScope != ScopeOf(*present_) || isDefault_ != present_->DefaultMethod || arguments_.IsModified();
}

bool frmAddEditMethod::cmdOK_Click()
{
    ClassEdit& edit = surroundings_.Edit;
    bool accepted = false;
    Guarded(edit.Errors, kFormName, "cmdOK_Click", [&] {
        accepted = !txtMethodName_Enabled() || AcceptName(txtMethodName, NameRules(), edit.Messages);
        if (accepted)
            PutInto(edit.Class, arguments_.Items());
        else
            FocusWanted.Raise(kNameControl);
    });
    return accepted;
}

bool frmAddEditMethod::cmdCancel_Click()
{
    return !IsModified() ||
           ConfirmDiscard(surroundings_.Edit.Messages,
                          "This method has been modified, do you want to discard all changes to this method?");
}

} // namespace veldrane
