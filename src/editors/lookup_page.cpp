#include "editors/lookup_page.h"

#include "datasource/field_statement.h"
#include "datasource/naming.h"
#include "datasource/type_table.h"
#include "editors/property_name.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kForm = "frmFieldProperties";

ListRow Row(std::string_view text, std::string_view icon)
{
    ListRow row;
    row.Key = text;
    row.Text = text;
    row.Icon = icon;
    return row;
}

// The row of a text among those that are free: the one in the text's own letter case before another. Behind the last if
// there is none.
template <class Row, class IsFree>
std::size_t RowOf(const std::vector<Row>& rows, std::string Row::*column, std::string_view text, IsFree&& isFree)
{
    const auto find = [&](const auto& isSame) {
        return std::find_if(rows.begin(), rows.end(),
                            [&](const Row& each) { return isFree(each) && isSame(each.*column, text); });
    };
    auto row = find(std::equal_to<std::string_view>());
    if (row == rows.end())
        row = find(text::EqualFolded);
    return static_cast<std::size_t>(row - rows.begin());
}

std::size_t RowOf(const std::vector<ListRow>& rows, std::string_view text)
{
    return RowOf(rows, &ListRow::Text, text, [](const ListRow&) { return true; });
}

// Selects the text, which is added if it isn't there.
std::size_t Select(std::vector<ListRow>& rows, std::string_view text, std::string_view icon)
{
    const std::size_t row = RowOf(rows, text);
    if (row == rows.size())
        rows.push_back(Row(text, icon));
    return row;
}

} // namespace

LookupPage::LookupPage(const MemberSurroundings& surroundings, std::shared_ptr<const TTCProperty> property)
    : chkUseOuterJoin(property->LookupUseOuterJoin), surroundings_(surroundings), property_(std::move(property))
{
    ShowTables({}, property_->LookupTable);
    ShowFields({});
}

void LookupPage::Load()
{
    if (loaded_)
        return;
    std::vector<ListRow> tables;
    const ReadingEnd end = Read("DisplayTables", [&] { tables = LookupTables(View(), "DisplayTables"); });
    loaded_ = end != ReadingEnd::Cancelled;
    if (end != ReadingEnd::Whole)
        return;
    const Choice before{.Rows = rows_, .Join = JoinField()};
    ShowTables(std::move(tables), table_ == 0 ? "" : TableName());
    if (table_ == 0)
        return;
    ReadFields("DisplayFields");
    TakeOver(before);
}

// What the person chose while a reading had been given up.
void LookupPage::TakeOver(const Choice& before)
{
    std::vector<LookupFieldRow*> left;
    for (LookupFieldRow& row : rows_)
        left.push_back(&row);
    for (const LookupFieldRow& row : before.Rows) {
        const auto same = std::find_if(left.begin(), left.end(),
                                       [&](const LookupFieldRow* each) { return each->FieldName == row.FieldName; });
        if (same == left.end())
            continue;
        (*same)->Ticked = row.Ticked;
        (*same)->PropertyName = row.PropertyName;
        left.erase(same);
    }
    ChooseJoin(before.Join);
}

void LookupPage::ChooseJoin(const std::string& field)
{
    if (const std::size_t row = RowOf(joins_, field); field != kNoLookup && row < joins_.size())
        join_ = row;
}

DataSourceView LookupPage::View() const
{
    return {.ConnectionString = {},
            .Source = surroundings_.Edit.Source,
            .Project = surroundings_.Generated.Project,
            .Settings = surroundings_.UserSettings,
            .Messages = surroundings_.Edit.Messages,
            .Errors = surroundings_.Edit.Errors};
}

LookupPage::ReadingEnd LookupPage::Read(std::string_view routine, const std::function<void()>& reading) const
{
    ReadingEnd end = ReadingEnd::Failed;
    Guarded(surroundings_.Edit.Errors, kForm, routine, [&] { end = ReadFromOpenSource(reading); });
    return end;
}

LookupPage::ReadingEnd LookupPage::ReadFromOpenSource(const std::function<void()>& reading) const
{
    try {
        reading();
        return ReadingEnd::Whole;
    } catch (const ReadingCancelled&) {
        return ReadingEnd::Cancelled;
    } catch (const DataSourceError& error) {
        if (error.Number != data_source_error::kNoOpenConnection)
            throw;
        surroundings_.Edit.Errors.ReportError(
            error,
            {.Mode = 4,
             .Hint =
                 "The DataSource is currently unavailable. Unable to read the tables and fields of a lookup at this time. \r\nYou may continue, but some functionality will be unavailable."});
        return ReadingEnd::Failed;
    }
}

