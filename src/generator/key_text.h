#pragma once

#include "generator/class_walks.h"

#include <string>

namespace veldrane {

// How the text of a key joins the value of one property to the next.
inline constexpr std::string_view kKeyJoint = " & ";

// Takes the joint off the end of a key.
inline void CutKeyJoint(std::string& key)
{
    if (key.ends_with(kKeyJoint))
        key.resize(key.size() - kKeyJoint.size());
}

// Appends what a member's key in its collection is made of: `identityPart(property)` for the first property on each
// column of the identity key, then `primaryPart(property)`, which ends with the joint, for the properties on those of
// the primary key; the last joint goes. Nothing stands between the two kinds, so that a class found by both gets a line
// that does not compile: on purpose.
template <class IdentityPart, class PrimaryPart>
void AppendKeyText(std::string& key, const KZMClass& owner, PropertiesOnColumn ofPrimary, IdentityPart&& identityPart, PrimaryPart&& primaryPart)
{
    if (owner.RetrieveByIdentityCol)
        for (const ColumnProperty& found : PropertiesBehindKey(owner, key_type::kIdentityColumn, PropertiesOnColumn::First))
            key += identityPart(*found.Property);
    if (owner.RetrieveByPrimaryKey)
        for (const ColumnProperty& found : PropertiesBehindKey(owner, key_type::kPrimaryKey, ofPrimary))
            key += primaryPart(*found.Property);
    CutKeyJoint(key);
}

} // namespace veldrane
