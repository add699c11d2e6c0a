#include "main_window_fixture.h"

#include "screenshots.h"
#include "shell/desktop/drag_payload.h"

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>

namespace veldrane::testing {

using namespace Qt::StringLiterals;

QModelIndex Entry(const QTreeView& view, const QString& text)
{
    const QModelIndexList found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, text, 1,
                                                      Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchWrap);
    EXPECT_FALSE(found.isEmpty()) << text.toStdString();
    return found.isEmpty() ? QModelIndex() : found.front();
}

void ClickEntry(QTreeView& view, const QString& text, Qt::MouseButton button)
{
    const QModelIndex entry = Entry(view, text);
    view.scrollTo(entry);
    QTest::mouseClick(view.viewport(), button, Qt::NoModifier, view.visualRect(entry).center());
}

bool LetGo(QWidget& over, const QMimeData& data, QPoint where)
{
    QDragEnterEvent enter(where, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&over, &enter);
    QDragMoveEvent move(where, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    move.setAccepted(enter.isAccepted());
    QApplication::sendEvent(&over, &move);
    if (!move.isAccepted())
        return false;
    QDropEvent drop(where, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&over, &drop);
    QApplication::processEvents();
    return drop.isAccepted();
}

std::vector<std::string> Rows(const QMenu& menu)
{
    std::vector<std::string> rows;
    for (const QAction* action : menu.actions()) {
        const std::string text = QString(action->text()).remove(u'&').toStdString();
        rows.push_back(action->isEnabled() ? text : "(" + text + ")");
    }
    return rows;
}

std::vector<std::string> ContextMenuBy(const std::function<void()>& opening)
{
    std::vector<std::string> rows;
    QTimer looking;
    QObject::connect(&looking, &QTimer::timeout, [&rows] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            rows = Rows(*menu);
            Photograph(*menu, menu->objectName().toStdString());
            menu->close();
        }
    });
    looking.start(0);
    opening();
    QApplication::processEvents();
    return rows;
}

void AcceptClass(QWidget& editor)
{
    EXPECT_EQ(editor.objectName(), u"frmAddEditClass"_s);
    Click(editor, "cmdOK");
}

MainWindowTest::MainWindowTest()
{
    world_.Connect = [this](const std::string& text, StringOrigin /*origin*/) { return ConnectToShop(text); };
    auto& customers = shop_.Add("Customers");
    customers.Fields = {IdentityField("CustomerID"), Field("CompanyName", adVarWChar, 60),
                        NullableField("Remarks", adVarWChar, 200)};
    customers.Indexes = {PrimaryIndex({"CustomerID"})};
    auto& orders = shop_.Add("Orders");
    orders.Fields = {IdentityField("OrderID"), Field("CustomerID", adInteger)};
    orders.Keys = {ForeignKey("FK_Customer", "Customers", {{"CustomerID", "CustomerID"}})};
    auto& countries = shop_.Add("Countries");
    countries.Fields = {Field("CountryCode", adVarWChar, 2), Field("CountryName", adVarWChar, 60)};
    shop_.ProcedureNames = {"GetOrders"};
}

std::unique_ptr<DataSourceConnection> MainWindowTest::ConnectToShop(const std::string& text)
{
    auto connection = std::make_unique<FakeConnection>();
    connection->Open(text);
    connection->Content = shop_;
    return connection;
}

FakeCatalog& MainWindowTest::Database()
{
    return dynamic_cast<FakeConnection&>(*world_.State.ActiveConnection).Content;
}

void MainWindowTest::StartInShop()
{
    Start();
    rules_->Project().SetConnectionString(kShop);
}

void MainWindowTest::StartWithClasses()
{
    StartInShop();
    EXPECT_TRUE(AddTable(u"Customers"_s, kParents));
    EXPECT_TRUE(AddTable(u"Orders"_s, u"Customer"_s));
    EXPECT_TRUE(AddTable(u"Countries"_s, kLookups));
}

bool MainWindowTest::HasNode(const QString& text)
{
    return !Tree()
                .model()
                ->match(Tree().model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchRecursive)
                .isEmpty();
}

std::vector<std::string> MainWindowTest::TableRows()
{
    std::vector<std::string> rows;
    const QAbstractItemModel& model = *Tables().model();
    for (int row = 0; row < model.rowCount(); ++row)
        rows.push_back(model.index(row, 0).data().toString().toStdString());
    return rows;
}

std::string MainWindowTest::Status()
{
    return Find<QLabel>(*window_, "pnlStatus").text().toStdString();
}

bool MainWindowTest::Drop(const Dragged& dragged, const QString& target)
{
    const std::unique_ptr<QMimeData> data = PackDragged(dragged);
    Tree().scrollTo(Node(target));
    return LetGo(*Tree().viewport(), *data, Tree().visualRect(Node(target)).center());
}

bool MainWindowTest::DropRow(const QString& table, const QString& target)
{
    const auto dragged = rules_->DraggedFromRow(static_cast<std::size_t>(Entry(Tables(), table).row()));
    return dragged && Drop(*dragged, target);
}

bool MainWindowTest::AddTable(const QString& table, const QString& target)
{
    bool isTaken = false;
    WithDialogs([&] { isTaken = DropRow(table, target); }, {AcceptClass});
    window_->activateWindow();
    QApplication::processEvents();
    return isTaken;
}

bool MainWindowTest::DropNode(const QString& node, const QString& target)
{
    const auto dragged = rules_->DraggedFromNode(static_cast<std::size_t>(Node(node).internalId()));
    return dragged && Drop(*dragged, target);
}

QMenu& MainWindowTest::Choices(const std::string& tool)
{
    QMenu& menu = *Tool(tool).menu();
    Q_EMIT menu.aboutToShow();
    return menu;
}

void MainWindowTest::Choose(const QMenu& menu, const QString& text)
{
    for (QAction* action : menu.actions())
        if (action->text() == text)
            return action->trigger();
    ADD_FAILURE() << "no choice " << text.toStdString();
}

std::vector<std::string> MainWindowTest::Titles() const
{
    std::vector<std::string> titles;
    for (const Question& question : world_.Messages.Asked())
        titles.push_back(question.Title);
    return titles;
}

} // namespace veldrane::testing
