#include "shell/desktop/project_tree_model.h"
#include "shell/desktop/row_list_model.h"
#include "widgets.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QFont>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

ProjectTree SmallTree()
{
    const auto fixed = [](const char* key) { return NodeKey{.Kind = NodeKind::Fixed, .Key = key}; };
    return {
        {.Id = fixed("Root"), .Parent = {}, .Caption = "Shop", .Icon = "Root"},
        {.Id = fixed("KZMParent"),
         .Parent = 0,
         .Caption = "Parents",
         .Icon = "ClosedFolder",
         .ExpandedIcon = "OpenFolder"},
        {.Id = {NodeKind::Class, "Customer"}, .Parent = 1, .Caption = "Customer", .Icon = "Class"},
        {.Id = {NodeKind::Class, "Order"}, .Parent = 1, .Caption = "Order", .Icon = "Class"},
    };
}

TEST(ProjectTreeModel, HoldsWhatAModelPromisesWhileItsTreeIsReplaced)
{
    IconSet icons;
    ProjectTreeModel model([](const NodeKey&, const std::string&) { return false; }, icons);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.Show({});
    model.Show(SmallTree());
    model.Mark(2, true);
    model.ShowExpanded(model.IndexOfNode(1), true);
    EXPECT_EQ(model.rowCount(model.IndexOfNode(1)), 2);
    EXPECT_EQ(model.parent(model.IndexOfNode(3)), model.IndexOfNode(1));
    EXPECT_FALSE(model.IndexOfNode(4).isValid());
    model.Show({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(ProjectTreeModel, OnlyTheProjectsNameIsEditedAndOnlyClassesAreDragged)
{
    IconSet icons;
    ProjectTreeModel model([](const NodeKey&, const std::string&) { return true; }, icons);
    model.Show(SmallTree());
    EXPECT_TRUE(model.flags(model.IndexOfNode(0)).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(model.flags(model.IndexOfNode(2)).testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(model.flags(model.IndexOfNode(2)).testFlag(Qt::ItemIsDragEnabled));
    EXPECT_FALSE(model.flags(model.IndexOfNode(1)).testFlag(Qt::ItemIsDragEnabled));
}

TEST(ProjectTreeModel, ALabelIsTakenAsTheRulesSay)
{
    std::string label;
    IconSet icons;
    ProjectTreeModel model(
        [&](const NodeKey& node, const std::string& text) {
            label = node.Key + ":" + text;
            return text != "no";
        },
        icons);
    model.Show(SmallTree());
    EXPECT_TRUE(model.setData(model.IndexOfNode(0), u"Gesch\u00e4ft"_s));
    EXPECT_EQ(label, "Root:Gesch\xC3\xA4"
                     "ft");
    EXPECT_FALSE(model.setData(model.IndexOfNode(0), u"no"_s));
    EXPECT_FALSE(model.setData(model.IndexOfNode(0), u"no"_s, Qt::DisplayRole));
}

qint64 PictureKey(const QModelIndex& index)
{
    return index.data(Qt::DecorationRole).value<QIcon>().cacheKey();
}

TEST(RowListModel, LoadsAPictureOnce)
{
    IconSet icons;
    RowListModel model(kTableListHeader, icons);
    model.Show({{.Key = "", .Text = "None", .Icon = "", .Tag = ""},
                {.Key = "Orders", .Text = "Orders", .Icon = "Table", .Tag = ""}});
    EXPECT_EQ(PictureKey(model.index(0)), PictureKey(model.index(0)));
    EXPECT_EQ(PictureKey(model.index(1)), icons.Of("Table").cacheKey());
}

TEST(ProjectTreeModel, LoadsAPictureOnce)
{
    IconSet icons;
    ProjectTreeModel model([](const NodeKey&, const std::string&) { return true; }, icons);
    model.Show(SmallTree());
    EXPECT_EQ(PictureKey(model.IndexOfNode(2)), PictureKey(model.IndexOfNode(3)));
    EXPECT_EQ(PictureKey(model.IndexOfNode(1)), icons.Of("ClosedFolder").cacheKey());
}

TEST(RowListModel, HoldsWhatAModelPromises)
{
    IconSet icons;
    RowListModel model(kTableListHeader, icons);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.Show({{.Key = std::string(kAddTableKey), .Text = "Add", .Icon = "", .Tag = "", .Colour = RowColour::Blue},
                {.Key = "Orders", .Text = "Orders", .Icon = "Table", .Tag = ""},
                {.Key = "9", .Text = "9", .Icon = "Table", .Tag = "", .Colour = RowColour::Red, .Bold = true}});
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), u"Table Name"_s);
    EXPECT_FALSE(model.flags(model.index(0)).testFlag(Qt::ItemIsDragEnabled));
    EXPECT_TRUE(model.flags(model.index(1)).testFlag(Qt::ItemIsDragEnabled));
    EXPECT_FALSE(model.index(1).data(Qt::ForegroundRole).isValid());
    EXPECT_EQ(model.index(2).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    EXPECT_TRUE(model.index(2).data(Qt::FontRole).value<QFont>().bold());
    model.Show({});
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace
} // namespace veldrane::testing
