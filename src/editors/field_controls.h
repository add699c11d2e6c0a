#pragma once

#include "editors/property_types.h"
#include "model/properties.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace veldrane {

// The controls of a field's property that depend on its data type, and what depends on what among them.
class FieldControls
{
  public:
    // Shows the property. A data type that the list lacks stands behind the others, so that it isn't lost.
    explicit FieldControls(const TTCProperty& property);

    [[nodiscard]] const std::vector<TypeItem>& Types() const { return types_; }
    [[nodiscard]] std::size_t cmbDataType() const { return type_; } // the row
    [[nodiscard]] const std::string& DataType() const { return types_.at(type_).Type; }
    [[nodiscard]] bool chkIsNullable() const { return nullable_; }
    [[nodiscard]] bool chkPropertyLetSet() const { return letSet_; }
    [[nodiscard]] bool chkEnforceMaxLength() const { return enforce_; }

    // What the person does. A row that is not there changes nothing.
    void cmbDataType_Click(std::size_t row);
    void chkIsNullable_Click(bool on);
    void chkPropertyLetSet_Click(bool on);
    void chkEnforceMaxLength_Click(bool on);

    std::string txtMaxLength; // characters
    bool chkDisplayTruncationMessage = false;
    bool chkFormatOnGet = false;
    bool chkFormatOnLet = false;

    // Which controls can be used.
    struct EnabledControls
    {
        bool fraFieldLength = false;
        bool chkEnforceMaxLength = false;
        bool chkDisplayTruncationMessage = false;
        bool txtMaxLength = false;
        bool lblChars = false;
        bool tabFormatting = false;
        bool chkFormatOnLet = false;
    };
    [[nodiscard]] const EnabledControls& Enabled() const { return enabled_; }

  private:
    void FollowType();
    void FollowFormats();
    void DisableLength();

    std::vector<TypeItem> types_;
    std::size_t type_ = 0;
    std::optional<std::size_t> remembered_; // what a nullable property was before
    bool nullable_ = false;
    bool letSet_ = false;
    bool enforce_ = false;
    bool setAsideOnGet_ = false; // the boxes for formats, until a type comes that is formatted
    bool setAsideOnLet_ = false;
    EnabledControls enabled_;
};

} // namespace veldrane
