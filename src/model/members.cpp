#include "model/members.h"

namespace veldrane {

std::shared_ptr<TTCMember> TTCMembers::Add(std::string_view memberName, std::string_view key)
{
    if (Contains(key))
        return nullptr;
    return Insert(std::make_shared<TTCMember>(TTCMember{.MemberName = std::string(memberName)}), key);
}

} // namespace veldrane
