#include "datasource/naming.h"
#include "editors/frm_field_properties.h"
#include "generator/type_rules.h"
#include "text/case_folding.h"
#include "text/conversion.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace veldrane {
namespace {

std::string TextOf(const std::optional<Question>& refusal)
{
    return refusal ? refusal->Text : std::string();
}

// Generated code has the format between double quotes, and makes such of backticks.
bool HasLoneQuote(std::string_view format)
{
    constexpr std::string_view kQuotes = "\"`";
    for (std::size_t at = format.find_first_of(kQuotes); at != std::string_view::npos;
         at = format.find_first_of(kQuotes, at)) {
        const std::size_t end = std::min(format.find_first_not_of(kQuotes, at), format.size());
        if ((end - at) % 2 != 0)
            return true;
        at = end;
    }
    return false;
}

} // namespace

std::optional<std::int32_t> frmFieldProperties::MaxLength() const
{
    const std::string& typed = Data.txtMaxLength;
    if (typed.find_first_not_of("0123456789 ") != std::string::npos)
        return std::nullopt;
    try {
        return text::ToLong(typed);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

// A length that can't be typed now is nobody's fault.
std::optional<Question> frmFieldProperties::LengthRefusal() const
{
    if (!Data.Enabled().txtMaxLength || MaxLength())
        return std::nullopt;
    return Question{.Title = "Invalid Maximum Length",
                    .Text = "Invalid Maximum Length. Please enter a whole number from 0 to 2147483647.",
                    .Icon = MessageIcon::Warning};
}

std::optional<Question> frmFieldProperties::FormatRefusal(const UsedFormat& format) const
{
    const std::string part = UnwritablePart(format.Text, surroundings_.Edit.CodePage);
    if (!format.IsTicked || !Data.Enabled().tabFormatting || part.empty())
        return std::nullopt;
    return Question{.Title = "Invalid Format String",
                    .Text = "The format string '" + format.Text + "' has " + part +
                            ", so it can't enter the project. Please enter another one.",
                    .Icon = MessageIcon::Warning};
}

std::string frmFieldProperties::NameTroubleText() const
{
    return NameTrouble(txtPropertyName, NameRules());
}

std::string frmFieldProperties::NullHint() const
{
    const std::string& type = Data.DataType();
    const bool isVariant = type.empty() || text::EqualFolded(type, "Variant");
    return Data.chkIsNullable() && !isVariant ? "Only a Variant can be Null." : "";
}

std::string frmFieldProperties::LengthTrouble() const
{
    const bool isGuid = property_->FieldDataType == kGuidFieldType; // has a length of its own
    if (Data.Enabled().txtMaxLength && !isGuid && MaxLength() == 0)
        return "A maximum of 0 leaves nothing of any text.";
    return TextOf(LengthRefusal());
}

std::string frmFieldProperties::MessageHint() const
{
    const bool isWritten = Data.DataType() == "String" && Data.chkPropertyLetSet() &&
                           Data.chkDisplayTruncationMessage && !surroundings_.Generated.Project.MakeWebCompatible;
    if (!isWritten || Data.chkEnforceMaxLength())
        return {};
    const std::string_view remedy =
        Data.Enabled().chkDisplayTruncationMessage ? "" : " To clear it, enforce a maximum first.";
    return std::string("Without a maximum the message shows whenever the property is assigned.").append(remedy);
}

std::string frmFieldProperties::JoinTrouble() const
{
    const auto refusal = Lookup.JoinRefusal();
    return refusal ? refusal->Text : Lookup.JoinTrouble();
}

std::string frmFieldProperties::FormatTrouble(const UsedFormat& format) const
{
    if (const auto refusal = FormatRefusal(format))
        return refusal->Text;
    if (!format.Text.empty() && format.CanBeTicked && !format.IsTicked)
        return "Unless its box is ticked, the format string is neither used nor saved.";
    if (format.IsTicked && HasLoneQuote(format.Text))
        return "In the generated code a double quote or a backtick ends the format string. Type it twice to have it there.";
    return {};
}

frmFieldProperties::UsedFormat frmFieldProperties::FormatOnGet() const
{
    return {.Text = Formatting.cmbFormatGet(), .IsTicked = Data.chkFormatOnGet};
}

frmFieldProperties::UsedFormat frmFieldProperties::FormatOnLet() const
{
    return {.Text = Formatting.cmbFormatLet(),
            .IsTicked = Data.chkFormatOnLet,
            .CanBeTicked = Data.Enabled().chkFormatOnLet};
}

std::string frmFieldProperties::Trouble(std::string_view control) const
{
    using Form = frmFieldProperties;
    using Row = std::pair<std::string_view, std::string (*)(const Form&)>;
    static constexpr auto kTroubles = std::to_array<Row>({
        {"txtPropertyName", [](const Form& form) { return form.NameTroubleText(); }},
        {"cmbDataType", [](const Form& form) { return form.NullHint(); }},
        {"txtMaxLength", [](const Form& form) { return form.LengthTrouble(); }},
        {"chkDisplayTruncationMessage", [](const Form& form) { return form.MessageHint(); }},
        {"cmbTable", [](const Form& form) { return TextOf(form.Lookup.TableRefusal()); }},
        {"cmbField", [](const Form& form) { return form.JoinTrouble(); }},
        {"cmbFormatGet", [](const Form& form) { return form.FormatTrouble(form.FormatOnGet()); }},
        {"cmbFormatLet", [](const Form& form) { return form.FormatTrouble(form.FormatOnLet()); }},
    });
    const auto* const row =
        std::find_if(kTroubles.begin(), kTroubles.end(), [&](const Row& each) { return each.first == control; });
    return row == kTroubles.end() ? std::string() : row->second(*this);
}

std::string frmFieldProperties::Trouble(std::size_t lookupRow) const
{
    return Lookup.Trouble(lookupRow, MakeValidName(txtPropertyName));
}

} // namespace veldrane
