#include "main_window_fixture.h"

#include <QPushButton>
#include <QTest>
#include <QWindow>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::HasSubstr;

TEST_F(MainWindowTest, GeneratesThroughTheWizardByMouseAndByKeys)
{
    StartWithClasses();
    ClickNode(u"Customer"_s);
    const std::string selected = PreviewLine(1).toStdString();
    for (const std::string folder : {"/byMouse", "/byKeys"}) {
        world_.Files.Folders.insert(folder);
        const bool byKeys = folder == "/byKeys";
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        const auto confirm = [byKeys](QWidget& dialog, const char* button) {
            if (byKeys)
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
            else
                Click(dialog, button);
        };
        const auto generate = [this, byKeys] {
            if (byKeys)
                QTest::keyClick(window_->windowHandle(), Qt::Key_F9);
            else
                Tool("Generate").trigger();
        };
        WithDialogs(generate, {[&](QWidget& dialog) {
                        confirm(dialog, "cmdNext");
                        Type(dialog, "txtFolder", folder);
                        confirm(dialog, "cmdNext");
                        confirm(dialog, "cmdNext");
                        auto& close = Find<QPushButton>(dialog, "cmdCancel");
                        EXPECT_TRUE(QTest::qWaitFor([&] { return close.text() == u"&Close"_s; }));
                        confirm(dialog, "cmdCancel");
                    }});
        EXPECT_THAT(world_.Files.Files[folder + "/Customer.cls"], HasSubstr("CompanyName"));
        EXPECT_EQ(rules_->Project().OutputPath, folder);
        EXPECT_EQ(PreviewLine(1).toStdString(), selected);
    }
}

} // namespace
} // namespace veldrane::testing
