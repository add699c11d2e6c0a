#pragma once

#include "datasource/table_lists.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace veldrane {

// The tabs of tabDatasource, and so the list that is shown.
enum class DataSourceTab
{
    Tables = 0,
    Views = 1,
    StoredProcedures = 2,
};

inline constexpr std::size_t kDataSourceTabs = 3;

enum class SortOrder
{
    Unsorted, // as the data source gives its rows
    Ascending,
    Descending,
};

// The pane with the lists of a data source's tables, views and stored procedures, of which one is shown at a time.
class DataSourcePane
{
  public:
    // Empties the three lists.
    void Clear();

    // Fills the three lists anew; nothing is selected or sorted then.
    void Refresh(const DataSourceView& view);

    [[nodiscard]] const std::vector<ListRow>& Rows(DataSourceTab tab) const;

    [[nodiscard]] DataSourceTab Tab() const { return tab_; }
    void SelectTab(DataSourceTab tab) { tab_ = tab; }

    // Sorts the list that is shown by its one column, without regard to case: ascending, and the other way round each
    // further time. The command to add a table stays on top, and a row that is selected stays selected.
    void SortListView();

    // How the list of the tab is sorted.
    [[nodiscard]] SortOrder Order(DataSourceTab tab) const;

    // Selects a row of the list that is shown; a row that is not there selects none.
    void SelectRow(std::size_t row);

    // The selected row of the list that is shown; nothing if there is none.
    [[nodiscard]] std::optional<std::size_t> SelectedRow() const;
    [[nodiscard]] const ListRow* Selected() const;

  private:
    std::array<std::vector<ListRow>, kDataSourceTabs> rows_;
    std::array<std::optional<std::size_t>, kDataSourceTabs> selected_;
    std::array<SortOrder, kDataSourceTabs> orders_{};
    DataSourceTab tab_ = DataSourceTab::Tables;
};

} // namespace veldrane
