#pragma once

#include "datasource/catalog.h"
#include "model/project.h"
#include "ports/error_report.h"
#include "ports/messages.h"
#include "ports/settings.h"

#include <string>
#include <string_view>
#include <vector>

// What the lists of tables, views and stored procedures show of a data source.
namespace veldrane {

// Keys of rows that stand for no table.
inline constexpr std::string_view kNoDataSourceKey = "NONE";
inline constexpr std::string_view kAddTableKey = ":ADD";

// The one column header of each list.
inline constexpr std::string_view kTableListHeader = "Table Name";
inline constexpr std::string_view kViewListHeader = "View Name";
inline constexpr std::string_view kProcedureListHeader = "Stored Procedure Name";

enum class RowColour
{
    Default,
    Black,
    Red,  // a suspect name
    Blue, // a command
};

struct ListRow
{
    std::string Key; // unique in its list, without regard to case
    std::string Text;
    std::string Icon; // "" for none
    std::string Tag;
    RowColour Colour = RowColour::Default;
    bool Bold = false;
};

// The row of a stored procedure, in whichever list it stands.
[[nodiscard]] ListRow ProcedureRow(std::string_view name);

struct DataSourceLists
{
    std::vector<ListRow> Tables;
    std::vector<ListRow> Views; // never more than the row that says that there is no data source: on purpose
    std::vector<ListRow> StoredProcedures;
};

// The data source and the settings that decide what is shown.
struct DataSourceView
{
    std::string ConnectionString; // of the open connection; "" for no data source
    Catalog* Source = nullptr;    // nothing while the connection is closed
    const TTCProject& Project;
    veldrane::Settings& Settings; // `MaxTablesToDisplay` and `MaxProcsToDisplay` are written when they are missing
    veldrane::Messages& Messages;
    ErrorReport& Errors;
};

// The three lists of the main window. What a data source does not support is left out. Any other failure is reported,
// and the lists are as far as they were filled; so they are, without a report, where the person cancels the reading.
// Names that a class can't have are marked and warned of once.
[[nodiscard]] DataSourceLists DisplayDataSourceTables(const DataSourceView& view, std::string_view tableIcon);

// The tables alone, as a combo box offers them: nothing is marked or warned of.
[[nodiscard]] std::vector<ListRow> DisplayDataSourceTablesInComboBox(const DataSourceView& view, std::string_view icon);

// The tables and the views that a lookup may join, with the icons "Table" and "View"; where the person names the tables
// by hand, those alone. A setting that can't be written is reported as met in the routine. Throws DataSourceError and
// ReadingCancelled.
[[nodiscard]] std::vector<ListRow> LookupTables(const DataSourceView& view, std::string_view routine);

} // namespace veldrane
