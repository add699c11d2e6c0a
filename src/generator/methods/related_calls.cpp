#include "generator/methods/related_calls.h"

namespace veldrane {
namespace {

// The members that the child's relationships join, then the flag if the child has children of its own to hand it to.
std::string MembersForChild(const ChildEmitter& emit, const ColumnIndex& columns)
{
    std::string list;
    for (const TTCRelationship& relationship : emit.Scope().C.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns)
            if (TTCProperty* property = columns.PropertyOn(column.JoinColumnName); property != nullptr) {
                const PropertyScope scope{emit.Scope(), *property};
                list += emit.About(scope).Text("{m:DataType}{PropertyName},");
            }
    if (!list.empty())
        list.pop_back();
    if (emit.Scope().Children.Of(emit.Scope().C.ClassName).empty())
        return list;
    if (!list.empty())
        list += ", ";
    list += kRetrieveChildren;
    return list;
}

} // namespace

void WriteRelatedCalls(const ClassEmitter& emit, const TemplateLine<RelatedCallScope>& call)
{
    if (!HasChildren(emit.Scope()))
        return;
    const ColumnIndex columns(emit.Scope().Class);
    ForEachChild(emit, [&](const ChildEmitter& child) {
        const std::string list = MembersForChild(child, columns);
        const RelatedCallScope scope{child.Scope(), list};
        child.About(scope)(call);
    });
}

} // namespace veldrane
