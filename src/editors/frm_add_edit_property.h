#pragma once

#include "editors/default_member.h"
#include "editors/member_surroundings.h"
#include "editors/name_touch.h"
#include "editors/property_name.h"
#include "editors/property_types.h"
#include "generator/outputs.h"
#include "model/signal.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// The dialog of a property that stands on no field. Only OK changes the class.
class frmAddEditProperty
{
  public:
    // Makes a new property of the class.
    explicit frmAddEditProperty(const MemberSurroundings& surroundings);

    // Changes one of the class's. What no control shows of it stays as it is.
    frmAddEditProperty(const MemberSurroundings& surroundings, std::shared_ptr<TTCProperty> property);

    Signal<std::string_view> FocusWanted; // the control that OK was refused for

    [[nodiscard]] std::string Caption() const;

    // Why a control can't be used, for a tip; "" if it can: the code of a built-in property follows its name alone.
    [[nodiscard]] std::string WhyDisabled(std::string_view control) const;

    static constexpr auto kScopes = std::to_array<std::string_view>({"Public", "Private", "Friend"});

    std::string txtPropertyName;
    void txtPropertyName_Change(std::string typed); // by the person

    std::string cmbScope; // one of kScopes, or whatever the property has; "" for nothing chosen
    bool chkPropertyGet = true;
    bool chkPropertyLetSet = true;

    [[nodiscard]] const std::vector<TypeItem>& Types() const { return types_; }
    [[nodiscard]] std::size_t cmbDataType() const { return type_; } // the row
    // A row that is not there changes nothing.
    void cmbDataType_Click(std::size_t row);

    [[nodiscard]] bool chkDefaultProperty() const { return default_.Ticked; }
    // Asks if another member is the default; the box stays clear unless the answer is Yes.
    void chkDefaultProperty_Click(bool on);

    // What is wrong with what a control holds, in the words that OK tells; "" if nothing, and for an empty name that
    // nobody has touched yet. `control` is "txtPropertyName" or "chkPropertyGet".
    [[nodiscard]] std::string Trouble(std::string_view control) const;

    // The routines of the property, as they would be generated.
    [[nodiscard]] TTCOutputs Preview() const;

    // True if the dialog closes: the class has the property then. A refusal is told and leaves the class as it was.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    [[nodiscard]] bool IsBuiltIn() const { return property_ && property_->PlusProperty; }
    [[nodiscard]] std::string PresentName() const { return property_ ? property_->PropertyName : std::string(); }
    [[nodiscard]] TypedName NameRules() const { return PropertyNameRules(surroundings_.Edit, PresentName()); }
    bool MayStore();
    [[nodiscard]] std::optional<Question> RoutinesRefusal() const;
    void StoreName(KZMClass& item, TTCProperty& target) const;
    void Store(KZMClass& item, std::shared_ptr<TTCProperty> target) const;

    MemberSurroundings surroundings_;
    std::shared_ptr<TTCProperty> property_; // as the class has it; nothing for a new one
    std::vector<TypeItem> types_;
    std::size_t type_;
    NameTouch nameTouch_;
    DefaultBox default_;
};

} // namespace veldrane
