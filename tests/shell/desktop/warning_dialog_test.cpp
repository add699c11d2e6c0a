#include "shell/desktop/warning_dialog.h"

#include "screenshots.h"
#include "shell/main_window/help_messages.h"
#include "support/memory_settings.h"
#include "support/recorded_errors.h"
#include "widgets.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

struct TheWarningWindow : ::testing::Test
{
    void Warn(std::int32_t id, const Act& act)
    {
        WithDialogs([&] { form.DisplayWarning("You have opened another data source.\r\nClick 'OK'.", id); }, {act});
    }

    [[nodiscard]] std::string Stored() const { return settings.GetKeyValue("Help", "warnOpenDatasource"); }

    MemorySettings settings;
    RecordedErrors errors;
    frmWarning form{settings, errors, ShowWarning};
};

TEST_F(TheWarningWindow, ShowsTheMessageUnderItsOwnTitle)
{
    Warn(warning_id::kOpenDatasource, [](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), u"frmWarning"_s);
        EXPECT_EQ(dialog.windowTitle(), u"Opening another data source"_s);
        EXPECT_EQ(Find<QLabel>(dialog, "lblMessage").text(), u"You have opened another data source.\nClick 'OK'."_s);
        EXPECT_FALSE(Find<QCheckBox>(dialog, "chkDoNotShow").isChecked());
        EXPECT_EQ(dialog.focusWidget(), &Find<QPushButton>(dialog, "cmdOK"));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Stored(), "");
}

TEST_F(TheWarningWindow, IsShownNoMoreOnceItsBoxWasTickedAtOK)
{
    Warn(warning_id::kOpenDatasource, [](QWidget& dialog) {
        Click(dialog, "chkDoNotShow");
        Click(dialog, "cmdOK");
    });
    EXPECT_EQ(Stored(), "1");
    WithDialogs([&] { form.DisplayWarning("Again", warning_id::kOpenDatasource); }, {});
}

TEST_F(TheWarningWindow, KeepsNoTickThatWasTakenBack)
{
    Warn(warning_id::kOpenDatasource, [](QWidget& dialog) {
        QTest::keyClick(&Find<QCheckBox>(dialog, "chkDoNotShow"), Qt::Key_Space);
        EXPECT_TRUE(Find<QCheckBox>(dialog, "chkDoNotShow").isChecked());
        Click(dialog, "chkDoNotShow");
        Click(dialog, "cmdOK");
    });
    EXPECT_EQ(Stored(), "");
}

TEST_F(TheWarningWindow, KeepsNothingWhenItIsClosed)
{
    for (const Act& leave : std::vector<Act>{[](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
                                             [](QWidget& dialog) { dialog.close(); }})
        Warn(warning_id::kOpenDatasource, [&](QWidget& dialog) {
            Click(dialog, "chkDoNotShow");
            leave(dialog);
        });
    EXPECT_EQ(Stored(), "");
}

TEST_F(TheWarningWindow, HasNoBoxWhereTheMessageCanNotBeTurnedOff)
{
    for (const std::int32_t id : {warning_id::kHelpMessages, 6, -1})
        Warn(id, [](QWidget& dialog) {
            EXPECT_FALSE(Find<QCheckBox>(dialog, "chkDoNotShow").isVisible());
            Click(dialog, "cmdOK");
        });
}

TEST_F(TheWarningWindow, HasRoomForAllOfALongMessage)
{
    std::string message;
    for (int line = 0; line < 12; ++line)
        message += "Your classes have not been changed: they keep the tables and fields that they were made from.\r\n";
    WithDialogs([&] { form.DisplayWarning(message, 6); }, {[](QWidget& dialog) {
                    const auto& label = Find<QLabel>(dialog, "lblMessage");
                    EXPECT_GE(label.height(), label.heightForWidth(label.width()));
                    Click(dialog, "cmdOK");
                }});
}

} // namespace
} // namespace veldrane::testing
