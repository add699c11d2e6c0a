#include "datasource/typed_name.h"

#include "datasource/naming.h"
#include "model/class.h"
#include "text/case_folding.h"
#include "text/characters.h"

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

std::optional<Question> RefusalOf(std::string_view typed, const TypedName& rules)
{
    return rules.Refuses ? rules.Refuses(typed) : std::nullopt;
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

TypedName PropertyNameRules(const KZMClass& item, std::string before, const text::CodePage& codePage)
{
    TypedName rules = MemberNameRules(item, std::move(before), codePage);
    rules.Kind = "property";
    rules.TakenTitle = "Duplicate Property Name";
    return rules;
}

Question NameTaken(std::string_view name, const TypedName& rules)
{
    return {.Title = std::string(rules.TakenTitle),
            .Text = "The " + std::string(rules.Kind) + " name '" + std::string(name) + "' conflicts with an existing " +
                    rules.Rival + ". Please enter another name.",
            .Icon = MessageIcon::Warning};
}

std::string CannotBeAddedText(std::string_view name, const TypedName& rules)
{
    return "The " + std::string(rules.Kind) + " '" + std::string(name) + "' can't be added: an existing " +
           rules.Rival + " has that name.";
}

std::optional<Question> UnfitName(std::string_view name, const text::CodePage& codePage)
{
    if (auto trouble = NotWritable(name, codePage))
        return trouble;
    const std::size_t length = text::Length(name);
    if (length <= kMostNameCharacters)
        return std::nullopt;
    return Question{.Title = "Name Too Long",
                    .Text = "The name has " + std::to_string(length) + " characters, and Visual Basic allows " +
                            std::to_string(kMostNameCharacters) + ". Please enter a shorter name.",
                    .Icon = MessageIcon::Warning};
}

std::string NameTrouble(std::string_view typed, const TypedName& rules)
{
    if (const auto refusal = RefusalOf(typed, rules))
        return refusal->Text;
    const std::string valid = MakeValidName(typed);
    if (std::string change = InvalidNameText(typed); !change.empty())
        return change;
    if (const auto unfit = UnfitName(valid, rules.CodePage))
        return unfit->Text;
    return rules.IsTaken(valid) ? NameTaken(valid, rules).Text : std::string();
}

bool MakeFitName(std::string& typed, const TypedName& rules, Messages& messages)
{
    if (const auto refusal = RefusalOf(typed, rules)) {
        messages.Ask(*refusal);
        return false;
    }
    typed = MakeValidName(typed, messages);
    const auto unfit = UnfitName(typed, rules.CodePage);
    if (unfit)
        messages.Ask(*unfit);
    return !unfit;
}

bool AcceptName(std::string& typed, const TypedName& rules, Messages& messages)
{
    if (!MakeFitName(typed, rules, messages))
        return false;
    if (rules.IsTaken(typed))
        messages.Ask(NameTaken(typed, rules));
    return !rules.IsTaken(typed);
}

} // namespace veldrane
