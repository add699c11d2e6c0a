#include "started_window.h"

#include <QDockWidget>
#include <QListView>

#include <gmock/gmock.h>

namespace veldrane::testing {
namespace {

using ::testing::SizeIs;

constexpr const char* kLayout = "PaneLayout";

class MainWindowPlace : public StartedWindow
{
  protected:
    QDockWidget& Datasource() { return Find<QDockWidget>(*window_, "panDatasource"); }
    QDockWidget& Preview() { return Find<QDockWidget>(*window_, "panPreview"); }

    void Widen(QDockWidget& dock, int width)
    {
        window_->resizeDocks({&dock}, {width}, Qt::Horizontal);
        QApplication::processEvents();
        EXPECT_EQ(dock.width(), width);
    }
};

TEST_F(MainWindowPlace, APaneThatFloatsComesBackFloating)
{
    Start();
    Preview().setFloating(true);
    Preview().setGeometry(120, 80, 300, 240);
    CloseAndStart();
    EXPECT_TRUE(Preview().isFloating());
    EXPECT_TRUE(Preview().isVisible());
    EXPECT_EQ(Preview().size(), QSize(300, 240));
    EXPECT_FALSE(Datasource().isFloating());
}

TEST_F(MainWindowPlace, APaneThatBeginsToFloatIsStillShown)
{
    Start();
    Preview().setFloating(true);
    QApplication::processEvents();
    EXPECT_TRUE(Tool("ViewPreviewPane").isChecked());
    Preview().close();
    EXPECT_FALSE(Tool("ViewPreviewPane").isChecked());
    RunTool("ViewPreviewPane");
    EXPECT_TRUE(Preview().isVisible() && Preview().isFloating());
}

TEST_F(MainWindowPlace, PanesAboveEachOtherComeBackSo)
{
    Start();
    window_->addDockWidget(Qt::LeftDockWidgetArea, &Preview());
    window_->splitDockWidget(&Datasource(), &Preview(), Qt::Vertical);
    CloseAndStart();
    EXPECT_EQ(window_->dockWidgetArea(&Preview()), Qt::LeftDockWidgetArea);
    EXPECT_EQ(Preview().x(), Datasource().x());
    EXPECT_GT(Preview().y(), Datasource().y());
}

TEST_F(MainWindowPlace, PanesBehindEachOtherComeBackSo)
{
    Start();
    window_->tabifyDockWidget(&Datasource(), &Preview());
    CloseAndStart();
    EXPECT_EQ(window_->tabifiedDockWidgets(&Datasource()), QList<QDockWidget*>{&Preview()});
}

TEST_F(MainWindowPlace, APaneBelowComesBackBelow)
{
    Start();
    window_->addDockWidget(Qt::BottomDockWidgetArea, &Preview());
    CloseAndStart();
    EXPECT_EQ(window_->dockWidgetArea(&Preview()), Qt::BottomDockWidgetArea);
    EXPECT_EQ(window_->dockWidgetArea(&Datasource()), Qt::LeftDockWidgetArea);
}

TEST_F(MainWindowPlace, AHiddenPaneKeepsItsWidth)
{
    Start();
    Widen(Datasource(), 330);
    RunTool("ViewDataSourceTables");
    EXPECT_EQ(Setting("DisplayDatasource"), "False");
    EXPECT_EQ(Setting("DatasourceWidth"), "330");
    RunTool("ViewDataSourceTables");
    EXPECT_EQ(Datasource().width(), 330);
    RunTool("ViewDataSourceTables");
    CloseAndStart();
    EXPECT_FALSE(Datasource().isVisible());
    RunTool("ViewDataSourceTables");
    EXPECT_EQ(Datasource().width(), 330);
}

TEST_F(MainWindowPlace, APaneClosedByItsOwnButtonKeepsItsWidth)
{
    Start();
    Widen(Preview(), 440);
    Preview().close();
    QApplication::processEvents();
    EXPECT_EQ(Setting("DisplayPreview"), "False");
    EXPECT_EQ(Setting("PreviewWidth"), "440");
    CloseAndStart();
    RunTool("ViewPreviewPane");
    EXPECT_EQ(Preview().width(), 440);
}

TEST_F(MainWindowPlace, PanesOfAMaximizedWindowKeepTheirWidths)
{
    Start();
    window_->setGeometry(20, 30, 500, 400);
    window_->showMaximized();
    QApplication::processEvents();
    const int wide = window_->width() * 6 / 10;
    Widen(Preview(), wide);
    CloseAndStart();
    EXPECT_TRUE(window_->isMaximized());
    EXPECT_EQ(Preview().width(), wide);
    window_->showNormal();
    QApplication::processEvents();
    EXPECT_EQ(window_->geometry(), QRect(20, 30, 500, 400));
}

TEST_F(MainWindowPlace, WhatIsShownIsWrittenWhenTheWindowCloses)
{
    Start();
    window_->close();
    EXPECT_EQ(Setting("DisplayPreview"), "True");
    EXPECT_EQ(Setting("DisplayDatasource"), "True");
    EXPECT_LT(Setting(kLayout).size(), 1024U);
    EXPECT_EQ(Setting("DatasourceLeft"), "0");
}

TEST_F(MainWindowPlace, ADamagedOrForeignLayoutDoesNoHarm)
{
    Start();
    window_->addDockWidget(Qt::BottomDockWidgetArea, &Preview());
    window_->close();
    Set("DatasourceWidth", "210");
    Set("PreviewWidth", "420");
    Set("DatasourceLeft", "700");
    Set("PreviewLeft", "0");
    const std::string good = Setting(kLayout);
    std::vector<std::string> damaged{" ",
                                     "x",
                                     "AAAA_wAA",
                                     "no layout at all",
                                     good.substr(0, good.size() / 2),
                                     good + "AAAA",
                                     good.substr(4),
                                     std::string(1023, 'A')};
    for (std::size_t place = 0; place < good.size(); place += 9) {
        damaged.push_back(good);
        damaged.back()[place] = good[place] == 'B' ? 'C' : 'B';
    }
    for (const std::string& layout : damaged) {
        Set(kLayout, layout);
        Start();
        EXPECT_EQ(window_->dockWidgetArea(&Datasource()), Qt::RightDockWidgetArea) << layout;
        EXPECT_EQ(window_->dockWidgetArea(&Preview()), Qt::LeftDockWidgetArea) << layout;
        EXPECT_EQ(Datasource().width(), 210) << layout;
        EXPECT_EQ(Preview().width(), 420) << layout;
        EXPECT_TRUE(Datasource().isVisible() && Preview().isVisible()) << layout;
    }
}

TEST_F(MainWindowPlace, SettingsThatCanNotBeWrittenAreReportedOnceAndTheWindowCloses)
{
    Start();
    world_.UserSettings.Fails = true;
    EXPECT_TRUE(window_->close());
    EXPECT_THAT(world_.Errors.Reported, SizeIs(1));
}

TEST_F(MainWindowPlace, NothingJumpsOnceTheWindowIsShown)
{
    Set("DisplayDatasource", "False");
    world_.UserSettings.UpdateKey("Options", "PreviewPaneFontSize", "15");
    Show();
    EXPECT_FALSE(Datasource().isVisible());
    EXPECT_TRUE(Preview().isVisible());
    EXPECT_EQ(window_->PreviewList().font().pointSize(), 15);
    const QRect before = Preview().geometry();
    (void)rules_->Load({});
    QApplication::processEvents();
    EXPECT_EQ(Preview().geometry(), before);
    EXPECT_FALSE(Datasource().isVisible());
}

} // namespace
} // namespace veldrane::testing
