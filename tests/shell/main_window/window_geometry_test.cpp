#include "shell/main_window/window_geometry.h"
#include "support/failing_settings.h"
#include "support/recorded_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

const std::vector<ScreenArea> kTwoScreens{{.Left = 0, .Top = 0, .Width = 1920, .Height = 1080},
                                          {.Left = 1920, .Top = 0, .Width = 1280, .Height = 1024}};

class Geometry : public ::testing::Test
{
  protected:
    void Set(const std::string& name, const std::string& value)
    {
        settings_.SaveSetting(settings_section::kWindow, name, value);
    }

    void SetWindow(const std::string& left, const std::string& top, const std::string& width, const std::string& height)
    {
        Set("Left", left);
        Set("Top", top);
        Set("Width", width);
        Set("Height", height);
    }

    [[nodiscard]] WindowGeometry Read() const { return ReadWindowGeometry(settings_, kTwoScreens); }

    testing::FailingSettings settings_;
    testing::RecordedErrors errors_;
};

TEST_F(Geometry, NothingIsSetAtFirst)
{
    const WindowGeometry read = Read();
    EXPECT_EQ(read.Window, std::nullopt);
    EXPECT_EQ(read.State, WindowState::Normal);
    EXPECT_EQ(read.Preview, PanePlace{});
    EXPECT_EQ(read.Datasource, PanePlace{});
}

TEST_F(Geometry, ComesBackAsItWasWritten)
{
    const WindowGeometry written{.Window = ScreenArea{.Left = 2000, .Top = 50, .Width = 900, .Height = 700},
                                 .State = WindowState::Maximized,
                                 .Preview = {.Width = 400, .Left = 500},
                                 .Datasource = {.Width = 200, .Left = 0},
                                 .PaneLayout = "AAAA_wAA",
                                 .Shown = PaneManagement{.pmPreviewVisible = false}};
    WriteWindowGeometry(settings_, errors_, written);
    EXPECT_THAT(settings_.GetAllSettings(settings_section::kWindow),
                ElementsAre(Pair("Top", "50"), Pair("Left", "2000"), Pair("Height", "700"), Pair("Width", "900"),
                            Pair("WindowState", "2"), Pair("PreviewWidth", "400"), Pair("PreviewLeft", "500"),
                            Pair("DatasourceWidth", "200"), Pair("DatasourceLeft", "0"), Pair("PaneLayout", "AAAA_wAA"),
                            Pair("DisplayDatasource", "True"), Pair("DisplayPreview", "False")));
    const WindowGeometry read = Read();
    EXPECT_EQ(read.Window, written.Window);
    EXPECT_EQ(read.State, WindowState::Maximized);
    EXPECT_EQ(read.Preview, written.Preview);
    EXPECT_EQ(read.Datasource, written.Datasource);
    EXPECT_EQ(read.PaneLayout, written.PaneLayout);
    EXPECT_FALSE(ReadPanes(settings_).pmPreviewVisible);
}

TEST_F(Geometry, ALayoutTooLongToBeReadBackIsNone)
{
    WriteWindowGeometry(settings_, errors_, {.PaneLayout = std::string(1023, 'A')});
    EXPECT_EQ(Read().PaneLayout.size(), 1023U);
    WriteWindowGeometry(settings_, errors_, {.PaneLayout = std::string(1024, 'A')});
    EXPECT_EQ(Read().PaneLayout, " ");
}

TEST_F(Geometry, PanesOfAMaximizedWindowMayBeAsWideAsAScreen)
{
    SetWindow("0", "0", "900", "700");
    Set("WindowState", "2");
    Set("PreviewWidth", "1500");
    EXPECT_EQ(Read().Preview.Width, 1500);
    Set("PreviewWidth", "1921");
    EXPECT_EQ(Read().Preview.Width, std::nullopt);
    EXPECT_EQ(ReadWindowGeometry(settings_, {}).Preview.Width, 1921);
}

TEST_F(Geometry, PlacesOfPanesAreWrittenAlone)
{
    WritePanePlaces(settings_, errors_, {.Width = 400, .Left = 500}, {.Width = 200});
    EXPECT_THAT(settings_.GetAllSettings(settings_section::kWindow),
                ElementsAre(Pair("PreviewWidth", "400"), Pair("PreviewLeft", "500"), Pair("DatasourceWidth", "200")));
}

