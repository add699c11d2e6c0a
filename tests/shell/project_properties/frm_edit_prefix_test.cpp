#include "shell/project_properties/frm_edit_prefix.h"

#include "support/scripted_messages.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

constexpr const char* kInvalid =
    "Invalid Prefix. Please begin with a letter, and remove special characters and spaces from the prefix.";

class EditPrefix : public ::testing::Test
{
  protected:
    frmEditPrefix Open(const std::string& prefix) { return {"Long", prefix, messages, codePage}; }

    testing::ScriptedMessages messages;
    text::CodePage codePage;
};

TEST_F(EditPrefix, ShowsThePrefixUnderItsName)
{
    const frmEditPrefix form = Open("lng");
    EXPECT_EQ(form.Caption(), "Edit Long Prefix");
    EXPECT_EQ(form.txtPrefix, "lng");
    EXPECT_EQ(form.Trouble(), "");
}

TEST_F(EditPrefix, TakesLettersAndNone)
{
    for (const char* const prefix : {"", "l", "lng_", "m2", "String"}) {
        frmEditPrefix form = Open(prefix);
        EXPECT_TRUE(form.cmdOK_Click()) << prefix;
    }
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(EditPrefix, RefusesWhatNoNameMayBeginWith)
{
    for (const char* const prefix : {"2", "l n", "a/b", "..", "x'", " "}) {
        messages.Forget();
        frmEditPrefix form = Open(prefix);
        EXPECT_EQ(form.Trouble(), kInvalid) << prefix;
        EXPECT_FALSE(form.cmdOK_Click()) << prefix;
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked()[0].Title, "Invalid Prefix");
        EXPECT_EQ(messages.Asked()[0].Text, kInvalid);
        EXPECT_EQ(form.txtPrefix, prefix);
    }
}

TEST_F(EditPrefix, RefusesLettersThatTheProjectsFilesHaveNoPlaceFor)
{
    frmEditPrefix form = Open("\xE6\x97\xA5");
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(messages.Asked().size(), 1U);
}

TEST_F(EditPrefix, IsLeftByCancelWithoutAWord)
{
    EXPECT_TRUE(frmEditPrefix::cmdCancel_Click());
    EXPECT_TRUE(messages.Asked().empty());
}

} // namespace
} // namespace veldrane
