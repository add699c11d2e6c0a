#include "keyboard_way.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string ContentOf(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::filesystem::path> FilesUnder(const std::string& folder, const std::string& extension)
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VELDRANE_SOURCE_DIR + folder))
        if (entry.path().extension() == extension)
            paths.push_back(entry.path());
    return paths;
}

// The windows among the forms; a form whose class is QWidget and whose name is no window's is a part of one.
std::vector<std::string> Windows()
{
    // Forms that are shown under other names.
    const std::map<std::string, std::string> shownAs{{"frmName", "frmAddTable"},
                                                     {"frmBuiltInMembers", "frmBuiltInMethods"}};
    const std::regex top("<widget class=\"\\w+\" name=\"(frm\\w+)\"");
    std::vector<std::string> names;
    for (const auto& path : FilesUnder("/src/shell/desktop", ".ui")) {
        const std::string form = ContentOf(path);
        std::smatch found;
        if (!std::regex_search(form, found, top))
            continue;
        const auto other = shownAs.find(found[1]);
        names.push_back(other == shownAs.end() ? found[1].str() : other->second);
    }
    return names;
}

// What Photograph is told by the tests: each picture is a walk through its window.
std::string Photographs()
{
    std::string calls;
    for (const auto& path : FilesUnder("/tests/shell/desktop", ".cpp"))
        calls += ContentOf(path);
    return calls;
}

TEST(TheKeyboardsWay, IsWalkedThroughEachWindow)
{
    const std::string photographs = Photographs();
    std::vector<std::string> left;
    for (const std::string& name : Windows())
        if (!std::regex_search(photographs, std::regex("Photograph\\([^;]*\"" + name + "[-\"]")))
            left.push_back(name);
    EXPECT_THAT(left, IsEmpty());
}

class AWindow : public ::testing::Test
{
  protected:
    AWindow()
    {
        first_.setObjectName(u"first"_s);
        second_.setObjectName(u"second"_s);
        first_.setAccessibleName(u"First"_s);
        second_.setAccessibleName(u"Second"_s);
    }

    void Show(int firstRow, int firstColumn, int secondRow, int secondColumn)
    {
        layout_.addWidget(&first_, firstRow, firstColumn);
        layout_.addWidget(&second_, secondRow, secondColumn);
        QWidget::setTabOrder(&first_, &second_);
        window_.show();
    }

    QWidget window_;
    QGridLayout& layout_ = *new QGridLayout(&window_); // the window's own
    QLineEdit& first_ = *new QLineEdit;
    QLineEdit& second_ = *new QLineEdit;
};

TEST_F(AWindow, MayGoDownAndThenToTheNextColumn)
{
    Show(0, 0, 1, 0);
    EXPECT_THAT(StepsAgainstReading(window_), IsEmpty());
    Show(1, 0, 0, 1);
    EXPECT_THAT(StepsAgainstReading(window_), IsEmpty());
}

TEST_F(AWindow, MayNotGoUpInAColumn)
{
    Show(1, 0, 0, 0);
    EXPECT_THAT(StepsAgainstReading(window_), ElementsAre("QLineEdit first -> QLineEdit second"));
}

TEST_F(AWindow, MayNotGoLeftOnALine)
{
    Show(0, 1, 0, 0);
    EXPECT_THAT(StepsAgainstReading(window_), ElementsAre("QLineEdit first -> QLineEdit second"));
}

TEST_F(AWindow, HasNamesForItsControls)
{
    Show(0, 0, 1, 0);
    EXPECT_THAT(NamelessControls(window_), IsEmpty());
    second_.setAccessibleName({});
    EXPECT_THAT(NamelessControls(window_), ElementsAre("QLineEdit second"));
    QLabel label(u"&Second:"_s, &window_);
    label.setBuddy(&second_);
    EXPECT_THAT(NamelessControls(window_), IsEmpty());
    second_.setEnabled(false);
    label.setBuddy(nullptr);
    EXPECT_THAT(NamelessControls(window_), IsEmpty());
}

} // namespace
} // namespace veldrane::testing
