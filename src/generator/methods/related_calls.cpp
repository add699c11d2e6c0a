#include "generator/methods/related_calls.h"

namespace veldrane {

std::string MembersForChild(const ChildEmitter& child, const ColumnIndex& columns)
{
    const ClassScope& owner = child.Scope();
    std::string list;
    for (const TTCRelationship& relationship : child.Scope().C.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns)
            if (TTCProperty* property = columns.PropertyOn(column.JoinColumnName); property != nullptr) {
                const PropertyScope scope{owner, *property};
                list += child.About(scope).Text("{m:DataType}{PropertyName},");
            }
    if (!list.empty())
        list.pop_back();
    if (child.Scope().Children.Of(child.Scope().C.ClassName).empty())
        return list;
    if (!list.empty())
        list += ", ";
    list += kRetrieveChildren;
    return list;
}

void WriteRelatedCalls(const ClassEmitter& emit, RelatedCallList list, const TemplateLine<RelatedCallScope>& call)
{
    if (!HasChildren(emit.Scope()))
        return;
    const ColumnIndex columns(emit.Scope().Class);
    ForEachChild(emit, [&](const ChildEmitter& child) {
        const std::string arguments = list(child, columns);
        const RelatedCallScope scope{child.Scope(), arguments};
        child.About(scope)(call);
    });
}

} // namespace veldrane
