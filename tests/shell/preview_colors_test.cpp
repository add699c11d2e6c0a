#include "shell/preview_colors.h"
#include "support/memory_settings.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

struct PreviewColors : ::testing::Test
{
    LineColors Read() { return ReadPreviewColors(settings, messages); }

    testing::MemorySettings settings;
    testing::ScriptedMessages messages;
};

TEST_F(PreviewColors, HaveTheirDefaultsWhereNothingIsSet)
{
    const LineColors colors = Read();
    EXPECT_EQ(colors.ColorCode, 0);
    EXPECT_EQ(colors.ColorHeader, 0xFF0000);
    EXPECT_EQ(colors.ColorHidden, static_cast<Color>(0x80000011U));
    EXPECT_EQ(colors.ColorComment, 0x8000);
    EXPECT_EQ(colors.ColorKey, 0x8080);
    EXPECT_EQ(colors.ColorError, 0xFF);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(PreviewColors, AreReadEachUnderItsName)
{
    settings.SaveSetting("Options", "PreviewPaneCodeTextColor", "1");
    settings.SaveSetting("Options", "PreviewPaneHeaderTextColor", "2");
    settings.SaveSetting("Options", "PreviewPaneHiddenTextColor", "-2147483631");
    settings.SaveSetting("Options", "PreviewPaneCommentTextColor", "4");
    settings.SaveSetting("Options", "PreviewPaneKeyTextColor", "5");
    settings.SaveSetting("Options", "PreviewPaneErrorTextColor", "6");
    const LineColors colors = Read();
    EXPECT_EQ(colors.ColorCode, 1);
    EXPECT_EQ(colors.ColorHeader, 2);
    EXPECT_EQ(colors.ColorHidden, static_cast<Color>(0x80000011U));
    EXPECT_EQ(colors.ColorComment, 4);
    EXPECT_EQ(colors.ColorKey, 5);
    EXPECT_EQ(colors.ColorError, 6);
}

TEST_F(PreviewColors, HaveTheirDefaultsWhereTheValueWasEmptied)
{
    settings.UpdateKey("Options", "PreviewPaneHeaderTextColor", "");
    EXPECT_EQ(settings.GetKeyValue("Options", "PreviewPaneHeaderTextColor"), " ");
    EXPECT_EQ(Read().ColorHeader, 0xFF0000);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(PreviewColors, NameAValueThatIsNoColour)
{
    settings.SaveSetting("Options", "PreviewPaneKeyTextColor", "olive");
    settings.SaveSetting("Options", "PreviewPaneErrorTextColor", "99999999999");
    const LineColors colors = Read();
    EXPECT_EQ(colors.ColorKey, 0x8080);
    EXPECT_EQ(colors.ColorError, 0xFF);
    ASSERT_EQ(messages.Asked().size(), 2U);
    EXPECT_EQ(messages.Asked().front().Text,
              "The setting PreviewPaneKeyTextColor in the section Options is 'olive', which is no colour: a 32-bit "
              "number, red in the low byte. The default is used.");
}

TEST_F(PreviewColors, ComeBackAsTheyWereWritten)
{
    WritePreviewColors(settings, {.ColorCode = 1,
                                  .ColorHeader = 2,
                                  .ColorHidden = static_cast<Color>(0x80000011U),
                                  .ColorComment = 4,
                                  .ColorKey = 5,
                                  .ColorError = 6});
    EXPECT_EQ(settings.GetKeyValue("Options", "PreviewPaneHiddenTextColor"), "-2147483631");
    const LineColors colors = Read();
    EXPECT_EQ(colors.ColorCode, 1);
    EXPECT_EQ(colors.ColorHeader, 2);
    EXPECT_EQ(colors.ColorHidden, static_cast<Color>(0x80000011U));
    EXPECT_EQ(colors.ColorComment, 4);
    EXPECT_EQ(colors.ColorKey, 5);
    EXPECT_EQ(colors.ColorError, 6);
}

} // namespace
} // namespace veldrane
