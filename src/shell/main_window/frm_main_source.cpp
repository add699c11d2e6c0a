#include "datasource/attach_by_hand.h"
#include "shell/main_window/class_marks.h"
#include "shell/main_window/frm_main.h"
#include "shell/main_window/help_messages.h"

namespace veldrane {
namespace {

constexpr const char* kProcedureOpened =
    "A stored procedure is called by a method of a class: the method takes the parameters of the procedure and returns "
    "its rows.\r\n\r\n"
    "To add such a method, open a class by a double click on it in the tree, and use 'Stored Procedures' on its tab "
    "'Methods'. Click a procedure to mark the classes that already have a method for it.";

} // namespace

// Nothing while no data source is open.
DataSourceConnection* frmMain::OpenConnection()
{
    DataSourceConnection* connection = session_.ActiveConnection();
    return connection != nullptr && connection->IsOpen() ? connection : nullptr;
}

// The state of a change lasts while the lists are filled: what is selected stays selected, and so do its tools.
void frmMain::ShowDataSource()
{
    ShowMenus(menu_state::kParentClasses);
    RefreshLists();
    if (const TreeNode* node = tree_.SelectedNode())
        ShowMenus(MenuStateOf(*node));
}

void frmMain::RefreshLists()
{
    datasource_.Clear();
    const CatalogReading::Session session(reading_);
    const PointerWhile hourglass(application_.Windows.Pointer, PointerShape::Hourglass);
    status_.SetStatus(kReadingStatus);
    try {
        Guarded(application_.Errors, "CodeGeneration", "DisplayDataSourceTables", [&] { ReadLists(); });
    } catch (const ReadingCancelled&) { // told below
    }
    status_.SetStatus(reading_.WasCancelled() ? "The reading was cancelled: the lists are not complete."
                                              : kReadyStatus);
    Changed.Raise(WindowPart::Lists);
    ShowWhatIsOpen();
}

void frmMain::ReadLists()
{
    DataSourceConnection* connection = OpenConnection();
    // It shows the data source as it is now.
    const std::unique_ptr<Catalog> catalog = connection == nullptr ? nullptr : connection->OpenCatalog();
    datasource_.Refresh({.ConnectionString = connection == nullptr ? "" : connection->ConnectionString(),
                         .Source = catalog.get(),
                         .Project = Project(),
                         .Settings = application_.UserSettings,
                         .Messages = application_.Asking,
                         .Errors = application_.Errors});
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
    ShowWhatIsOpen();
    const ListRow* selected = datasource_.Selected();
    if (selected == nullptr)
        return;
    tree_.Mark(datasource_.Tab() == DataSourceTab::StoredProcedures
                   ? ClassesCallingProcedure(*selected, tree_.Nodes(), Classes())
                   : ClassesOnTable(*selected, tree_.Nodes(), Classes()));
}

void frmMain::lst_DblClick(std::size_t row)
{
    datasource_.SelectRow(row);
    const ListRow* selected = datasource_.Selected();
    if (selected == nullptr)
        return;
    if (selected->Key == kAddTableKey)
        AttachByHand();
    else if (datasource_.Tab() == DataSourceTab::StoredProcedures && IsRealRow(*selected))
        warning_.DisplayWarning(kProcedureOpened, warning_id::kSPsAsMethodsInPro);
}

void frmMain::lst_ColumnClick()
{
    datasource_.SortListView();
    Changed.Raise(WindowPart::Lists);
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

// A name that was wrong is shown again, to be mended; the next table begins with none.
void frmMain::AttachByHand()
{
    const NameSource source{.Connection = session_.ActiveConnection(),
                            .Messages = application_.Asking,
                            .Watched = [this](const std::function<void()>& lookUp) { Watch(lookUp); }};
    std::string before;
    const auto ask = [&] {
        std::optional<std::string> name = dialogs_.AskForTable(before);
        before = name.value_or("");
        return name;
    };
    try {
        AsEdit("Add Table", [&] {
            AttachTable({.Source = source,
                         .Project = Project(),
                         .CodePage = application_.State.Generation.CodePage,
                         .RefreshLists = [this] { RefreshLists(); }},
                        ask);
        });
    } catch (const ReadingCancelled&) {
        status_.SetStatus(kCancelledStatus);
    }
}

void frmMain::ShowLogon(LogonPurpose purpose, const std::string& database)
{
    frmODBCLogon logon(Project(), purpose, LogonMode::Normal,
                       {.Asking = application_.Asking,
                        .Errors = application_.Errors,
                        .Files = application_.Windows.Dialogs,
                        .Pointer = application_.Windows.Pointer,
                        .Installed = application_.Installed,
                        .Connect = telling_.Connect,
                        .ActiveConnection = application_.State.ActiveConnection,
                        .TdsDriver = application_.TdsDriver});
    if (database.empty())
        logon.Load();
    else
        logon.LoadWithFile(database);
    const bool wasOpen = OpenConnection() != nullptr;
    bool told = false;
    const Connection listening = session_.DataSourceChanged.Connect([&] { told = true; });
    dialogs_.Show(logon);
    // An attempt closes it, Cancel may find it gone, and the string that the project has already tells nobody.
    if (!told && wasOpen != (OpenConnection() != nullptr))
        ShowDataSource();
}

} // namespace veldrane
