#include "datasource/table_lists.h"

#include "datasource/naming.h"
#include "ports/reading_watch.h"
#include "preview/active_parse.h"
#include "text/case_folding.h"
#include "text/conversion.h"
#include "text/strings.h"

#include <cstdint>
#include <optional>
#include <unordered_set>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kModule = "CodeGeneration";

constexpr std::int32_t kDefaultLimit = 3000;
constexpr std::int32_t kManualMode = -1; // the person names the tables; the catalog is not asked
constexpr std::int32_t kAllTables = 0;   // and nothing but the catalog's tables

// Rows with the keys that are in use already.
class RowList
{
  public:
    // False if the key is in use: the row is left out then.
    bool Add(ListRow row)
    {
        if (!keys_.insert(text::Fold(row.Key)).second)
            return false;
        rows_.push_back(std::move(row));
        return true;
    }

    [[nodiscard]] ListRow& Last() { return rows_.back(); }
    [[nodiscard]] std::vector<ListRow>& Rows() { return rows_; }

  private:
    std::vector<ListRow> rows_;
    std::unordered_set<std::string> keys_;
};

ListRow Row(std::string_view key, std::string_view text)
{
    ListRow row;
    row.Key = key;
    row.Text = text;
    return row;
}

ListRow NoDataSourceRow()
{
    return Row(kNoDataSourceKey, "<no datasource defined>");
}

// Without a connection there is nothing to show, and nothing that a person could name by hand.
void RequireSource(const DataSourceView& view)
{
    static_cast<void>(OpenSource(view.Source));
}

// What a data source does not support is passed over, so that it yields shorter lists and no message.
template <class Body>
void PassingOverUnsupported(Body&& body)
{
    try {
        body();
    } catch (const DataSourceError& error) {
        if (error.Number != data_source_error::kNotSupported)
            throw;
    }
}

// Where the person has cancelled the reading, the lists are as far as they were filled.
template <class Body>
void UntilCancelled(Body&& body)
{
    try {
        body();
    } catch (const ReadingCancelled&) {
    }
}

// A settings store that can't be written is reported and keeps no list from being filled.
std::int32_t ReadLimit(const DataSourceView& view, std::string_view name, std::string_view routine)
{
    const std::string value = view.Settings.GetKeyValue(settings_section::kOptions, name);
    if (!text::Trim(value).empty())
        return text::LeadingNumber(value);
    Guarded(view.Errors, kModule, routine,
            [&] { view.Settings.UpdateKey(settings_section::kOptions, name, std::to_string(kDefaultLimit)); });
    return kDefaultLimit;
}

bool ShowsSystemTables(const DataSourceView& view)
{
    return view.Settings.GetKeyValue(settings_section::kOptions, "ShowSystemTables") == "1";
}

bool IsSuspect(const CatalogTable& table)
{
    const std::string name = table.Name.substr(table.SchemaSize);
    ActiveParse parse;
    return !name.empty() &&
           parse.ParseText(name, kTableNameDelimiters, DelimiterMode::ByChar, CaseRule::Sensitive).Count() >= 2;
}

void AddAttachedTables(RowList& rows, const DataSourceView& view, std::string_view icon)
{
    for (const KZMTable& table : view.Project.AttachedTables) {
        ListRow row = Row(table.TableName, table.TableName);
        row.Icon = icon;
        rows.Add(std::move(row));
    }
}

// The icons of the rows that a list has.
struct RowIcons
{
    std::string_view Table;
    std::optional<std::string_view> View{}; // none where views are not listed
};

// None for a table-like object that is not listed.
std::optional<std::string_view> IconOf(const CatalogTable& table, const RowIcons& icons, bool showsSystemTables)
{
    if (table.Type == "TABLE" || (showsSystemTables && table.Type == "SYSTEM TABLE"))
        return icons.Table;
    if (table.Type == "VIEW" || (showsSystemTables && table.Type == "SYSTEM VIEW"))
        return icons.View;
    return std::nullopt;
}

// Calls `shown` for the rows that were added, with the table of each.
template <class Shown>
void AddCatalogTables(RowList& rows, const DataSourceView& view, const RowIcons& icons, std::int32_t limit,
                      Shown&& shown)
{
    const bool showsSystemTables = ShowsSystemTables(view);
    std::int32_t next = 1;
    for (const CatalogTable& table : view.Source->Tables()) {
        if (limit >= 1 && next > limit)
            return;
        const auto icon = IconOf(table, icons, showsSystemTables);
        if (!icon)
            continue;
        ListRow row = Row(table.Name, table.Name);
        row.Icon = *icon;
        row.Tag = table.Name;
        if (!rows.Add(std::move(row)))
            continue;
        ++next;
        shown(rows.Last(), table);
    }
}

