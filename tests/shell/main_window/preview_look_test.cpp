#include "shell/main_window/preview_look.h"

#include "shell/main_window/color_value.h"
#include "support/memory_settings.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

struct ThePreviewLook : ::testing::Test
{
    PreviewLook Read() { return ReadPreviewLook(settings, messages); }

    testing::MemorySettings settings;
    testing::ScriptedMessages messages;
};

TEST_F(ThePreviewLook, HasItsDefaultsWhereNothingIsSet)
{
    const PreviewLook look = Read();
    EXPECT_EQ(look.Background, 0xFEF8F3);
    EXPECT_EQ(look.Font, (PreviewFont{.Name = "Tahoma", .Size = 8, .Bold = false, .Italic = false}));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ThePreviewLook, ComesBackAsItWasWritten)
{
    const PreviewFont font{.Name = "DejaVu Sans Mono", .Size = 11, .Bold = true, .Italic = true};
    WritePreviewFont(settings, font);
    WritePreviewBackground(settings, static_cast<Color>(0x80000005U));
    EXPECT_EQ(settings.GetAllSettings("Options"), (std::vector<std::pair<std::string, std::string>>{
                                                      {"PreviewPaneFontName", "DejaVu Sans Mono"},
                                                      {"PreviewPaneFontSize", "11"},
                                                      {"PreviewPaneFontBold", "True"},
                                                      {"PreviewPaneFontItalic", "True"},
                                                      {"PreviewBackgroundColor", "-2147483643"},
                                                  }));
    EXPECT_EQ(Read().Font, font);
    EXPECT_EQ(Read().Background, static_cast<Color>(0x80000005U));
}

TEST_F(ThePreviewLook, HasTheDefaultNameWhereTheNameWasEmptied)
{
    WritePreviewFont(settings, {.Name = ""});
    EXPECT_EQ(Read().Font.Name, "Tahoma");
}

TEST_F(ThePreviewLook, NamesValuesThatAreNotOfTheirKind)
{
    settings.SaveSetting("Options", "PreviewBackgroundColor", "snow");
    settings.SaveSetting("Options", "PreviewPaneFontSize", "0");
    settings.SaveSetting("Options", "PreviewPaneFontBold", "perhaps");
    const PreviewLook look = Read();
    EXPECT_EQ(look.Background, 0xFEF8F3);
    EXPECT_EQ(look.Font, PreviewFont{});
    ASSERT_EQ(messages.Asked().size(), 3U);
    EXPECT_EQ(messages.Asked()[0].Text, "The setting PreviewBackgroundColor in the section Options is 'snow', which is "
                                        "no colour: a 32-bit number, red in the low byte. The default is used.");
    EXPECT_EQ(messages.Asked()[1].Text, "The setting PreviewPaneFontSize in the section Options is '0', which is no "
                                        "font size: a number from 1 to 400. The default is used.");
    EXPECT_EQ(messages.Asked()[2].Text, "The setting PreviewPaneFontBold in the section Options is 'perhaps', which is "
                                        "neither True nor False. The default is used.");
}

TEST(ColorValue, HasRedInTheLowByte)
{
    EXPECT_FALSE(IsSystemColor(0xFEF8F3));
    EXPECT_EQ(PartsOf(0xFEF8F3), (ColorParts{.Red = 0xF3, .Green = 0xF8, .Blue = 0xFE}));
    EXPECT_EQ(ColorOf({.Red = 0xF3, .Green = 0xF8, .Blue = 0xFE}), 0xFEF8F3);
}

TEST(ColorValue, NumbersTheColoursOfTheSystem)
{
    const LineColors colors;
    EXPECT_TRUE(IsSystemColor(colors.ColorHidden));
    EXPECT_EQ(SystemColorNumber(colors.ColorHidden), 17);
}

} // namespace
} // namespace veldrane
