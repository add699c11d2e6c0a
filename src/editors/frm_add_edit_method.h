#pragma once

#include "datasource/typed_name.h"
#include "editors/argument_list.h"
#include "editors/member_surroundings.h"
#include "editors/name_touch.h"
#include "editors/type_list.h"
#include "model/signal.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// The items of the scope box of a method.
inline constexpr std::array<std::string_view, 3> kMethodScopes{"Public", "Private", "Friend"};

// The dialog of a method of the user's, or of what a person may change of a built-in one. OK alone changes the class.
class frmAddEditMethod
{
  public:
    // A new method, or the one of the class that is given. `surroundings` must outlive the dialog.
    explicit frmAddEditMethod(const MemberSurroundings& surroundings,
                              const std::shared_ptr<TTCMethod>& present = nullptr);
    frmAddEditMethod(const frmAddEditMethod&) = delete;
    frmAddEditMethod& operator=(const frmAddEditMethod&) = delete;

    [[nodiscard]] std::string Caption() const;

    // Why a control can't be used, for a tip; "" if it can: the generated code of a built-in method, and of one that
    // calls a procedure, follows but a part of the definition.
    [[nodiscard]] std::string WhyDisabled(std::string_view control) const;

    // The name of a built-in method, and of one that calls a procedure, stays: the generator knows it by that.
    std::string txtMethodName;
    [[nodiscard]] bool txtMethodName_Enabled() const;
    void txtMethodName_Change(std::string typed); // by the person

    std::string cmbReturnType; // the key of the item selected
    [[nodiscard]] std::vector<TypeItem> ReturnTypes() const;

    std::string cmbScope; // one of kMethodScopes

    // Ticking it asks if another member is the default of the class.
    [[nodiscard]] bool chkDefault() const { return isDefault_; }
    void chkDefault_Click(bool on);

    // The code of a method whose name stays never says that it is the default; where it is all the same, that can go.
    [[nodiscard]] bool chkDefault_Enabled() const { return txtMethodName_Enabled() || present_->DefaultMethod; }

    [[nodiscard]] ArgumentList& lstArguments() { return arguments_; }

    // What is wrong with the text of the control, in the words of the first box that OK would show; "" if nothing, and
    // for an empty name that nobody has touched yet.
    [[nodiscard]] std::string Trouble(std::string_view control) const;

    // The lines that are generated for the method as the dialog has it.
    [[nodiscard]] TTCOutputs Preview() const { return PreviewWith(arguments_.Items()); }

    // False if the dialog stays. Cancel asks before it gives up changes.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] bool cmdCancel_Click();

    Signal<> Changed;
    Signal<std::string_view> FocusWanted; // by the control of this name

  private:
    [[nodiscard]] TypedName NameRules() const;
    [[nodiscard]] bool IsModified() const;
    [[nodiscard]] std::shared_ptr<TTCMethod> Edited(const Arguments& arguments) const;
    std::shared_ptr<TTCMethod> PutInto(KZMClass& item, const Arguments& arguments) const;
    [[nodiscard]] TTCOutputs PreviewWith(const Arguments& arguments) const;

    const MemberSurroundings& surroundings_;
    std::size_t position_;                     // in the class; 0 for a new method
    std::shared_ptr<const TTCMethod> present_; // as it was when the dialog came up
    NameTouch nameTouch_;
    bool isDefault_ = false;
    bool defaultTouched_ = false; // what was not leaves the class its other default
    ArgumentList arguments_;
};

} // namespace veldrane
