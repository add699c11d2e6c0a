#include "main_window_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

TEST_F(MainWindowTest, ASavedProjectIsThereAtTheNextStart)
{
    StartWithClasses();
    world_.Dialogs.Add("/Shop.kzm");
    Tool("SaveAs").trigger();
    EXPECT_TRUE(world_.Files.Files.contains("/Shop.kzm"));
    EXPECT_FALSE(rules_->Project().Modified());
    EXPECT_TRUE(window_->close());
    Start({.File = "/Shop.kzm"});
    EXPECT_EQ(Above(u"Order"_s), u"Orders"_s);
    EXPECT_EQ(Tables().model()->rowCount(), 4);
    EXPECT_EQ(Tool("MRU1").statusTip(), u"/Shop.kzm"_s);
    EXPECT_EQ(Status(), "Ready...");
}

} // namespace
} // namespace veldrane::testing
