#include "editors/frm_add_edit_class.h"

#include <algorithm>
#include <utility>

// The tab on which a class is joined to its parent.
namespace veldrane {
namespace {

std::vector<MemberRow> FieldRows(const std::vector<JoinField>& fields)
{
    std::vector<MemberRow> rows;
    rows.reserve(fields.size());
    for (const JoinField& field : fields)
        rows.push_back({.Key = field.ColumnName, .Text = field.ColumnName, .Second = field.DataType, .Icon = "Field"});
    return rows;
}

} // namespace

bool frmAddEditClass::HasJoinPage() const
{
    return !class_->TableName.empty() && !ParentTable().empty();
}

void frmAddEditClass::DisplayJoins()
{
    Show(ClassList::lstParentFields, FieldRows(joinFields_.Parent));
    Show(ClassList::lstFields, FieldRows(joinFields_.Own));
    std::vector<MemberRow> rows;
    for (JoinRow& row : JoinRows(*class_))
        rows.push_back({.Key = std::move(row.Key), .Text = std::move(row.Text), .Second = {}, .Icon = {}});
    Show(ClassList::lstJoins, std::move(rows));
}

void frmAddEditClass::cmdAddRelationship_Click()
{
    if (IsEnabled("cmdAddRelationship"))
        Guarded(world_.Names.Errors, kClassEditorModule, "cmdAddRelationship_Click", [&] { AddRelationship(); });
}

void frmAddEditClass::AddRelationship()
{
    const JoinField& parent = joinFields_.Parent.at(Selected(ClassList::lstParentFields).front());
    const JoinField& own = joinFields_.Own.at(Selected(ClassList::lstFields).front());
    if (parent.DataType != own.DataType &&
        !Confirms("Data Type Mismatch", "Warning: The Data Type of the Parent Field is '" + parent.DataType +
                                            "' and the related field Data Type in this class is '" + own.DataType +
                                            "'.\r\nAre you sure you want to create a mismatched join?"))
        return;
    const std::string parentTable = ParentTable();
    const std::string key = parentTable + ":" + parent.ColumnName + "=" + class_->TableName + ":" + own.ColumnName;
    if (class_->TTCRelationships.Contains(key)) {
        Asking().Tell("Duplicate Relationship", "Unable to add relationship. The relationship already exists.",
                      MessageIcon::Warning);
        return;
    }
    Columns columns;
    columns.Add(parent.ColumnName, parent.DataType, own.ColumnName, parent.ColumnName);
    class_->TTCRelationships.Add(key, parentTable, std::move(columns), key);
    DisplayJoins();
    Modify();
}

// A row is a column; what is deleted is the whole relationship, once.
void frmAddEditClass::DeleteRelationship()
{
    std::vector<std::string> names;
    const std::vector<JoinRow> joins = JoinRows(*class_);
    for (const std::size_t row : Selected(ClassList::lstJoins))
        if (std::find(names.begin(), names.end(), joins.at(row).KeyName) == names.end())
            names.push_back(joins.at(row).KeyName);
    for (const std::string& name : names) {
        if (!Confirms("Confirm Delete Relationship",
                      "Are you sure you want to delete the '" + name + "' Relationship from this class?"))
            return;
        class_->TTCRelationships.Remove(name);
        DisplayJoins();
        Modify();
    }
}

} // namespace veldrane
