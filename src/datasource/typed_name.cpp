#include "datasource/typed_name.h"

#include "datasource/naming.h"
#include "model/class.h"
#include "text/case_folding.h"

#include <utility>

namespace veldrane {
namespace {

// The register should know them all; a member that it has lost must not be lost for that.
bool HasMember(const KZMClass& item, std::string_view name)
{
    return item.TTCMembers.Contains(name) || item.TTCMethods.Contains(name) || item.TTCEvents.Contains(name) ||
           item.TTCProperties.Contains(name);
}

TypedName MemberNameRules(const KZMClass& item, std::string before, const text::CodePage& codePage)
{
    return {.Rival = "member of the " + item.ClassName + " class",
            // The member's own name is in nobody's way, in whatever letter case.
            .IsTaken = [&item, own = std::move(before)](
                           std::string_view name) { return !text::EqualFolded(name, own) && HasMember(item, name); },
            .CodePage = codePage};
}

std::string TakenText(std::string_view name, const TypedName& rules)
{
    return "The " + std::string(rules.Kind) + " name '" + std::string(name) + "' conflicts with an existing " +
           rules.Rival + ". Please enter another name.";
}

} // namespace

TypedName MethodNameRules(const KZMClass& item, std::string before, const text::CodePage& codePage)
{
    TypedName rules = MemberNameRules(item, std::move(before), codePage);
    rules.Kind = "method";
    rules.TakenTitle = "Duplicate Method Name";
    return rules;
}

TypedName EventNameRules(const KZMClass& item, std::string before, const text::CodePage& codePage)
{
    TypedName rules = MemberNameRules(item, std::move(before), codePage);
    rules.Kind = "event";
    rules.TakenTitle = "Duplicate Event Name";
    return rules;
}

std::string NameTrouble(std::string_view typed, const TypedName& rules)
{
    const std::string valid = MakeValidName(typed);
    for (std::string trouble : {InvalidNameText(typed), NotWritableText(valid, rules.CodePage)})
        if (!trouble.empty())
            return trouble;
    return rules.IsTaken(valid) ? TakenText(valid, rules) : std::string();
}

void TellTaken(std::string_view name, const TypedName& rules, Messages& messages)
{
    messages.Tell(std::string(rules.TakenTitle), TakenText(name, rules), MessageIcon::Warning);
}

bool AcceptName(std::string& typed, const TypedName& rules, Messages& messages)
{
    typed = MakeValidName(typed, messages);
    if (!FitsProject(typed, rules.CodePage, messages))
        return false;
    if (rules.IsTaken(typed))
        TellTaken(typed, rules, messages);
    return !rules.IsTaken(typed);
}

} // namespace veldrane