TEST_F(Geometry, WhatIsNotSetStaysInTheSettings)
{
    SetWindow("10", "20", "900", "700");
    WriteWindowGeometry(settings_, errors_, {.State = WindowState::Minimized});
    EXPECT_EQ(Read().Window, (ScreenArea{.Left = 10, .Top = 20, .Width = 900, .Height = 700}));
    EXPECT_EQ(settings_.GetKeyValue(settings_section::kWindow, "WindowState"), "1");
}

TEST_F(Geometry, AWindowLeftMinimizedOpensAsANormalOne)
{
    for (const char* state : {"1", "7", "-1", "large", " "}) {
        Set("WindowState", state);
        EXPECT_EQ(Read().State, WindowState::Normal) << state;
    }
}

TEST_F(Geometry, AWindowThatNoScreenShowsFallsBack)
{
    for (const auto& [left, top] :
         {std::pair{"3200", "0"}, {"0", "1080"}, {"0", "-30"}, {"-850", "0"}, {"3150", "0"}}) {
        SetWindow(left, top, "900", "700");
        EXPECT_EQ(Read().Window, std::nullopt) << left << ", " << top;
    }
    SetWindow("-800", "1060", "900", "700");
    EXPECT_NE(Read().Window, std::nullopt);
    EXPECT_EQ(ReadWindowGeometry(settings_, {}).Window, std::nullopt);
}

TEST_F(Geometry, AWindowOfNoUseFallsBack)
{
    for (const auto& [width, height] : {std::pair{"0", "700"}, {"900", "-700"}, {"199", "700"}, {"900", "1"}}) {
        SetWindow("0", "0", width, height);
        EXPECT_EQ(Read().Window, std::nullopt) << width << " x " << height;
    }
}

TEST_F(Geometry, BrokenNumbersFallBack)
{
    for (const char* broken : {"", " ", "wide", "12 pixels", "99999999999999", "2147483647", "-2147483648"}) {
        SetWindow("0", "0", broken, "700");
        EXPECT_EQ(Read().Window, std::nullopt) << broken;
        SetWindow(broken, "0", "900", "700");
        EXPECT_EQ(Read().Window, std::nullopt) << broken;
    }
}

TEST_F(Geometry, PaneWidthsThatCanNotBeMeantFallBack)
{
    SetWindow("0", "0", "900", "700");
    for (const char* width : {"0", "-5", "901", "x", "2147483647"}) {
        Set("PreviewWidth", width);
        EXPECT_EQ(Read().Preview.Width, std::nullopt) << width;
    }
    Set("PreviewLeft", "-1");
    EXPECT_EQ(Read().Preview.Left, std::nullopt);
    Set("PreviewWidth", "900");
    Set("PreviewLeft", "0");
    EXPECT_EQ(Read().Preview, (PanePlace{.Width = 900, .Left = 0}));
}

TEST_F(Geometry, SettingsThatCanNotBeWrittenAreReportedOnce)
{
    settings_.Fails = true;
    WriteWindowGeometry(settings_, errors_, {.Window = ScreenArea{}});
    ASSERT_THAT(errors_.Reported, SizeIs(1));
    EXPECT_EQ(errors_.Reported[0].Place.ModuleName, "frmMain");
    WritePanes(settings_, errors_, {});
    EXPECT_THAT(errors_.Reported, SizeIs(2));
}

TEST_F(Geometry, PanesAreShownUnlessTheSettingsSayFalse)
{
    for (const char* value : {"True", "perhaps", " ", "true", "-1"}) {
        Set("DisplayPreview", value);
        EXPECT_TRUE(ReadPanes(settings_).pmPreviewVisible) << value;
    }
    for (const char* value : {"False", "false", "0"}) {
        Set("DisplayDatasource", value);
        EXPECT_FALSE(ReadPanes(settings_).pmDatasourceVisible) << value;
    }
}

TEST_F(Geometry, ThePanesThatHaveNoSettingAreShown)
{
    const PaneManagement panes = ReadPanes(settings_);
    EXPECT_TRUE(panes.pmProjectVisible);
    EXPECT_TRUE(panes.pmNavigatorVisible);
    EXPECT_TRUE(panes.pmPreviewVisible);
    EXPECT_TRUE(panes.pmDatasourceVisible);
}

TEST_F(Geometry, PanesAreWrittenAsWords)
{
    WritePanes(settings_, errors_, {.pmDatasourceVisible = false});
    EXPECT_THAT(settings_.GetAllSettings(settings_section::kWindow),
                ElementsAre(Pair("DisplayDatasource", "False"), Pair("DisplayPreview", "True")));
    EXPECT_FALSE(ReadPanes(settings_).pmDatasourceVisible);
    EXPECT_THAT(errors_.Reported, IsEmpty());
}

} // namespace
} // namespace veldrane
