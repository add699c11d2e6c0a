#include "datasource/table_to_class.h"

#include "datasource/builtin_members.h"
#include "datasource/class_names.h"
#include "datasource/collection_rule.h"
#include "datasource/naming.h"
#include "datasource/parent_relationships.h"
#include "datasource/table_keys.h"

#include <memory>
#include <string>
#include <unordered_set>

namespace veldrane {
namespace {

void NameAfterTable(ClassEdit& edit)
{
    edit.Class.ClassName = ClassNameOfTable(edit.Class.TableName, edit.Messages);
    edit.Class.CollectionName = CollectionNameOfTable(edit.Class.TableName, edit.Messages);
}

// Without its table a class is not worth any more members; without the data source it can still be edited.
bool EndsBuilding(BuildOutcome outcome)
{
    return outcome == BuildOutcome::TableRenamed || outcome == BuildOutcome::TableDeleted ||
           outcome == BuildOutcome::Cancelled;
}

bool StandsOnFields(const TTCKey& key, const KZMClass& item)
{
    std::unordered_set<std::string_view> fields;
    for (const TTCProperty& property : item.TTCProperties)
        fields.insert(property.FieldName);
    for (const TTCColumn& column : key.TTCColumns)
        if (!fields.contains(column.ColumnName))
            return false;
    return key.TTCColumns.Count() > 0;
}

// Gives back a primary key that the table does not tell, as one set by hand.
void KeepPrimaryKey(const std::shared_ptr<TTCKey>& before, KZMClass& item)
{
    if (before && !FirstKey(item, key_type::kPrimaryKey) && StandsOnFields(*before, item))
        item.TTCKeys.AddExisting(before, KeyTypeText(key_type::kPrimaryKey));
}

} // namespace

BuildOutcome OutcomeOf(FieldsOutcome fields)
{
    switch (fields) {
    case FieldsOutcome::Read:
        return BuildOutcome::Built;
    case FieldsOutcome::TableRenamed:
        return BuildOutcome::TableRenamed;
    case FieldsOutcome::TableDeleted:
        return BuildOutcome::TableDeleted;
    case FieldsOutcome::Cancelled:
        return BuildOutcome::Cancelled;
    case FieldsOutcome::SourceUnavailable:
        return BuildOutcome::SourceUnavailable;
    case FieldsOutcome::Failed:
        break;
    }
    return BuildOutcome::Failed;
}

void InitialiseClass(ClassEdit& edit, const NewClass& request)
{
    KZMClass& item = edit.Class;
    item.TableName = request.TableName;
    item.ParentClassName = request.ParentClassName == kNotApplicable ? std::string{} : request.ParentClassName;
    item.ReadOnly = request.Access == ClassAccess::ReadOnly;
    if (item.TableName.empty()) {
        item.ClassName = "NewClass";
        item.CollectionName = "NewClasses";
        item.IsDomainTable = false;
        item.CreateCollection = true;
    } else {
        NameAfterTable(edit);
        item.IsDomainTable = request.Place == Placement::Lookup;
        item.CreateCollection = !item.ParentClassName.empty();
    }
    if (item.CreateCollection)
        ChangeCollectionBox(item, CollectionBox::Ticked, Buttons::OkCancel, edit.Messages);
}

BuildOutcome BuildClass(ClassEdit& edit, const NewClass& request, const KZMClasses& classes)
{
    if (!FitsProject(request.TableName, edit.CodePage, edit.Messages))
        return BuildOutcome::NameRefused;
    InitialiseClass(edit, request);
    return FillClass(edit, classes);
}

BuildOutcome FillClass(ClassEdit& edit, const KZMClasses& classes)
{
    const BuildOutcome outcome = OutcomeOf(AddFieldsAsProperties(edit));
    if (EndsBuilding(outcome))
        return outcome;
    if (const auto parent = classes.Item(edit.Class.ParentClassName))
        RetrieveParentRelationships(edit, parent->TableName);
    AcceptDefaultMembers(edit);
    return outcome;
}

FieldsOutcome RefreshClass(ClassEdit& edit)
{
    const std::shared_ptr<TTCKey> before = FirstKey(edit.Class, key_type::kPrimaryKey);
    const FieldsOutcome outcome = AddFieldsAsProperties(edit);
    KeepPrimaryKey(before, edit.Class);
    return outcome;
}

bool RefreshRelationships(ClassEdit& edit, const std::string& parentTable)
{
    const std::shared_ptr<TTCKey> before = FirstKey(edit.Class, key_type::kPrimaryKey);
    const bool joined = RetrieveParentRelationships(edit, parentTable);
    KeepPrimaryKey(before, edit.Class);
    AddIdentityKey(edit.Class);
    return joined;
}

bool MoveClassUnder(ClassEdit& edit, const KZMClass& parent)
{
    edit.Class.TTCRelationships.Clear();
    edit.Class.IsDomainTable = false;
    edit.Class.ParentClassName = parent.ClassName;
    // Without a data source that there are no keys to read says nothing new beside that there are no relationships.
    edit.KeysFailed = edit.KeysFailed || edit.Source == nullptr;
    return RefreshRelationships(edit, parent.TableName);
}

std::string_view AccessText(const KZMClass& item)
{
    return item.ReadOnly ? "This class is Read Only." : "This class is Updatable.";
}

} // namespace veldrane
