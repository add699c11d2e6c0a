#pragma once

#include "datasource/typed_name.h"
#include "editors/arguments.h"
#include "editors/member_surroundings.h"
#include "editors/name_touch.h"
#include "editors/type_list.h"
#include "model/signal.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// The dialog of one argument in a list. It changes nothing but what it holds: whoever has shown it takes the argument
// from it if it was left by OK.
class frmAddEditArgument
{
  public:
    // `whyRequired` says why an argument of the list has to be given; "" if one may be left out. `surroundings` must
    // outlive the dialog.
    frmAddEditArgument(const MemberSurroundings& surroundings, Arguments list, ArgumentsPreview preview,
                       std::string whyRequired = {});
    frmAddEditArgument(const frmAddEditArgument&) = delete;
    frmAddEditArgument& operator=(const frmAddEditArgument&) = delete;

    // What the dialog is shown for: a new argument at the end of the list, or the one at the position. Exactly one of
    // them is called, before it is shown.
    void AddArgument();
    void EditArgument(std::size_t position);

    [[nodiscard]] const std::string& Caption() const { return caption_; }

    std::string txtArgumentName;
    void txtArgumentName_Change(std::string typed); // by the person
    std::string cmbDataType;                        // the key of the item selected
    bool chkByVal = false;
    bool chkArray = false;
    std::string txtDefaultValue; // counts for an optional argument alone

    // The items of cmbDataType.
    [[nodiscard]] std::vector<TypeItem> DataTypes() const;

    // The box stays as it was, which is told, where arguments that have to be given would stand behind one that may
    // be left out.
    [[nodiscard]] bool chkOptional() const { return isOptional_; }
    void chkOptional_Click(bool on);

    // Why the box can't be ticked, for a tip; "" if it can. One that is ticked all the same can be unticked.
    [[nodiscard]] std::string WhyNotOptional() const { return isOptional_ ? std::string() : whyRequired_; }

    [[nodiscard]] bool txtDefaultValue_Enabled() const { return isOptional_; }

    // What is wrong with the text of the control, in the words of the first box that OK would show; "" if nothing, and
    // for an empty name that nobody has touched yet. Of a type that is none it is a hint: OK takes it.
    [[nodiscard]] std::string Trouble(std::string_view control) const;

    // The argument as the controls have it.
    [[nodiscard]] TTCParameter Argument() const;

    [[nodiscard]] std::string lblSignature() const { return ArgumentSignature(Argument()); }

    // The lines that are generated for the member with this argument.
    [[nodiscard]] TTCOutputs Preview() const;

    // False if the dialog stays.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

    Signal<> Changed;
    Signal<std::string_view> FocusWanted; // by the control of this name

  private:
    void ShowArgument();
    [[nodiscard]] TypedName NameRules() const;
    [[nodiscard]] std::string DataTypeHint() const;
    [[nodiscard]] std::string DefaultValueTrouble() const;
    [[nodiscard]] bool Accept();

    const MemberSurroundings& surroundings_;
    Arguments list_;
    std::size_t position_ = 0; // of the argument in the list
    ArgumentsPreview preview_;
    std::string whyRequired_;
    std::string caption_;
    std::string present_; // the type at first
    NameTouch nameTouch_{true};
    bool isOptional_ = false;
};

} // namespace veldrane
