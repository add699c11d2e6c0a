#pragma once

#include "model/members.h"

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

// Puts a method or an event into the collection of its class: in place of the one under `key`, or at the end if that
// is "". The register follows its name, which is free. Returns the item in the collection.
template <class Members, class Member>
std::shared_ptr<Member> PutMember(Members& members, TTCMembers& names, const std::string& key,
                                  std::shared_ptr<Member> member, std::string Member::*name)
{
    const std::string after = (*member).*name;
    std::shared_ptr<Member> present = members.Item(key);
    if (!present) {
        names.Add(after, after);
        members.AddExisting(member, after);
        return member;
    }
    const std::string before = (*present).*name;
    *present = std::move(*member);
    if (before == after)
        return present;
    if (names.Contains(before))
        names.Remove(before);
    names.Add(after, after);
    KeyByName(members, name);
    return present;
}

} // namespace veldrane
