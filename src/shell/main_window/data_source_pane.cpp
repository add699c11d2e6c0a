#include "shell/main_window/data_source_pane.h"

namespace veldrane {
namespace {

constexpr std::string_view kTableIcon = "Table";

std::size_t IndexOf(DataSourceTab tab)
{
    return static_cast<std::size_t>(tab);
}

} // namespace

void DataSourcePane::Clear()
{
    rows_ = {};
    selected_ = {};
}

void DataSourcePane::Refresh(const DataSourceView& view)
{
    DataSourceLists lists = DisplayDataSourceTables(view, kTableIcon);
    rows_ = {std::move(lists.Tables), std::move(lists.Views), std::move(lists.StoredProcedures)};
    selected_ = {};
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
