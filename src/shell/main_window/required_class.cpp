#include "shell/main_window/required_class.h"

namespace veldrane {
namespace {

bool UnlessRequired(const KZMClass& item, const char* refusal, Messages& messages)
{
    if (item.IsMTSRequiredClass)
        messages.Tell("Component Services Required Class", refusal, MessageIcon::Information);
    return !item.IsMTSRequiredClass;
}

} // namespace

bool MayDelete(const KZMClass& item, Messages& messages)
{
    return UnlessRequired(item, "This class is a required Component Services class and cannot be deleted.", messages);
}

bool MayEdit(const KZMClass& item, Messages& messages)
{
    return UnlessRequired(item, "This class is a required Component Services class and cannot be edited.", messages);
}

} // namespace veldrane
