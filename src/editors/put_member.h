#pragma once

#include "editors/property_name.h"
#include "model/class.h"
#include "text/case_folding.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace veldrane {

// Each item under its name, in the order in which they stand. Of two that share one, the second has no key.
template <class Members, class Member>
void KeyByName(Members& members, std::string Member::*name)
{
    Members keyed;
    for (std::size_t position = 1; position <= members.Count(); ++position) {
        const auto item = members.Item(position);
        if (!keyed.AddExisting(item, (*item).*name))
            keyed.AddExisting(item, "");
    }
    members = std::move(keyed);
}

// The 1-based position of an item in its collection; 0 if it is none of its, or nothing.
template <class Members, class Member>
[[nodiscard]] std::size_t PositionOf(const Members& members, const Member* item)
{
    for (std::size_t position = members.Count(); position > 0; --position)
        if (members.Item(position).get() == item)
            return position;
    return 0;
}

// Puts a method or an event into its collection of the class: in place of the one at the 1-based position, or at the
// end if that is 0. The register follows its name, which is free; the name from before stays there if another member
// of the class is called by it. Returns the item in the collection.
template <class Members, class Member>
std::shared_ptr<Member> PutMember(KZMClass& item, Members& members, std::size_t position,
                                  std::shared_ptr<Member> member, std::string Member::*name)
{
    TTCMembers& names = item.TTCMembers;
    const std::string after = (*member).*name;
    if (position == 0) {
        names.Add(after, after);
        members.AddExisting(member, after);
        return member;
    }
    std::shared_ptr<Member> present = members.Item(position);
    const std::string before = (*present).*name;
    *present = std::move(*member);
    if (before == after)
        return present;
    if (!text::EqualFolded(before, after))
        ReleaseName(item, before);
    else if (names.Contains(before))
        names.Remove(before);
    names.Add(after, after);
    KeyByName(members, name);
    return present;
}

} // namespace veldrane