// The rows that both the list and the combo box show; they differ in the colours.
template <class Shown>
void AddTableRows(RowList& rows, const DataSourceView& view, std::string_view icon, std::int32_t limit,
                  RowColour commandColour, Shown&& shown)
{
    if (limit != kAllTables) {
        ListRow command = Row(kAddTableKey, "<Add a Table>");
        command.Colour = commandColour;
        rows.Add(std::move(command));
        AddAttachedTables(rows, view, icon);
    }
    if (limit != kManualMode)
        PassingOverUnsupported([&] { AddCatalogTables(rows, view, {.Table = icon}, limit, shown); });
}

// Overloaded procedures share a name and a row.
void AddProcedures(RowList& rows, const DataSourceView& view)
{
    PassingOverUnsupported([&] {
        for (const std::string& name : view.Source->Procedures())
            rows.Add(ProcedureRow(name));
    });
}

void WarnOfSuspectNames(Messages& messages)
{
    messages.Tell(
        "Invalid Characters Detected",
        "Warning: One or more tables have characters in the name that are invalid. They have been highlighted in red.\r\nYou might experience problems with the compiled source code, if you do, rename the table, and edit the old table in your project.",
        MessageIcon::Warning);
}

} // namespace

ListRow ProcedureRow(std::string_view name)
{
    ListRow row = Row(name, name);
    row.Icon = "SP";
    return row;
}

DataSourceLists DisplayDataSourceTables(const DataSourceView& view, std::string_view tableIcon)
{
    constexpr std::string_view kRoutine = "DisplayDataSourceTables";
    if (view.ConnectionString.empty())
        return {{NoDataSourceRow()}, {NoDataSourceRow()}, {NoDataSourceRow()}};
    RowList tables;
    RowList procedures;
    Guarded(view.Errors, kModule, kRoutine, [&] {
        RequireSource(view);
        const std::int32_t limit = ReadLimit(view, "MaxTablesToDisplay", kRoutine);
        // Kept for the settings alone: the list of procedures is always complete.
        static_cast<void>(ReadLimit(view, "MaxProcsToDisplay", kRoutine));
        bool suspect = false;
        UntilCancelled([&] {
            AddTableRows(tables, view, tableIcon, limit, RowColour::Blue, [&](ListRow& row, const CatalogTable& table) {
                row.Bold = IsSuspect(table);
                row.Colour = row.Bold ? RowColour::Red : RowColour::Black;
                suspect = suspect || row.Bold;
            });
            AddProcedures(procedures, view);
        });
        if (suspect)
            WarnOfSuspectNames(view.Messages);
    });
    return {std::move(tables.Rows()), {}, std::move(procedures.Rows())};
}

std::vector<ListRow> DisplayDataSourceTablesInComboBox(const DataSourceView& view, std::string_view icon)
{
    constexpr std::string_view kRoutine = "DisplayDataSourceTablesInComboBox";
    if (view.ConnectionString.empty())
        return {NoDataSourceRow()};
    RowList rows;
    Guarded(view.Errors, kModule, kRoutine, [&] {
        RequireSource(view);
        const std::int32_t limit = ReadLimit(view, "MaxTablesToDisplay", kRoutine);
        UntilCancelled(
            [&] { AddTableRows(rows, view, icon, limit, RowColour::Default, [](ListRow&, const CatalogTable&) {}); });
    });
    return std::move(rows.Rows());
}

std::vector<ListRow> LookupTables(const DataSourceView& view, std::string_view routine)
{
    RequireSource(view);
    RowList rows;
    const std::int32_t limit = ReadLimit(view, "MaxTablesToDisplay", routine);
    if (limit != kAllTables)
        AddAttachedTables(rows, view, "Table");
    if (limit != kManualMode)
        PassingOverUnsupported([&] {
            AddCatalogTables(rows, view, {.Table = "Table", .View = "View"}, limit,
                             [](ListRow&, const CatalogTable&) {});
        });
    return std::move(rows.Rows());
}

} // namespace veldrane
