#include "shell/stored_options.h"
#include "support/memory_settings.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

constexpr NumberRange kSize{.What = "font size", .Lowest = 1, .Highest = 400};

struct StoredOption : ::testing::Test
{
    void Store(std::string_view value) { settings.SaveSetting("Options", "Option", value); }

    testing::MemorySettings settings;
    testing::ScriptedMessages messages;
    StoredOptions options{settings, messages};
};

TEST_F(StoredOption, IsTheDefaultWhereNothingIsStored)
{
    EXPECT_EQ(options.Text("Option", "Tahoma"), "Tahoma");
    EXPECT_EQ(options.ColorOf("Option", 7), 7);
    EXPECT_EQ(options.Number("Option", kSize, 8), 8);
    EXPECT_TRUE(options.Flag("Option", true));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(StoredOption, IsTheDefaultWhereABlankIsStored)
{
    Store(" ");
    EXPECT_EQ(options.Text("Option", "Tahoma"), "Tahoma");
    EXPECT_EQ(options.ColorOf("Option", 7), 7);
    EXPECT_EQ(options.Number("Option", kSize, 8), 8);
    EXPECT_FALSE(options.Flag("Option", false));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(StoredOption, IsReadAsWhatItStandsFor)
{
    Store(" Courier New ");
    EXPECT_EQ(options.Text("Option", ""), "Courier New");
    Store("-2147483631");
    EXPECT_EQ(options.ColorOf("Option", 7), static_cast<Color>(0x80000011U));
    Store("400");
    EXPECT_EQ(options.Number("Option", kSize, 8), 400);
    Store("true");
    EXPECT_TRUE(options.Flag("Option", false));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(StoredOption, ThatIsNotOfItsKindIsTold)
{
    Store("401");
    EXPECT_EQ(options.Number("Option", kSize, 8), 8);
    Store("maybe");
    EXPECT_TRUE(options.Flag("Option", true));
    EXPECT_EQ(options.ColorOf("Option", 7), 7);
    ASSERT_EQ(messages.Asked().size(), 3U);
    EXPECT_EQ(messages.Asked()[0].Title, "Settings");
    EXPECT_EQ(messages.Asked()[0].Icon, MessageIcon::Warning);
    EXPECT_EQ(messages.Asked()[0].Text, "The setting Option in the section Options is '401', which is no font size: "
                                        "a number from 1 to 400. The default is used.");
    EXPECT_EQ(messages.Asked()[1].Text, "The setting Option in the section Options is 'maybe', which is neither True "
                                        "nor False. The default is used.");
    EXPECT_EQ(messages.Asked()[2].Text, "The setting Option in the section Options is 'maybe', which is no colour: a "
                                        "32-bit number, red in the low byte. The default is used.");
}

} // namespace
} // namespace veldrane
