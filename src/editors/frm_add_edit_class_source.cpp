#include "editors/frm_add_edit_class.h"

#include "datasource/table_fields.h"
#include "model/working_copy.h"

#include <algorithm>
#include <utility>

// What the editor of a class reads from the data source.
namespace veldrane {

namespace {

bool EndsEditing(BuildOutcome outcome)
{
    return outcome == BuildOutcome::TableDeleted || outcome == BuildOutcome::Cancelled ||
           outcome == BuildOutcome::NameRefused;
}

} // namespace

bool frmAddEditClass::Load()
{
    bool opens = false;
    Guarded(world_.Names.Errors, kClassEditorModule, "Form_Load", [&] { opens = ReadClass(); });
    if (!opens)
        return false;
    form_ = FormOf(*class_);
    DisplayAll();
    return true;
}

bool frmAddEditClass::ReadClass()
{
    if (mode_ == ClassMode::Add)
        return ReadNewClass();
    if (mode_ == ClassMode::Move)
        ReadMovedClass();
    else
        ReadTable();
    return !EndsEditing(outcome_);
}

// Where the data source can't be reached there would be nothing to edit.
bool frmAddEditClass::ReadNewClass()
{
    return Read(request_.TableName, [&](ClassEdit& edit) {
        const BuildOutcome outcome = BuildClass(edit, request_, world_.Names.Classes);
        const bool goesOn = Follow(outcome, edit);
        isFilled_ = outcome != BuildOutcome::TableRenamed;
        return goesOn;
    });
}

// The place is the person's choice already, so it holds whether the data source can be read or not.
void frmAddEditClass::ReadMovedClass()
{
    class_->TTCRelationships.Clear();
    class_->IsDomainTable = request_.Place == Placement::Lookup;
    class_->ParentClassName = request_.ParentClassName == kNotApplicable ? std::string{} : request_.ParentClassName;
    class_->TableName = request_.TableName;
    const auto parent = world_.Names.Classes.Item(class_->ParentClassName);
    Read(class_->TableName, [&](ClassEdit& edit) {
        const BuildOutcome outcome =
            edit.Source == nullptr ? BuildOutcome::SourceUnavailable : OutcomeOf(RefreshClass(edit));
        if (parent != nullptr && (outcome == BuildOutcome::Built || edit.Source == nullptr)) {
            MoveClassUnder(edit, *parent);
            edit.Class.IsDomainTable = class_->IsDomainTable;
        }
        return Follow(outcome, edit);
    });
}

// What the class got from the table before stays where the data source can't be read.
bool frmAddEditClass::ReadTable()
{
    const bool joinsAnew = mode_ == ClassMode::Move && AwaitsTable();
    return Read(class_->TableName, [&](ClassEdit& edit) {
        const BuildOutcome outcome = isFilled_ ? OutcomeOf(RefreshClass(edit)) : FillClass(edit, world_.Names.Classes);
        if (joinsAnew && outcome == BuildOutcome::Built)
            RefreshRelationships(edit, ParentTable());
        const bool goesOn = Follow(outcome, edit);
        isFilled_ = isFilled_ || outcome == BuildOutcome::Built;
        return goesOn && isFilled_;
    });
}

// What OK waits for: the table under the name that was typed, and the first members of a new class.
bool frmAddEditClass::ReadTypedTable()
{
    if (!AwaitsTable() && isFilled_)
        return true;
    if (const std::string trouble = Trouble(ClassField::TableName); !trouble.empty()) {
        Asking().Tell("Invalid Table Name", trouble, MessageIcon::Warning);
        GoTo(NameCheck::TableNameRefused);
        return false;
    }
    const bool isRead = ReadTable() && !AwaitsTable();
    DisplayAll();
    return isRead;
}

// Works on a copy, so that a reading which ends early leaves nothing behind. A class without a table reads nothing.
bool frmAddEditClass::Read(const std::string& table, const std::function<bool(ClassEdit& edit)>& read)
{
    const ProjectNames& names = world_.Names;
    std::unique_ptr<Catalog> source;
    if (!table.empty() &&
        !Guarded(names.Errors, kClassEditorModule, "OpenCatalog", [&] { source = world_.OpenCatalog(); }))
        return false;
    const std::shared_ptr<KZMClass> copy = WorkingCopy(*class_);
    ClassEdit edit{.Class = *copy,
                   .Source = source.get(),
                   .Messages = names.Messages,
                   .Errors = names.Errors,
                   .CodePage = names.CodePage,
                   .KeysFailed = keysFailed_};
    if (!read(edit))
        return false;
    keysFailed_ = edit.KeysFailed;
    class_ = copy;
    return true;
}

// Whether the class goes on with what was read. A reading that the person ends changes nothing: what is not sure to
// come to its end comes first.
bool frmAddEditClass::Follow(BuildOutcome outcome, ClassEdit& edit)
{
    if (outcome == BuildOutcome::Built)
        ReadJoins(edit);
    outcome_ = outcome;
    tableIsTyped_ = tableIsTyped_ || AwaitsTable();
    if (AwaitsTable())
        GoTo(ClassTab::Class, "txtTableName");
    if (EndsEditing(outcome))
        CloseWanted.Raise();
    return !EndsEditing(outcome);
}

std::string frmAddEditClass::ParentTable() const
{
    const auto parent = world_.Names.Classes.Item(class_->ParentClassName);
    return parent == nullptr ? std::string{} : parent->TableName;
}

void frmAddEditClass::ReadJoins(ClassEdit& edit)
{
    const auto parent = world_.Names.Classes.Item(edit.Class.ParentClassName);
    if (parent != nullptr && !parent->TableName.empty() && !edit.Class.TableName.empty())
        joinFields_ = ReadJoinFields(edit, parent->TableName);
}

void frmAddEditClass::GetNewFields()
{
    if (!ReadTable() || outcome_ != BuildOutcome::Built)
        return;
    DisplayAll();
    Modify();
}

void frmAddEditClass::GetNewRelationships()
{
    const bool isRead = Read(class_->TableName, [&](ClassEdit& edit) {
        if (!RefreshRelationships(edit, ParentTable()))
            return false;
        ReadJoins(edit);
        return true;
    });
    if (!isRead)
        return;
    DisplayAll();
    Modify();
}

namespace {

constexpr std::string_view kRefreshOne =
    " will delete this field/property and re-add it to this class using the properties of the corresponding database field. ";
constexpr std::string_view kRefreshSeveral =
    " will delete these fields/properties and re-add them to this class using the properties of each corresponding database field. ";

std::string RefreshQuestion(const PropertyItems& properties)
{
    std::string names;
    for (const auto& property : properties)
        names += (names.empty() ? "" : ", ") + property->PropertyName;
    return "Refreshing " + names + std::string(properties.size() == 1 ? kRefreshOne : kRefreshSeveral) +
           "\r\nAny customized settings and/or lookups will be lost and this action cannot be undone.\r\nClick Ok to refesh, or Cancel to abort.";
}

void RemoveFieldProperty(KZMClass& item, const std::string& fieldName)
{
    for (std::size_t position = item.TTCProperties.Count(); position >= 1; --position)
        if (item.TTCProperties.Item(position)->FieldName == fieldName)
            RemoveProperty(item, position);
}

bool StandsOn(const KZMClass& item, const std::string& fieldName)
{
    return std::any_of(item.TTCProperties.begin(), item.TTCProperties.end(),
                       [&](const TTCProperty& property) { return property.FieldName == fieldName; });
}

} // namespace

// A field whose name is in use meanwhile, which was told, would be gone: nothing is refreshed then.
void frmAddEditClass::RefreshField()
{
    const PropertyItems properties = Picked(ClassList::lstProperties, FieldPropertiesOf(*class_));
    if (!Confirms("Refresh Field", RefreshQuestion(properties)))
        return;
    const bool isRead = Read(class_->TableName, [&](ClassEdit& edit) {
        for (const auto& property : properties)
            RemoveFieldProperty(edit.Class, property->FieldName);
        const BuildOutcome outcome = OutcomeOf(RefreshClass(edit));
        const bool areThere = std::all_of(properties.begin(), properties.end(), [&](const auto& property) {
            return StandsOn(edit.Class, property->FieldName);
        });
        if (edit.FieldLeftOut && !areThere)
            return false;
        return Follow(outcome, edit) && outcome == BuildOutcome::Built;
    });
    if (!isRead)
        return;
    DisplayAll();
    Modify();
}

} // namespace veldrane
