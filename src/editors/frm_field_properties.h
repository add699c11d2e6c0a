#pragma once

#include "editors/field_controls.h"
#include "editors/formatting_page.h"
#include "editors/lookup_page.h"
#include "editors/member_surroundings.h"
#include "editors/property_name.h"
#include "generator/outputs.h"
#include "model/signal.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace veldrane {

// The tabs of the dialog.
enum class FieldTab
{
    General,
    Lookup,
    Formatting,
};

// The dialog of a property that stands on a field of the class's table. It shows the property as it is, and only OK
// changes the class.
class frmFieldProperties
{
  public:
    // The property is one of the class's.
    frmFieldProperties(const MemberSurroundings& surroundings, std::shared_ptr<TTCProperty> property);

    Signal<std::string_view> FocusWanted; // the control that OK was refused for

    [[nodiscard]] std::string Caption() const { return "Edit " + property_->PropertyName; }
    [[nodiscard]] const std::string& FieldName() const { return property_->FieldName; }
    [[nodiscard]] const std::string& FieldDataType() const { return property_->FieldDataType; }

    std::string txtPropertyName;
    bool chkAddFieldToClass;
    bool chkPropertyGet;

    [[nodiscard]] bool chkDefaultProperty() const { return default_; }
    // Asks if another member is the default; the box stays clear unless the answer is Yes.
    void chkDefaultProperty_Click(bool on);

    FieldControls Data;
    FormattingPage Formatting;
    LookupPage Lookup;

    // The format strings that are offered for the type that is chosen.
    [[nodiscard]] std::span<const std::string_view> Formats() const;

    // A tab has come to the front. The lists of the lookup are read when they are wanted first.
    void tabMain_Click(FieldTab tab);

    // What is wrong with what a control holds, in the words that OK tells; "" if nothing. `control` is
    // "txtPropertyName", "txtMaxLength", "cmbTable" or "cmbField"; that a table can't be joined is told here alone and
    // keeps nobody from OK.
    [[nodiscard]] std::string Trouble(std::string_view control) const;

    // The same for a row of `lstFields`.
    [[nodiscard]] std::string Trouble(std::size_t lookupRow) const;

    // The routines of the property and of its lookup fields, as they would be generated.
    [[nodiscard]] TTCOutputs Preview() const;

    // True if the dialog closes: the class has the property as it is shown then. A refusal is told and leaves the class
    // as it was.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    bool Refused(const std::optional<Question>& refusal, std::string_view control);
    bool MayStore();
    bool MayStoreLookup();
    [[nodiscard]] TypedName NameRules() const { return PropertyNameRules(surroundings_.Edit, property_->PropertyName); }
    [[nodiscard]] std::optional<Question> LengthRefusal() const;
    void Store(KZMClass& item, TTCProperty& target) const;

    MemberSurroundings surroundings_;
    std::shared_ptr<TTCProperty> property_; // as the class has it
    bool default_;
};

} // namespace veldrane