void LookupPage::ShowTables(std::vector<ListRow> tables, const std::string& chosen)
{
    tables.insert(tables.begin(), Row(kNoLookup, ""));
    tables_ = std::move(tables);
    if (!property_->LookupTable.empty())
        static_cast<void>(Select(tables_, property_->LookupTable, "Table"));
    table_ = chosen.empty() ? 0 : Select(tables_, chosen, "Table");
    typedTable_ = TableName();
}

void LookupPage::cmbTable_Click(std::size_t row)
{
    if (row >= tables_.size())
        return;
    typedTable_ = tables_[row].Text;
    if (row == table_ && fieldsRead_)
        return;
    LeaveTable();
    table_ = row;
    ShowFields({});
    if (table_ != 0)
        ReadFields("cmbTable_Click");
}

void LookupPage::LeaveTable()
{
    if (std::exchange(fieldsRead_, false))
        left_[TableName()] = {.Rows = rows_, .Join = JoinField()};
}

void LookupPage::cmbTable_Change(std::string typed)
{
    typedTable_ = std::move(typed);
}

// Where there is no lookup, nothing in its place means none, too; a lookup is given up by choosing none.
std::size_t LookupPage::TypedRow() const
{
    return typedTable_.empty() && table_ == 0 ? 0 : RowOf(tables_, typedTable_);
}

bool LookupPage::ChooseTypedTable()
{
    const std::size_t before = table_;
    const std::size_t row = TypedRow();
    if (row != before)
        cmbTable_Click(row);
    else
        typedTable_ = TableName();
    return table_ != before;
}

std::optional<Question> LookupPage::TableRefusal() const
{
    if (TypedRow() == tables_.size())
        return Question{.Title = "Invalid Lookup Table",
                        .Text = "No table or view of this name is listed. Please choose one from the list.",
                        .Icon = MessageIcon::Warning};
    return MakesLookup() ? NotWritable(TableName(), surroundings_.Edit.CodePage) : std::nullopt;
}

std::optional<Question> LookupPage::JoinRefusal() const
{
    return MakesLookup() ? NotWritable(JoinField(), surroundings_.Edit.CodePage) : std::nullopt;
}

void LookupPage::ReadFields(std::string_view routine)
{
    std::vector<CatalogField> fields;
    fieldsRead_ = Read(routine, [&] { fields = FieldsOf(TableName()); }) == ReadingEnd::Whole;
    if (!fieldsRead_)
        return;
    ShowFields(fields);
    TickAgain();
}

// Unless the table has other fields by now.
void LookupPage::TickAgain()
{
    const auto left = left_.find(TableName());
    const auto isSame = [](const LookupFieldRow& before, const LookupFieldRow& now) {
        return before.FieldName == now.FieldName;
    };
    if (left == left_.end())
        return;
    const std::vector<LookupFieldRow>& rows = left->second.Rows;
    if (!std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(), isSame))
        return;
    rows_ = rows;
    ChooseJoin(left->second.Join);
}

// Not every data source knows brackets.
std::vector<CatalogField> LookupPage::FieldsOf(const std::string& table) const
{
    Catalog& source = OpenSource(surroundings_.Edit.Source);
    try {
        return source.Fields(FieldStatementOf("[" + table + "]"));
    } catch (const DataSourceError&) {
        return source.Fields(FieldStatementOf(table));
    }
}

void LookupPage::ShowFields(const std::vector<CatalogField>& fields)
{
    ShowJoins(fields);
    rows_.clear();
    for (const CatalogField& field : fields)
        if (!field.IsAutoIncrement)
            rows_.push_back({.FieldName = field.Name,
                             .PropertyName = text::Without(MakeValidName(field.Name), "_"),
                             .DataType = std::string(VBTypeOfADOType(field.Type))});
    if (IsPresentTable())
        AddPresentFields();
}

void LookupPage::ShowJoins(const std::vector<CatalogField>& fields)
{
    joins_ = {Row(kNoLookup, "")};
    for (const CatalogField& field : fields)
        if (field.IsAutoIncrement)
            joins_.push_back(Row(field.Name, "IdentityCol"));
    join_ = joins_.size() > 1 ? 1 : 0;
    if (IsPresentTable() && !property_->LookupJoinField.empty())
        join_ = Select(joins_, property_->LookupJoinField, "Field");
}

bool LookupPage::IsPresentTable() const
{
    return table_ != 0 && RowOf(tables_, property_->LookupTable) == table_;
}

bool LookupPage::IsPresentJoin() const
{
    return join_ != 0 && RowOf(joins_, property_->LookupJoinField) == join_;
}

