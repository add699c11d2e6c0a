#pragma once

#include "editors/default_member.h"
#include "editors/field_controls.h"
#include "editors/formatting_page.h"
#include "editors/lookup_page.h"
#include "editors/member_surroundings.h"
#include "editors/property_name.h"
#include "generator/outputs.h"
#include "model/signal.h"

#include <cstdint>
#include <memory>
#include <optional>
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

    [[nodiscard]] bool chkDefaultProperty() const { return default_.Ticked; }
    // Asks if another member is the default; the box stays clear unless the answer is Yes.
    void chkDefaultProperty_Click(bool on);

    FieldControls Data;
    FormattingPage Formatting;
    LookupPage Lookup;

    // The format strings that are offered for the type that is chosen.
    [[nodiscard]] std::span<const std::string_view> Formats() const;

    // A tab has come to the front. The lists of the lookup are read when they are wanted first.
    void tabMain_Click(FieldTab tab);

    // What is wrong with what a control holds, in the words that OK tells; "" if nothing. Hints are told here alone and
    // keep nobody from OK: of a type that can't be Null, a maximum of 0, a message without a maximum, a table that
    // can't be joined, and a format string that is not used or that generated code can't have.
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
    // A format string and its box.
    struct UsedFormat
    {
        const std::string& Text;
        bool IsTicked = false;
        bool CanBeTicked = true;
    };
    [[nodiscard]] UsedFormat FormatOnGet() const;
    [[nodiscard]] UsedFormat FormatOnLet() const;

    [[nodiscard]] std::optional<std::int32_t> MaxLength() const; // none for a text that is no length
    [[nodiscard]] std::optional<Question> LengthRefusal() const;
    [[nodiscard]] std::optional<Question> FormatRefusal(const UsedFormat& format) const;

    [[nodiscard]] std::string NameTroubleText() const;
    [[nodiscard]] std::string NullHint() const;
    [[nodiscard]] std::string LengthTrouble() const;
    [[nodiscard]] std::string MessageHint() const;
    [[nodiscard]] std::string JoinTrouble() const;
    [[nodiscard]] std::string FormatTrouble(const UsedFormat& format) const;
    void Store(KZMClass& item, TTCProperty& target) const;

    MemberSurroundings surroundings_;
    std::shared_ptr<TTCProperty> property_; // as the class has it
    DefaultBox default_;
};

} // namespace veldrane
