#include "editors/field_controls.h"

#include "datasource/type_table.h"

#include <algorithm>
#include <array>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kVariantKey = ":11";

// Values that are formatted and have no length.
constexpr auto kPlainTypes = std::to_array<std::string_view>(
    {"Boolean", "Integer", "Single", "Double", "Variant", "Currency", "Long", "Byte", "Date"});

bool IsPlain(std::string_view type)
{
    return std::find(kPlainTypes.begin(), kPlainTypes.end(), type) != kPlainTypes.end();
}

bool IsString(std::string_view type)
{
    return type == VBTypeName(vb_type::kString);
}

} // namespace

FieldControls::FieldControls(const TTCProperty& property)
    : txtMaxLength(std::to_string(property.MaxLength)), chkDisplayTruncationMessage(property.DisplayTruncationMessage),
      chkFormatOnGet(property.FormatOnGet), chkFormatOnLet(property.FormatOnLet),
      types_(PropertyTypes(property.DataType)), type_(RowOfType(types_, property.DataType)),
      nullable_(property.AllowPropertyToBeNull), letSet_(property.PropertyLetSet), enforce_(property.EnforceMaxLength)
{
    enabled_.chkFormatOnLet = letSet_;
    FollowType();
}

void FieldControls::cmbDataType_Click(std::size_t row)
{
    if (row >= types_.size())
        return;
    type_ = row;
    FollowType();
    FollowFormats();
}

// Whoever goes through the types by a key passes those that are not formatted.
void FieldControls::FollowFormats()
{
    if (enabled_.tabFormatting) {
        chkFormatOnGet |= std::exchange(setAsideOnGet_, false);
        chkFormatOnLet |= std::exchange(setAsideOnLet_, false);
    } else {
        setAsideOnGet_ |= std::exchange(chkFormatOnGet, false);
        setAsideOnLet_ |= std::exchange(chkFormatOnLet, false);
    }
}

void FieldControls::FollowType()
{
    const bool isString = IsString(DataType());
    enabled_.tabFormatting = isString || IsPlain(DataType());
    if (!isString) {
        DisableLength();
    } else if (letSet_) {
        enabled_.fraFieldLength = enabled_.chkEnforceMaxLength = enabled_.chkDisplayTruncationMessage = true;
        enabled_.txtMaxLength = enabled_.lblChars = enforce_;
    }
}

void FieldControls::DisableLength()
{
    enabled_.fraFieldLength = enabled_.chkEnforceMaxLength = enabled_.chkDisplayTruncationMessage = false;
    enabled_.txtMaxLength = enabled_.lblChars = false;
}

void FieldControls::chkIsNullable_Click(bool on)
{
    nullable_ = on;
    if (on) {
        if (types_[type_].Key != kVariantKey)
            remembered_ = type_;
        cmbDataType_Click(RowOfType(types_, VBTypeName(vb_type::kVariant)));
    } else if (remembered_) {
        cmbDataType_Click(*remembered_);
    }
}

void FieldControls::chkPropertyLetSet_Click(bool on)
{
    letSet_ = on;
    enabled_.chkFormatOnLet = on;
    if (!on)
        DisableLength();
    else if (IsString(DataType()))
        FollowType();
}

void FieldControls::chkEnforceMaxLength_Click(bool on)
{
    enforce_ = on;
    enabled_.txtMaxLength = enabled_.lblChars = enabled_.chkDisplayTruncationMessage = on;
}

} // namespace veldrane
