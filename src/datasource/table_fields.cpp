#include "datasource/table_fields.h"

#include "datasource/ado_types.h"
#include "datasource/field_statement.h"
#include "datasource/naming.h"
#include "datasource/table_keys.h"
#include "datasource/type_table.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace veldrane {
namespace {

constexpr std::string_view kRoutine = "AddFieldsAsProperties";

// Characters of a GUID with its braces.
constexpr std::int32_t kGuidLength = 38;

bool AllowsNull(const CatalogField& field)
{
    return !field.IsAutoIncrement &&
           (field.Attributes & (field_attribute::kMayBeNull | field_attribute::kIsNullable)) != 0;
}

NewProperty PropertyOf(const CatalogField& field, const KZMClass& item, const std::string& name)
{
    const std::int32_t code = ADOTypeToVBTypeCode(field.Type);
    const bool isText = code == vb_type::kString;
    const std::int32_t length = field.Type == adGUID ? kGuidLength : field.DefinedSize;
    return {.ReadOnly = item.ReadOnly,
            .AddToClass = true,
            .FieldAllowsNull = AllowsNull(field),
            .FieldName = field.Name,
            .FieldDataType = std::string(ADOTypeDisplayName(field.Type)),
            .FieldIsIdentityCol = field.IsAutoIncrement,
            .PropertyName = name,
            .DataType = std::string(VBTypeCodeName(code)),
            .Scope = "Public",
            .DefaultProperty = false,
            .AttributeDescription = {},
            .PropertyGet = true,
            .PropertyLetSet = !field.IsAutoIncrement,
            .EnforceMaxLength = isText,
            .MaxLength = isText ? length : 0,
            .DisplayTruncationMessage = isText,
            .LookupTable = {},
            .LookupJoinField = {},
            .LookupUseOuterJoin = false,
            .PlusProperty = false,
            .TTCLookupFields = {}};
}

// The properties of a class by the fields that they stand on, so that a wide table costs one walk. Fields are told
// apart letter by letter.
using PropertiesByField = std::unordered_map<std::string, TTCProperty*>;

PropertiesByField IndexByField(const KZMClass& item)
{
    PropertiesByField index;
    for (TTCProperty& property : item.TTCProperties)
        if (!property.FieldName.empty())
            index.try_emplace(property.FieldName, &property);
    return index;
}

void AddField(ClassEdit& edit, const CatalogField& field, PropertiesByField& index)
{
    if (!FitsProject(field.Name, edit.CodePage, edit.Messages)) {
        edit.FieldLeftOut = true;
        return;
    }
    const std::string name = MakeMemberName(field.Name, edit.Messages);
    if (edit.Class.TTCProperties.Contains(name) || !edit.Class.TTCMembers.Add(name, name)) {
        edit.Messages.Tell("Duplicate Property Name",
                           "The field name '" + field.Name + "' conflicts with an existing property in the " +
                               edit.Class.ClassName + " class. This field cannot be added as a property at this time.",
                           MessageIcon::Information);
        edit.FieldLeftOut = true;
        return;
    }
    const auto property = edit.Class.TTCProperties.Add(PropertyOf(field, edit.Class, name), name);
    property->FieldAllowsNull = AllowsNull(field); // the collection drops it
    index.try_emplace(field.Name, property.get());
}

void FreeName(TTCMembers& names, const std::string& name)
{
    if (names.Contains(name))
        names.Remove(name);
}

void Prune(KZMClass& item, const std::vector<CatalogField>& fields)
{
    std::unordered_set<std::string_view> names;
    for (const CatalogField& field : fields)
        names.insert(field.Name);
    for (std::size_t position = item.TTCProperties.Count(); position >= 1; --position) {
        const auto property = item.TTCProperties.Item(position);
        if (property->FieldName.empty() || names.contains(property->FieldName))
            continue;
        RemoveProperty(item, position);
    }
}

void FollowTable(ClassEdit& edit)
{
    const std::vector<CatalogField> fields = OpenSource(edit.Source).Fields(FieldStatement(edit.Class.TableName));
    PropertiesByField index = IndexByField(edit.Class);
    for (const CatalogField& field : fields)
        if (const auto existing = index.find(field.Name); existing != index.end())
            existing->second->FieldAllowsNull = AllowsNull(field);
        else
            AddField(edit, field, index);
    Prune(edit.Class, fields);
    RetrieveTableKeys(edit);
}

FieldsOutcome AskAboutMissingTable(ClassEdit& edit)
{
    const Answer answer = edit.Messages.Ask(
        {.Title = "Table Missing",
         .Text =
             "The table named '" + edit.Class.TableName +
             "' cannot be found. Has this table been renamed?\r\nClick 'Yes' if the table has been renamed and you know what the new name is.\r\nClick 'No' if the table has been deleted\r\nClick 'Cancel' to cancel this operation.",
         .Offered = Buttons::YesNoCancel,
         .Icon = MessageIcon::Question,
         .Default = Answer::Cancel});
    if (answer == Answer::Yes)
        return FieldsOutcome::TableRenamed;
    if (answer != Answer::No)
        return FieldsOutcome::Cancelled;
    edit.Messages.Tell("", "To Delete this class, right click on it and select 'Delete Class'",
                       MessageIcon::Information);
    return FieldsOutcome::TableDeleted;
}

FieldsOutcome HandleFailure(ClassEdit& edit, const RuntimeError& error)
{
    if (error.Number == data_source_error::kTableUnknown)
        return AskAboutMissingTable(edit);
    if (error.Number == data_source_error::kNoOpenConnection) {
        edit.Errors.ReportError(
            error,
            {.Mode = 4,
             .Hint =
                 "The DataSource is currently unavailable. Unable to add new DataSource fields as properties at this time. \r\nYou may continue, but some functionality will be unavailable."});
        return FieldsOutcome::SourceUnavailable;
    }
    edit.Errors.ReportError(error,
                            {.ModuleName = std::string(kClassEditorModule), .RoutineName = std::string(kRoutine)});
    return FieldsOutcome::Failed;
}

} // namespace

// Removes by position: a property that was renamed still stands under its first name.
void RemoveProperty(KZMClass& item, std::size_t position)
{
    const auto property = item.TTCProperties.Item(position);
    for (const TTCLookupField& lookup : property->TTCLookupFields)
        FreeName(item.TTCMembers, lookup.PropertyName);
    FreeName(item.TTCMembers, property->PropertyName);
    item.TTCProperties.Remove(position);
}

FieldsOutcome AddFieldsAsProperties(ClassEdit& edit)
{
    if (edit.Class.TableName.empty())
        return FieldsOutcome::Read;
    try {
        FollowTable(edit);
        return FieldsOutcome::Read;
    } catch (const RuntimeError& error) {
        return HandleFailure(edit, error);
    }
}

} // namespace veldrane
