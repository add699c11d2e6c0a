#pragma once

#include "started_window.h"
#include "support/fake_connection.h"

#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QTreeView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veldrane::testing {

inline const QString kParents = QStringLiteral("Parent/Children Classes");
inline const QString kLookups = QStringLiteral("Lookup/Domain Classes");
inline constexpr const char* kShop = "PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=;";

// The entry of this text, wherever it stands; the test fails if there is none.
[[nodiscard]] QModelIndex Entry(const QTreeView& view, const QString& text);

// A mouse click on the entry of this text, scrolled to.
void ClickEntry(QTreeView& view, const QString& text, Qt::MouseButton button = Qt::LeftButton);

// Lets go of what is dragged at the place in the widget. Whether something took it.
bool LetGo(QWidget& over, const QMimeData& data, QPoint where);

// The captions of a menu, those that are off in brackets.
[[nodiscard]] std::vector<std::string> Rows(const QMenu& menu);

// Opens a context menu by `opening`, photographs it under its own name and closes it again; its captions as Rows gives
// them, none if no menu came.
[[nodiscard]] std::vector<std::string> ContextMenuBy(const std::function<void()>& opening);

// Leaves the editor of a class by OK.
void AcceptClass(QWidget& editor);

// The main window as a person has it in front of them, on a world in memory with a shop as data source.
class MainWindowTest : public StartedWindow
{
  protected:
    MainWindowTest();

    [[nodiscard]] std::unique_ptr<DataSourceConnection> ConnectToShop(const std::string& text);

    // What the open data source holds; throws where none is open.
    [[nodiscard]] FakeCatalog& Database();

    void StartInShop();
    // Customers with their orders, and the countries as a lookup class.
    void StartWithClasses();

    QListView& Preview() { return Find<QListView>(*window_, "lstPreview"); }
    QTreeView& Tables() { return Find<QTreeView>(*window_, "lstTables"); }

    QModelIndex Node(const QString& text) { return Entry(Tree(), text); }
    bool HasNode(const QString& text);
    QString Above(const QString& text) { return Node(text).parent().data().toString(); }
    void ClickNode(const QString& text) { ClickEntry(Tree(), text); }
    void ClickTable(const QString& text) { ClickEntry(Tables(), text); }
    [[nodiscard]] std::vector<std::string> TableRows();
    QString PreviewLine(int row) { return Preview().model()->index(row, 0).data().toString(); }
    std::string Status();

    // Lets go of the thing over the node. Whether the node took it.
    bool Drop(const Dragged& dragged, const QString& target);
    bool DropRow(const QString& table, const QString& target);
    bool DropRow(const char* table, const QString& target) { return DropRow(QString::fromLatin1(table), target); }
    // The same, and the class is taken as its editor shows it.
    bool AddTable(const QString& table, const QString& target);
    bool DropNode(const QString& node, const QString& target);

    // What the submenu of the tool offers.
    QMenu& Choices(const std::string& tool);
    static void Choose(const QMenu& menu, const QString& text);

    // What the person was asked and told.
    [[nodiscard]] std::vector<std::string> Titles() const;

    FakeCatalog shop_;
};

} // namespace veldrane::testing
