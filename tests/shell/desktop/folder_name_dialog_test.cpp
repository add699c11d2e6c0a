#include "shell/desktop/folder_name_dialog.h"

#include "screenshots.h"
#include "widgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

std::string NameAfter(const Act& act)
{
    std::string name;
    WithDialogs([&] { name = AskForFolderName(nullptr); }, {act});
    return name;
}

TEST(TheFolderNameWindow, GivesTheName)
{
    EXPECT_EQ(NameAfter([](QWidget& dialog) {
                  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdOK").isEnabled());
                  Type(dialog, "txtFolderName", "Shop 1.5");
                  Photograph(dialog, "frmNewFolder");
                  QTest::keyClick(&dialog, Qt::Key_Return);
              }),
              "Shop 1.5");
}

TEST(TheFolderNameWindow, GivesNothingWhenItIsCancelled)
{
    EXPECT_EQ(NameAfter([](QWidget& dialog) {
                  Type(dialog, "txtFolderName", "Shop");
                  Click(dialog, "cmdCancel");
              }),
              "");
}

TEST(TheFolderNameWindow, TellsOfANameThatLeadsElsewhere)
{
    EXPECT_EQ(NameAfter([](QWidget& dialog) {
                  for (const char* name : {"a/b", ".", ".."}) {
                      Type(dialog, "txtFolderName", name);
                      EXPECT_FALSE(Find<QPushButton>(dialog, "cmdOK").isEnabled()) << name;
                      EXPECT_FALSE(Find<QLabel>(dialog, "lblTrouble").text().isEmpty()) << name;
                  }
                  Photograph(dialog, "frmNewFolder-trouble");
                  Type(dialog, "txtFolderName", "...");
                  EXPECT_TRUE(Find<QLabel>(dialog, "lblTrouble").text().isEmpty());
                  Click(dialog, "cmdOK");
              }),
              "...");
}

} // namespace
} // namespace veldrane::testing
