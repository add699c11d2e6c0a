#include "editors/member_rows.h"

#include "datasource/table_keys.h"

#include <algorithm>
#include <string_view>

namespace veldrane {
namespace {

template <class Collection, class Wanted>
auto ItemsOf(const Collection& collection, const Wanted& wanted)
{
    std::vector<typename Collection::ItemPointer> items;
    for (std::size_t position = 1; position <= collection.Count(); ++position)
        if (auto item = collection.Item(position); wanted(*item))
            items.push_back(std::move(item));
    return items;
}

bool StandsInPrimaryKey(const TTCProperty& property, const KZMClass& item)
{
    const auto key = FirstKey(item, key_type::kPrimaryKey);
    return key != nullptr && std::any_of(key->TTCColumns.begin(), key->TTCColumns.end(), [&](const TTCColumn& column) {
               return column.ColumnName == property.FieldName;
           });
}

std::string_view IconOf(const TTCProperty& property, const KZMClass& item)
{
    if (property.FieldName.empty())
        return property.PlusProperty ? "PropertyPlus" : "Property";
    if (property.FieldIsIdentityCol)
        return "FieldAuto";
    return StandsInPrimaryKey(property, item) ? "FieldKey" : "Field";
}

std::string_view IconOf(const TTCMethod& method)
{
    if (method.MethodIsSP)
        return "SP";
    if (method.PlusMethod)
        return "MethodPlus";
    return method.ReturnDataType.empty() ? "Sub" : "Function";
}

const std::string& SecondOf(const TTCMethod& method)
{
    const SP* const procedure = method.MethodIsSP ? method.StoredProcedure.get() : nullptr;
    return procedure == nullptr ? method.ReturnDataType : procedure->SPName;
}

} // namespace

PropertyItems FieldPropertiesOf(const KZMClass& item)
{
    return ItemsOf(item.TTCProperties, [](const TTCProperty& property) { return !property.FieldName.empty(); });
}

PropertyItems PlusPropertiesOf(const KZMClass& item)
{
    return ItemsOf(item.TTCProperties, [](const TTCProperty& property) { return property.FieldName.empty(); });
}

MethodItems MethodsOf(const KZMClass& item)
{
    return ItemsOf(item.TTCMethods, [](const TTCMethod& /*method*/) { return true; });
}

EventItems EventsOf(const KZMClass& item)
{
    return ItemsOf(item.TTCEvents, [](const ttcEvent& /*event*/) { return true; });
}

MemberRow RowOf(const TTCProperty& property, const KZMClass& item)
{
    return {.Key = property.PropertyName,
            .Text = property.PropertyName,
            .Second = property.DataType,
            .Icon = std::string(IconOf(property, item))};
}

MemberRow RowOf(const TTCMethod& method, const KZMClass& /*item*/)
{
    return {.Key = method.MethodName,
            .Text = method.MethodName,
            .Second = SecondOf(method),
            .Icon = std::string(IconOf(method))};
}

MemberRow RowOf(const ttcEvent& event, const KZMClass& /*item*/)
{
    return {
        .Key = event.EventName, .Text = event.EventName, .Second = {}, .Icon = event.PlusEvent ? "EventPlus" : "Event"};
}

} // namespace veldrane
