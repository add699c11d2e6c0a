#include "shell/platform/disk_file_system.h"
#include "shell/platform/settings_file.h"
#include "support/memory_settings.h"
#include "support/scripted_messages.h"
#include "temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

struct InAFile
{
    TemporaryFolder Folder;
    DiskFileSystem Files;
    ScriptedMessages Notes;
    SettingsFile Store{Folder / "settings.ini", Files, Notes};
};

struct InMemory
{
    MemorySettings Store;
};

template <class Place>
class SettingsContract : public ::testing::Test
{
  protected:
    Place place_;
    Settings& settings_ = place_.Store;
};

using Places = ::testing::Types<InMemory, InAFile>;
TYPED_TEST_SUITE(SettingsContract, Places);

TYPED_TEST(SettingsContract, WhatIsMissingIsEmpty)
{
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Author"), "");
    EXPECT_THAT(this->settings_.GetAllSettings("MRU"), IsEmpty());
    this->settings_.UpdateKey("Options", "Author", "Ann");
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Title"), "");
    EXPECT_EQ(this->settings_.GetKeyValue("Help", "Author"), "");
}

TYPED_TEST(SettingsContract, AValueIsReadBack)
{
    this->settings_.UpdateKey("Options", "Author", "Ann Baker");
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Author"), "Ann Baker");
    this->settings_.UpdateKey("Options", "Author", "Ben");
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Author"), "Ben");
}

TYPED_TEST(SettingsContract, AnOptionStoredAsEmptyReadsBackAsOneBlank)
{
    this->settings_.UpdateKey("Options", "WrapperClassName", "");
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "WrapperClassName"), " ");
}

TYPED_TEST(SettingsContract, ASavedEmptySettingStaysEmpty)
{
    this->settings_.SaveSetting("MRU", "1", "");
    EXPECT_THAT(this->settings_.GetAllSettings("MRU"), ElementsAre(Pair("1", "")));
}

TYPED_TEST(SettingsContract, NamesAndSectionsAreComparedWithoutCase)
{
    this->settings_.UpdateKey("Options", "Größe", "1");
    this->settings_.UpdateKey("OPTIONS", "GRÖßE", "2");
    EXPECT_EQ(this->settings_.GetKeyValue("options", "größe"), "2");
    EXPECT_EQ(this->settings_.GetAllSettings("Options").size(), 1U);
}

TYPED_TEST(SettingsContract, ASectionKeepsTheOrderOfItsValues)
{
    for (const char* name : {"2", "10", "1"})
        this->settings_.SaveSetting("MRU", name, std::string("/home/ann/") + name);
    this->settings_.SaveSetting("MRU", "10", "/changed");
    EXPECT_THAT(this->settings_.GetAllSettings("mru"),
                ElementsAre(Pair("2", "/home/ann/2"), Pair("10", "/changed"), Pair("1", "/home/ann/1")));
}

TYPED_TEST(SettingsContract, EveryTextSurvives)
{
    const std::vector<std::string> values{
        "  blanks around  ",
        "\ttabs\t",
        "two\r\nlines",
        "\"quoted\"",
        "\"C:\\new\\VB6.EXE\" /make \"a b\"",
        "100 %, %41, \\n",
        "; no comment",
        "# no comment",
        "[Options]",
        "a=b",
        "=",
        "\"",
        "%",
        "\"%41\"",
        "dword:0000000a",
        "Straße, Ærø, 漢字, \xF0\x9F\x98\x80",
        "\x7F\x1B[31m",
        "ill-formed \xFF\xC3",
        "\xEF\xBB\xBF",
    };
    for (const std::string& value : values)
        this->settings_.SaveSetting("Options", value, value);
    for (const std::string& value : values)
        EXPECT_EQ(this->settings_.GetKeyValue("Options", value), value);
    EXPECT_EQ(this->settings_.GetAllSettings("Options").size(), values.size());
}

TYPED_TEST(SettingsContract, ASectionMayHaveAnyName)
{
    for (const char* section : {"a]b", "[a]", " blanks ", "", ";", "two\nlines", "a=b"}) {
        this->settings_.SaveSetting(section, "Name", section);
        EXPECT_EQ(this->settings_.GetKeyValue(section, "Name"), section);
    }
}

TYPED_TEST(SettingsContract, AValueIsReadUpToItsFirstNul)
{
    this->settings_.UpdateKey("Options", "Author", std::string_view("Ann\0Baker", 9));
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Author"), "Ann");
}

TYPED_TEST(SettingsContract, AtMost1024BytesAreRead)
{
    this->settings_.UpdateKey("Options", "Exact", std::string(1024, 'x'));
    this->settings_.UpdateKey("Options", "Long", std::string(5000, 'x'));
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Exact").size(), 1024U);
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Long").size(), 1024U);
}

TYPED_TEST(SettingsContract, TheCutLeavesNoPartOfACharacter)
{
    this->settings_.UpdateKey("Options", "Long", std::string(1023, 'x') + "ß and more");
    EXPECT_EQ(this->settings_.GetKeyValue("Options", "Long"), std::string(1023, 'x'));
}

TYPED_TEST(SettingsContract, AllSettingsAreWhole)
{
    this->settings_.SaveSetting("MRU", "1", std::string(2000, 'x'));
    EXPECT_EQ(this->settings_.GetAllSettings("MRU").at(0).second.size(), 2000U);
}

TYPED_TEST(SettingsContract, OneValueIsDeleted)
{
    this->settings_.SaveSetting("TempFiles", "a.kzm", "/a.kzm");
    this->settings_.SaveSetting("TempFiles", "b.kzm", "/b.kzm");
    this->settings_.DeleteSetting("tempfiles", "A.KZM");
    EXPECT_THAT(this->settings_.GetAllSettings("TempFiles"), ElementsAre(Pair("b.kzm", "/b.kzm")));
}

TYPED_TEST(SettingsContract, AWholeSectionIsDeleted)
{
    this->settings_.SaveSetting("TempFiles", "a.kzm", "/a.kzm");
    this->settings_.SaveSetting("MRU", "1", "/a.kzm");
    this->settings_.DeleteSetting("TempFiles");
    EXPECT_THAT(this->settings_.GetAllSettings("TempFiles"), IsEmpty());
    EXPECT_EQ(this->settings_.GetAllSettings("MRU").size(), 1U);
}

TYPED_TEST(SettingsContract, DeletingWhatIsMissingIsPassedOver)
{
    this->settings_.DeleteSetting("TempFiles");
    this->settings_.DeleteSetting("TempFiles", "a.kzm");
    EXPECT_THAT(this->settings_.GetAllSettings("TempFiles"), IsEmpty());
}

} // namespace
} // namespace veldrane::testing