// Alias and type are what they were made when the field was chosen. A field that the table does not give, or gives once
// and the lookup twice, stands behind the others.
void LookupPage::AddPresentFields()
{
    for (const TTCLookupField& field : property_->TTCLookupFields) {
        const LookupFieldRow present{.FieldName = field.FieldName,
                                     .PropertyName = field.PropertyName,
                                     .DataType = field.FieldDataType,
                                     .Ticked = true};
        const std::size_t row = RowOf(rows_, &LookupFieldRow::FieldName, field.FieldName,
                                      [](const LookupFieldRow& each) { return !each.Ticked; });
        if (row == rows_.size())
            rows_.push_back(present);
        else
            rows_[row] = present;
    }
}

void LookupPage::cmbField_Click(std::size_t row)
{
    if (row < joins_.size())
        join_ = row;
}

void LookupPage::lstFields_ItemCheck(const std::vector<std::size_t>& rows, bool ticked)
{
    for (const std::size_t row : rows)
        if (row < rows_.size())
            rows_[row].Ticked = ticked;
}

void LookupPage::lstFields_AfterLabelEdit(std::size_t row, const std::string& alias)
{
    if (row >= rows_.size())
        return;
    ClassEdit& edit = surroundings_.Edit;
    rows_[row].PropertyName = SpellingRefusal(alias, edit.CodePage) ? alias : MakeValidName(alias, edit.Messages);
}

bool LookupPage::MakesLookup() const
{
    return table_ != 0 && join_ != 0;
}

// Free are the aliases that the property has now, and the name that it gives up: unless another member goes by them.
bool LookupPage::IsAliasTaken(std::size_t row, std::string_view propertyName) const
{
    const KZMClass& item = surroundings_.Edit.Class;
    const std::string& alias = rows_[row].PropertyName;
    if (text::EqualFolded(alias, propertyName))
        return true;
    for (std::size_t other = 0; other < rows_.size(); ++other)
        if (other != row && rows_[other].Ticked && text::EqualFolded(rows_[other].PropertyName, alias))
            return true;
    return item.TTCMembers.Contains(alias) && !IsOwnName(item, *property_, alias);
}

std::optional<Question> LookupPage::AliasRefusal(std::size_t row, std::string_view propertyName) const
{
    if (!MakesLookup() || row >= rows_.size() || !rows_[row].Ticked)
        return std::nullopt;
    const ClassEdit& edit = surroundings_.Edit;
    const std::string& alias = rows_[row].PropertyName;
    if (auto refusal = AliasSpellingRefusal(alias, edit.CodePage))
        return refusal;
    if (IsAliasTaken(row, propertyName))
        return NameTaken(alias, PropertyNameRules(edit, ""));
    return NotWritable(rows_[row].FieldName, edit.CodePage);
}

std::string LookupPage::Trouble(std::size_t row, std::string_view propertyName) const
{
    const auto refusal = AliasRefusal(row, propertyName);
    return refusal ? refusal->Text : std::string();
}

std::string LookupPage::JoinTrouble() const
{
    if (table_ == 0 || join_ != 0)
        return {};
    if (!fieldsRead_)
        return "The fields of '" + TableName() +
               "' were not read: the lookup stays as it was. Choose the table again to read them.";
    return "No identity field of '" + TableName() + "' is chosen to join it by: the lookup stays as it was.";
}

std::optional<Question> LookupPage::FieldsRefusal(std::string_view propertyName) const
{
    std::optional<Question> refusal;
    for (std::size_t row = 0; row < rows_.size() && !refusal; ++row)
        refusal = AliasRefusal(row, propertyName);
    return refusal;
}

void LookupPage::Store(KZMClass& item, TTCProperty& property) const
{
    const bool goes = table_ == 0 && !property.LookupTable.empty();
    if (!goes && !MakesLookup())
        return;
    StoreJoin(property);
    StoreFields(item, property);
}

void LookupPage::StoreJoin(TTCProperty& property) const
{
    const bool goes = table_ == 0;
    const std::string table = IsPresentTable() ? property.LookupTable : TableName();
    const std::string join = IsPresentTable() && IsPresentJoin() ? property.LookupJoinField : JoinField();
    property.LookupTable = goes ? "" : table;
    property.LookupJoinField = goes ? "" : join;
    property.LookupUseOuterJoin = !goes && chkUseOuterJoin;
}

void LookupPage::StoreFields(KZMClass& item, TTCProperty& property) const
{
    std::vector<std::string> before;
    for (const TTCLookupField& field : property.TTCLookupFields)
        before.push_back(field.PropertyName);
    property.TTCLookupFields.Clear();
    for (const std::string& alias : before)
        ReleaseName(item, alias);
    for (const LookupFieldRow& row : rows_)
        if (row.Ticked && item.TTCMembers.Add(row.PropertyName, row.PropertyName))
            property.TTCLookupFields.Add(row.FieldName, row.DataType, row.PropertyName, row.PropertyName);
}

} // namespace veldrane
