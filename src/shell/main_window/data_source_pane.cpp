#include "shell/main_window/data_source_pane.h"

#include "text/case_folding.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kTableIcon = "Table";

std::size_t IndexOf(DataSourceTab tab)
{
    return static_cast<std::size_t>(tab);
}

// The places of the rows in their new order.
std::vector<std::size_t> Sorted(const std::vector<ListRow>& rows, SortOrder order)
{
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const ListRow& row : rows)
        texts.push_back(text::Fold(row.Text));
    std::vector<std::size_t> places(rows.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    const auto commands = std::stable_partition(places.begin(), places.end(),
                                                [&](std::size_t place) { return rows[place].Key == kAddTableKey; });
    std::stable_sort(commands, places.end(), [&](std::size_t left, std::size_t right) {
        return order == SortOrder::Ascending ? texts[left] < texts[right] : texts[right] < texts[left];
    });
    return places;
}

} // namespace

void DataSourcePane::Clear()
{
    rows_ = {};
    selected_ = {};
    orders_ = {};
}

void DataSourcePane::Refresh(const DataSourceView& view)
{
    Clear();
    DataSourceLists lists = DisplayDataSourceTables(view, kTableIcon);
    rows_ = {std::move(lists.Tables), std::move(lists.Views), std::move(lists.StoredProcedures)};
}

void DataSourcePane::SortListView()
{
    SortOrder& order = orders_.at(IndexOf(tab_));
    order = order == SortOrder::Ascending ? SortOrder::Descending : SortOrder::Ascending;
    std::vector<ListRow>& rows = rows_.at(IndexOf(tab_));
    const std::optional<std::size_t> selected = SelectedRow();
    std::vector<ListRow> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t place : Sorted(rows, order)) {
        if (place == selected)
            SelectRow(sorted.size());
        sorted.push_back(std::move(rows[place]));
    }
    rows = std::move(sorted);
}

SortOrder DataSourcePane::Order(DataSourceTab tab) const
{
    return orders_.at(IndexOf(tab));
}

const std::vector<ListRow>& DataSourcePane::Rows(DataSourceTab tab) const
{
    return rows_.at(IndexOf(tab));
}

void DataSourcePane::SelectRow(std::size_t row)
{
    std::optional<std::size_t>& selected = selected_.at(IndexOf(tab_));
    selected.reset();
    if (row < Rows(tab_).size())
        selected = row;
}

std::optional<std::size_t> DataSourcePane::SelectedRow() const
{
    return selected_.at(IndexOf(tab_));
}

const ListRow* DataSourcePane::Selected() const
{
    const std::optional<std::size_t> selected = SelectedRow();
    return selected ? &Rows(tab_).at(*selected) : nullptr;
}

} // namespace veldrane
