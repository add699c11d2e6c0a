#include "editors/frm_built_in_properties.h"

#include "datasource/builtin_members.h"
#include "editors/member_preview.h"
#include "editors/property_name.h"

namespace veldrane {

frmBuiltInProperties::frmBuiltInProperties(const MemberSurroundings& surroundings) : surroundings_(surroundings)
{
    const KZMClass& item = surroundings_.Edit.Class;
    const TypedName rules = PropertyNameRules(surroundings_.Edit, "");
    for (const BuiltInProperty& property : BuiltInProperties()) {
        const auto present = item.TTCProperties.Item(property.Name);
        const bool isInClass = present && present->PlusProperty;
        const bool isTaken = !isInClass && rules.IsTaken(property.Name);
        rows_.push_back({.Name = std::string(property.Name),
                         .Description = std::string(property.Description),
                         .Ticked = isInClass,
                         .Enabled = !isInClass && !isTaken,
                         .Trouble = isTaken ? CannotBeAddedText(property.Name, rules) : std::string()});
    }
}

void frmBuiltInProperties::lstProperties_ItemCheck(const std::vector<std::size_t>& rows, bool ticked)
{
    for (const std::size_t row : rows)
        if (row < rows_.size() && rows_[row].Enabled)
            rows_[row].Ticked = ticked;
}

TTCOutputs frmBuiltInProperties::Preview(std::size_t row) const
{
    const PreviewSource& source = surroundings_.Generated;
    if (row >= rows_.size())
        return TTCOutputs(source.Generation.Settings.Colors);
    return BuiltInPropertyPreview(source, surroundings_.Edit.Class, rows_[row].Name);
}

bool frmBuiltInProperties::cmdOK_Click()
{
    std::vector<std::string> names;
    for (const BuiltInPropertyRow& row : rows_)
        if (row.Ticked && row.Enabled)
            names.push_back(row.Name);
    AcceptBuiltInProperties(surroundings_.Edit, names);
    return true;
}

} // namespace veldrane
