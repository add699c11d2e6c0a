#include "datasource/collection_rule.h"

#include "datasource/builtin_members.h"
#include "datasource/class_names.h"

#include <string_view>

namespace veldrane {
namespace {

constexpr std::string_view kRetrieveList = "RetrieveList";

void AddRetrieveList(KZMClass& item)
{
    if (!item.TTCMethods.Contains(kRetrieveList) && item.TTCMembers.Add(kRetrieveList, kRetrieveList))
        item.TTCMethods.AddExisting(MakeBuiltInMethod(kRetrieveList, item), kRetrieveList);
}

void RemoveRetrieveList(KZMClass& item)
{
    item.TTCMethods.Remove(kRetrieveList);
    if (item.TTCMembers.Contains(kRetrieveList))
        item.TTCMembers.Remove(kRetrieveList);
}

bool ConfirmsRemoval(Buttons confirmation, Messages& messages)
{
    const Answer answer = messages.Ask(
        {.Title = "Confirm Change",
         .Text =
             "The 'RetrieveList' method relies on this collection. Are you sure you want to remove the collection and the 'RetrieveList' method?",
         .Offered = confirmation,
         .Icon = MessageIcon::Question,
         .Default = confirmation == Buttons::YesNo ? Answer::No : Answer::Cancel});
    return answer == Answer::Ok || answer == Answer::Yes;
}

} // namespace

bool IsRootClass(const KZMClass& item)
{
    return item.ParentClassName.empty() || item.ParentClassName == kNotApplicable;
}

CollectionBox ChangeCollectionBox(KZMClass& item, CollectionBox wanted, Buttons confirmation, Messages& messages)
{
    if (!IsRootClass(item))
        return wanted;
    if (wanted == CollectionBox::Ticked) {
        AddRetrieveList(item);
        return CollectionBox::Ticked;
    }
    if (!item.TTCMethods.Contains(kRetrieveList))
        return CollectionBox::Cleared;
    if (!ConfirmsRemoval(confirmation, messages))
        return CollectionBox::Ticked;
    RemoveRetrieveList(item);
    return CollectionBox::Cleared;
}

} // namespace veldrane
