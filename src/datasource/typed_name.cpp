#include "datasource/typed_name.h"

#include "datasource/naming.h"
#include "model/members.h"
#include "text/case_folding.h"

namespace veldrane {

bool IsTakenMember(const TTCMembers& members, std::string_view before, std::string_view name)
{
    return !text::EqualFolded(name, before) && members.Contains(name);
}

std::string NameTrouble(std::string_view typed, const TypedName& rules)
{
    const std::string valid = MakeValidName(typed);
    for (std::string trouble : {InvalidNameText(typed), NotWritableText(valid, rules.CodePage)})
        if (!trouble.empty())
            return trouble;
    return rules.IsTaken(valid) ? std::string(rules.Taken.Text) : std::string();
}

bool AcceptName(std::string& typed, const TypedName& rules, Messages& messages)
{
    typed = MakeValidName(typed, messages);
    if (!FitsProject(typed, rules.CodePage, messages))
        return false;
    if (!rules.IsTaken(typed))
        return true;
    messages.Tell(std::string(rules.Taken.Title), std::string(rules.Taken.Text), MessageIcon::Warning);
    return false;
}

} // namespace veldrane
