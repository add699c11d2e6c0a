#include "main_window_on_disk.h"

#include <QWindow>

#include <filesystem>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// Settings that no program has written.
struct BrokenSettings
{
    const char* Name;
    std::string Bytes;
};

class MainWindowSettings : public MainWindowOnDisk, public ::testing::WithParamInterface<BrokenSettings>
{};

TEST_P(MainWindowSettings, ThatAreBrokenAreToldSetAsideAndTheWindowOpens)
{
    WriteFile(Path("settings.ini"), GetParam().Bytes);
    StartProgram();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(window_->windowHandle()->title(), u"Veldrane Professional Edition +Forms - [New Project]"_s);
    ASSERT_THAT(Titles(), ElementsAre("Settings"));
    const std::string& text = world_.Messages.Asked().front().Text;
    EXPECT_THAT(text, StartsWith("The settings in " + Path("settings.ini") + " can't be understood: "));
    EXPECT_THAT(
        text, HasSubstr("\r\nThey were set aside as " + Path("settings.ini.broken") + ", and the defaults are used."));
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(ContentOf(Path("settings.ini.broken")), GetParam().Bytes);
}

INSTANTIATE_TEST_SUITE_P(Files, MainWindowSettings,
                         ::testing::Values(BrokenSettings{"Garbage", std::string("\x7F"
                                                                                 "ELF\0\x01\xFE\r\n\x80[",
                                                                                 11)},
                                           BrokenSettings{"CutLine", "[Options]\nAuthor=Ann\n[Wind"},
                                           BrokenSettings{"Huge", "[Options]\n" + std::string(4'000'000, 'x')}),
                         [](const auto& instance) { return std::string(instance.param.Name); });

TEST_F(MainWindowOnDisk, AFolderInPlaceOfTheSettingsIsToldAndTheWindowOpens)
{
    std::filesystem::create_directory(Path("settings.ini"));
    StartProgram();
    EXPECT_TRUE(window_->isVisible());
    ASSERT_THAT(Titles(), ElementsAre("Settings"));
    EXPECT_EQ(world_.Messages.Asked().front().Text, "The settings can't be read: " + Path("settings.ini") +
                                                        ": it is no plain file.\r\nThe defaults are used.");
    EXPECT_TRUE(window_->close());
    EXPECT_TRUE(std::filesystem::is_directory(Path("settings.ini")));
}

} // namespace
} // namespace veldrane::testing
