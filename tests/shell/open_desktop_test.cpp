#include "shell/open_desktop.h"

#include "program.h"
#include "shell/platform/desktop_library.h"
#include "support/child_process.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <sstream>

namespace veldrane::testing {
namespace {

class OpenDesktopLibraryTest : public ::testing::Test
{
  protected:
    OpenDesktopLibraryTest()
    {
        for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            unsetenv(variable);
    }

    std::string RefusalOf(const std::function<void()>& body)
    {
        try {
            body();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, error_number::kFileNotFound);
            return error.Description();
        }
        return "";
    }

    ProgramStreams StreamsOf(const std::string& folder)
    {
        return {.Output = output_, .ErrorOutput = std::cerr, .Folder = folder};
    }

    std::ostringstream output_;
    Program folder_;
};

TEST_F(OpenDesktopLibraryTest, HandsTheCommandOnAndAnswersTheExitCode)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    EXPECT_EQ(OpenDesktopLibrary({.File = "/p/Shop.kzm"}, StreamsOf(VELDRANE_STAND_IN_FOLDER)), 7);
    EXPECT_EQ(output_.str(), "/p/Shop.kzm");
}

TEST_F(OpenDesktopLibraryTest, IsRefusedWithoutADisplay)
{
    setenv("DISPLAY", "", 1);
    EXPECT_EQ(RefusalOf([&] { (void)OpenDesktopLibrary({}, StreamsOf(VELDRANE_STAND_IN_FOLDER)); }),
              "There is no display to open a window on: neither DISPLAY nor WAYLAND_DISPLAY is set. What works without "
              "one, veldrane --help tells.");
}

TEST_F(OpenDesktopLibraryTest, IsRefusedWhereTheLibraryIsMissing)
{
    setenv("DISPLAY", ":0", 1);
    const std::string library = folder_.Path(kDesktopLibrary);
    EXPECT_EQ(
        RefusalOf([&] { (void)OpenDesktopLibrary({}, StreamsOf(folder_.Path(""))); }),
        "The windows of the program could not be loaded (" + folder_.Path("") + "/" + kDesktopLibrary +
            ": cannot open shared object file: No such file or directory). They need Qt 6; on Debian: apt install "
            "libqt6widgets6 libqt6svg6 libqt6printsupport6");
}

TEST_F(OpenDesktopLibraryTest, IsRefusedWhereAnotherLibraryStandsInItsPlace)
{
    setenv("DISPLAY", ":0", 1);
    const std::string refusal =
        RefusalOf([&] { (void)DesktopFunction(VELDRANE_STAND_IN_FOLDER, "VeldraneOpenNothing"); });
    EXPECT_NE(refusal.find("undefined symbol: VeldraneOpenNothing"), std::string::npos) << refusal;
}

#ifdef VELDRANE_HAS_DESKTOP
TEST_F(OpenDesktopLibraryTest, EndsWithASentenceWhereNoDisplayAnswers)
{
    setenv("DISPLAY", ":4711", 1);
    EXPECT_EXIT(
        (void)OpenDesktopLibrary({}, StreamsOf(VELDRANE_PROGRAM_FOLDER)), ::testing::ExitedWithCode(1),
        "^veldrane: No window can be opened: no display answers \\(DISPLAY is \":4711\", WAYLAND_DISPLAY is not "
        "set\\), or Qt's plugin for it is missing\\.\n$");
}
#endif

} // namespace
} // namespace veldrane::testing
