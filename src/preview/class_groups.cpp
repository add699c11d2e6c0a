#include "preview/preview_emitter.h"
#include "preview/views.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

// A line about a class in its group.
struct GroupedClassScope : ListedClassScope
{};

// A line about a column of a key.
struct KeyColumnScope
{
    const TTCColumn& Column;
};

// A line about the group as a whole.
struct GroupScope
{
    std::size_t ClassCount = 0;
    std::size_t PropertyCount = 0;
    std::size_t MethodCount = 0;
    std::size_t EventCount = 0;
};

} // namespace

template <>
inline constexpr auto
    Vocabulary<GroupedClassScope> = JoinVocabularies(std::to_array<Placeholder<GroupedClassScope>>({
                                                         {"TableName", [](std::string& line, const GroupedClassScope& s) { line += s.Class.TableName; }},
                                                         {"ParentClassName", [](std::string& line, const GroupedClassScope& s) { line += s.Class.ParentClassName; }},
                                                         {"IncludeAddExisting", [](std::string& line, const GroupedClassScope& s) { line += text::TextOf(s.Class.IncludeAddExisting); }},
                                                         {"CollectionAddNewKey", [](std::string& line, const GroupedClassScope& s) { line += text::TextOf(s.Class.CollectionAddNewKey); }},
                                                     }),
                                                     InheritedVocabulary<GroupedClassScope, ListedClassScope>());

template <>
inline constexpr auto Vocabulary<KeyColumnScope> = std::to_array<Placeholder<KeyColumnScope>>({
    {"ColumnName", [](std::string& line, const KeyColumnScope& s) { line += s.Column.ColumnName; }},
    {"ColumnDataType", [](std::string& line, const KeyColumnScope& s) { line += s.Column.ColumnDataType; }},
});

template <>
inline constexpr auto Vocabulary<GroupScope> = std::to_array<Placeholder<GroupScope>>({
    {"ClassCount", [](std::string& line, const GroupScope& s) { line += std::to_string(s.ClassCount); }},
    {"PropertyCount", [](std::string& line, const GroupScope& s) { line += std::to_string(s.PropertyCount); }},
    {"MethodCount", [](std::string& line, const GroupScope& s) { line += std::to_string(s.MethodCount); }},
    {"EventCount", [](std::string& line, const GroupScope& s) { line += std::to_string(s.EventCount); }},
});

namespace {

struct ClassGroup
{
    NodeType Type;
    TemplateLine<GroupScope> Heading;
    bool (*Takes)(const KZMClass& item);
};

constexpr auto kGroups = std::to_array<ClassGroup>({
    {NodeType::ParentClasses, "Parent/Children Classes Summary", [](const KZMClass& item) { return !item.TableName.empty() && !item.IsDomainTable; }},
    {NodeType::LookupClasses, "Lookup/Domain Classes Summary", [](const KZMClass& item) { return !item.TableName.empty() && item.IsDomainTable; }},
    {NodeType::AdditionalClasses, "Additional Classes/Collections Summary", [](const KZMClass& item) { return item.TableName.empty() && !item.IsMTSRequiredClass; }},
});

void ListKeys(const PreviewEmitter<GroupedClassScope>& emit)
{
    const TTCKeys& keys = emit.Scope().Class.TTCKeys;
    if (keys.Count() == 0)
        return;
    emit("    {TableName} Keys:");
    for (const TTCKey& key : keys) {
        if (key.KeyType == key_type::kIdentityColumn)
            emit("    Key Type: Identity Column", LineClass::Key, preview_icon::kFieldAuto);
        else
            emit("    Key Type: Primary/Unique Key", LineClass::Key, preview_icon::kFieldKey);
        for (const TTCColumn& column : key.TTCColumns) {
            const KeyColumnScope scope{column};
            emit.About(scope)("            Column Name: {ColumnName} as {ColumnDataType}");
        }
    }
}

void DescribeClass(const PreviewEmitter<GroupedClassScope>& emit)
{
    const KZMClass& item = emit.Scope().Class;
    emit("Class Name:  {ClassName}", LineClass::Head, preview_icon::kClass);
    if (!item.TableName.empty())
        emit("    Source Table Name: {TableName}");
    if (item.CreateCollection) {
        emit("    Create a Collection Based on this class: {True}");
        emit("    Collection Name: {CollectionName}", preview_icon::kCollection);
        emit("    Include AddExisting Method in Collection: {IncludeAddExisting}");
        emit("    Include LastNewKey Property in Collection: {CollectionAddNewKey}");
    }
    if (!item.ParentClassName.empty())
        emit("    Parent Class Name: {ParentClassName}");
    if (item.RetrieveByIdentityCol)
        emit("    Retrieve Records By: Identity Column Value");
    if (item.RetrieveByPrimaryKey)
        emit("    Retrieve Records By: Primary Key Value");
    ListKeys(emit);
    emit("");
}

} // namespace

void ShowClassGroup(const View& view)
{
    const auto* const group = std::find_if(kGroups.begin(), kGroups.end(), [&](const ClassGroup& row) { return row.Type == view.Node.Type; });
    GroupScope totals;
    const PreviewEmitter<GroupScope> emit(view.AddBlock(), totals);
    emit(group->Heading, LineClass::Head);
    emit("");
    for (const KZMClass& item : view.Source.Classes) {
        if (!group->Takes(item))
            continue;
        const GroupedClassScope scope{{view.Scope(), item}};
        DescribeClass(emit.About(scope));
        ++totals.ClassCount;
        totals.PropertyCount += item.TTCProperties.Count();
        totals.MethodCount += item.TTCMethods.Count();
        totals.EventCount += item.TTCEvents.Count();
    }
    emit("Total Number of Classes in this category: {ClassCount}");
    emit("Total Number of Properties in this category: {PropertyCount}");
    emit("Total Number of Methods in this category: {MethodCount}");
    emit("Total Number of Events in this category: {EventCount}");
}

} // namespace veldrane
