#include "datasource/attach_by_hand.h"
#include "shell/main_window/class_marks.h"
#include "shell/main_window/frm_main.h"

namespace veldrane {

// A catalog shows the data source as it is now, so each operation has one of its own.
void frmMain::WithCatalog(const std::function<void(Catalog*)>& use)
{
    DataSourceConnection* connection = session_.ActiveConnection();
    const bool isOpen = connection != nullptr && connection->IsOpen();
    const std::unique_ptr<Catalog> catalog = isOpen ? connection->OpenCatalog() : nullptr;
    use(catalog.get());
}

void frmMain::RefreshLists()
{
    const CatalogReading::Session session(reading_);
    const PointerWhile hourglass(application_.Windows.Pointer, PointerShape::Hourglass);
    const DataSourceConnection* connection = session_.ActiveConnection();
    Guarded(application_.Errors, "CodeGeneration", "DisplayDataSourceTables", [&] {
        WithCatalog([&](Catalog* source) {
            datasource_.Refresh({.ConnectionString = connection == nullptr ? "" : connection->ConnectionString(),
                                 .Source = source,
                                 .Project = Project(),
                                 .Settings = application_.UserSettings,
                                 .Messages = application_.Asking,
                                 .Errors = application_.Errors});
        });
    });
    Changed.Raise(WindowPart::Lists);
}

void frmMain::tabDatasource_Click(DataSourceTab tab)
{
    if (tab == datasource_.Tab())
        return;
    datasource_.SelectTab(tab);
    RefreshLists();
}

void frmMain::lst_ItemClick(std::size_t row)
{
    datasource_.SelectRow(row);
    const ListRow* selected = datasource_.Selected();
    if (selected == nullptr)
        return;
    tree_.Mark(datasource_.Tab() == DataSourceTab::StoredProcedures
                   ? ClassesCallingProcedure(*selected, tree_.Nodes(), Classes())
                   : ClassesOnTable(*selected, tree_.Nodes(), Classes()));
    Changed.Raise(WindowPart::TreeState);
}

void frmMain::lst_DblClick(std::size_t row)
{
    datasource_.SelectRow(row);
    const ListRow* selected = datasource_.Selected();
    if (selected != nullptr && selected->Key == kAddTableKey)
        AttachByHand();
}

bool frmMain::HasMenu(std::size_t row) const
{
    const std::vector<ListRow>& rows = datasource_.Rows(datasource_.Tab());
    return row < rows.size() && IsRealRow(rows.at(row));
}

std::optional<Dragged> frmMain::DraggedFromRow(std::size_t row) const
{
    const DataSourceTab tab = datasource_.Tab();
    const std::vector<ListRow>& rows = datasource_.Rows(tab);
    if (tab == DataSourceTab::StoredProcedures || row >= rows.size() || !CanDrag(rows.at(row)))
        return std::nullopt;
    return DraggedRow{.Row = rows.at(row), .From = tab == DataSourceTab::Views ? RowList::Views : RowList::Tables};
}

void frmMain::AttachByHand()
{
    AttachTable({.Source = {.Connection = session_.ActiveConnection(), .Messages = application_.Asking},
                 .Project = Project(),
                 .CodePage = application_.State.Generation.CodePage,
                 .RefreshLists = [this] { RefreshLists(); }},
                [this] { return dialogs_.AskForTable(); });
}

void frmMain::ShowLogon(LogonPurpose purpose, const std::string& database)
{
    frmODBCLogon logon(Project(), purpose, LogonMode::Normal,
                       {.Asking = application_.Asking,
                        .Errors = application_.Errors,
                        .Files = application_.Windows.Dialogs,
                        .Pointer = application_.Windows.Pointer,
                        .Installed = application_.Installed,
                        .Connect = application_.Connect,
                        .ActiveConnection = application_.State.ActiveConnection,
                        .TdsDriver = application_.TdsDriver});
    logon.Load();
    if (!database.empty())
        logon.DropFile(database);
    dialogs_.Show(logon);
}

} // namespace veldrane
