#pragma once

#include "preview/tree_node.h"
#include "scripted_windows.h"
#include "shell/main_window/frm_main.h"
#include "support/fake_connection.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane::testing {

inline constexpr const char* kShopString = "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/shop.mdb;";

// A connection that opens only while its server answers.
class RemoteConnection : public FakeConnection
{
  public:
    explicit RemoteConnection(const bool& isReachable) : isReachable_(isReachable) {}

    void Open(const std::string& text) override
    {
        if (!isReachable_)
            throw DataSourceError(data_source_error::kFailed, "RemoteConnection", "The server does not answer.");
        FakeConnection::Open(text);
    }

    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog() override
    {
        if (!HasCatalog)
            throw DataSourceError(data_source_error::kFailed, "RemoteConnection", "The catalog is locked.");
        if (OpeningCatalog)
            OpeningCatalog();
        return FakeConnection::OpenCatalog();
    }

    bool HasCatalog = true;
    std::function<void()> OpeningCatalog; // what happens meanwhile

  private:
    const bool& isReachable_;
};

// The main window of a person whose data source has customers, their orders and a list of countries.
class FrmMainTest : public ::testing::Test
{
  protected:
    FrmMainTest()
    {
        auto& customers = Source.Add("Customers");
        customers.Fields = {IdentityField("ID"), Field("Name", adVarWChar, 50)};
        customers.Indexes = {PrimaryIndex({"ID"})};
        auto& orders = Source.Add("Orders");
        orders.Fields = {IdentityField("OrderID"), Field("Customer", adInteger)};
        orders.Keys = {ForeignKey("FK_Customer", "Customers", {{"Customer", "ID"}})};
        Source.Add("Countries").Fields = {IdentityField("Code"), Field("Name", adVarWChar, 50)};
        Source.ProcedureNames = {"GetTotals"};
        World.UserSettings.UpdateKey(settings_section::kOptions, "MTSEnabled", "False");
        World.Connect = [this](const std::string& text, StringOrigin /*origin*/) { return Connect(text); };
    }

    std::unique_ptr<DataSourceConnection> Connect(const std::string& text)
    {
        Connected.push_back(text);
        auto connection = std::make_unique<RemoteConnection>(IsReachable);
        connection->Content = Source;
        connection->Open(text);
        return connection;
    }

    // A new project on the data source, with nothing asked or modified yet.
    void StartOnShop()
    {
        ASSERT_TRUE(Form.Load({}));
        Form.Project().SetConnectionString(kShopString);
        Form.Project().SetModified(false);
        World.Messages.Forget();
    }

    // The same with the table Customers as a class.
    void StartWithCustomer()
    {
        StartOnShop();
        DropRow("Customers", Fixed(tree_key::kParentClasses));
        ASSERT_NE(Form.Classes().Item("Customer"), nullptr);
        Form.Project().SetModified(false);
        World.Messages.Forget();
    }

    // The catalog of the open connection, to be changed behind the window's back.
    FakeCatalog& Database() { return dynamic_cast<FakeConnection&>(*World.State.ActiveConnection).Content; }

    // The person cancels while the call is answered, behind its second row.
    void CancelIn(const std::string& call)
    {
        Database().Answering = [this, call](const std::string& answered) {
            if (answered == call)
                CancelReading();
        };
    }
    void CancelReading()
    {
        Reading.Read(1);
        Reading.Read(2);
        Reading.Cancel();
        Reading.Read(3);
    }

    [[nodiscard]] std::size_t Node(const NodeKey& key) const
    {
        const auto index = IndexOf(Form.treMain().Nodes(), key);
        EXPECT_TRUE(index) << key.Key;
        return index.value_or(0);
    }

    [[nodiscard]] static NodeKey Fixed(std::string_view key)
    {
        return {.Kind = NodeKind::Fixed, .Key = std::string(key)};
    }
    [[nodiscard]] static NodeKey OfClass(const std::string& name) { return {.Kind = NodeKind::Class, .Key = name}; }

    void Click(const NodeKey& key) { Form.treMain_NodeClick(Node(key)); }

    [[nodiscard]] std::string SelectedKey() const
    {
        const TreeNode* node = Form.treMain().SelectedNode();
        return node == nullptr ? "" : node->Id.Key;
    }

    [[nodiscard]] std::vector<std::string> Rows(DataSourceTab tab = DataSourceTab::Tables) const
    {
        std::vector<std::string> keys;
        for (const ListRow& row : Form.Datasource().Rows(tab))
            keys.push_back(row.Key);
        return keys;
    }

    // The row of the list that is shown.
    [[nodiscard]] std::size_t Row(const std::string& key) const
    {
        const std::vector<std::string> keys = Rows(Form.Datasource().Tab());
        const auto found = std::find(keys.begin(), keys.end(), key);
        EXPECT_NE(found, keys.end()) << key;
        return static_cast<std::size_t>(found - keys.begin());
    }

    void DropRow(const std::string& table, const NodeKey& target)
    {
        const auto dragged = Form.DraggedFromRow(Row(table));
        ASSERT_TRUE(dragged) << table;
        Form.DropOn(*dragged, Node(target));
    }

    void DropNode(const NodeKey& source, const NodeKey& target)
    {
        const auto dragged = Form.DraggedFromNode(Node(source));
        ASSERT_TRUE(dragged) << source.Key;
        Form.DropOn(*dragged, Node(target));
    }

    [[nodiscard]] std::vector<std::string> Marked() const
    {
        std::vector<std::string> keys;
        for (std::size_t i = 0; i < Form.treMain().Nodes().size(); ++i)
            if (Form.treMain().IsMarked(i))
                keys.push_back(Form.treMain().Nodes()[i].Id.Key);
        return keys;
    }

    [[nodiscard]] std::string FirstLine() { return LineAt(0); }
    [[nodiscard]] std::string LineAt(std::size_t row)
    {
        return row < Form.lstPreview().Count() ? Form.lstPreview().Row(row).LineText : "";
    }
    [[nodiscard]] bool PreviewHas(std::string_view words) { return Form.lstPreview().RowWith(words).has_value(); }

    [[nodiscard]] std::vector<std::string> Titles() const
    {
        std::vector<std::string> titles;
        for (const Question& question : World.Messages.Asked())
            titles.push_back(question.Title);
        return titles;
    }

    // A project of that name in a file.
    void WriteProject(const std::string& path, const std::string& name, const std::string& connection = {})
    {
        ProjectSession session(World.World);
        session.New(DataSourceOnOpen::LeaveClosed);
        session.Project().SetProjectName(name);
        session.Project().SetConnectionString(connection);
        World.Dialogs.Add(path);
        ASSERT_TRUE(session.Save());
    }

    MemoryApplication World;
    ScriptedWindows Windows;
    FakeCatalog Source;
    bool IsReachable = true;
    std::vector<std::string> Connected;
    CatalogReading Reading{World.Clock};
    frmMain Form{World.World, Windows, Reading};
};

} // namespace veldrane::testing
