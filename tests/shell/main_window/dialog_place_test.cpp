#include "shell/main_window/dialog_place.h"
#include "support/failing_settings.h"
#include "support/recorded_errors.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

const std::vector<ScreenArea> kTwoScreens{{.Left = 0, .Top = 0, .Width = 1920, .Height = 1080},
                                          {.Left = 1920, .Top = 0, .Width = 1280, .Height = 1024}};

class ADialogsPlace : public ::testing::Test
{
  protected:
    [[nodiscard]] std::optional<ScreenArea> Read(const std::string& value)
    {
        settings_.SaveSetting(settings_section::kWindow, "frmZoom", value);
        return ReadDialogPlace(settings_, "frmZoom", kTwoScreens);
    }

    testing::FailingSettings settings_;
    testing::RecordedErrors errors_;
};

TEST_F(ADialogsPlace, ComesBackAsItWasWritten)
{
    const ScreenArea place{.Left = 2000, .Top = 40, .Width = 700, .Height = 500};
    WriteDialogPlace(settings_, errors_, "frmZoom", place);
    EXPECT_EQ(ReadDialogPlace(settings_, "frmZoom", kTwoScreens), place);
    EXPECT_EQ(ReadDialogPlace(settings_, "frmFile", kTwoScreens), std::nullopt);
}

TEST_F(ADialogsPlace, IsNoneWhereTheValueIsBroken)
{
    for (const char* value : {"", "1 2 3", "1 2 3 4 5", "1,2,3,4", "a b c d", "10 10 0 100", "10 10 100 -1",
                              "10 10 99999999999999999999 100", "10 10 200000 100", "-200000 10 300 100"})
        EXPECT_EQ(Read(value), std::nullopt) << value;
}

TEST_F(ADialogsPlace, IsNoneWhereNoScreenShowsItAnyMore)
{
    EXPECT_EQ(Read("4000 10 300 200"), std::nullopt);
    EXPECT_EQ(Read("10 2000 300 200"), std::nullopt);
    EXPECT_EQ(Read("10 -100 300 200"), std::nullopt);
}

TEST_F(ADialogsPlace, IsMovedWholeOntoItsScreen)
{
    EXPECT_EQ(Read("1700 900 300 200"), (ScreenArea{.Left = 1620, .Top = 880, .Width = 300, .Height = 200}));
    EXPECT_EQ(Read("-100 10 300 200"), (ScreenArea{.Left = 0, .Top = 10, .Width = 300, .Height = 200}));
}

TEST_F(ADialogsPlace, IsNoLargerThanItsScreen)
{
    EXPECT_EQ(Read("2000 100 5000 3000"), (ScreenArea{.Left = 1920, .Top = 0, .Width = 1280, .Height = 1024}));
}

TEST_F(ADialogsPlace, ThatCantBeWrittenIsReported)
{
    settings_.Fails = true;
    WriteDialogPlace(settings_, errors_, "frmZoom", {.Left = 1, .Top = 1, .Width = 300, .Height = 200});
    ASSERT_EQ(errors_.Reported.size(), 1U);
    EXPECT_EQ(errors_.Reported[0].Place.ModuleName, "frmZoom");
}

} // namespace
} // namespace veldrane
