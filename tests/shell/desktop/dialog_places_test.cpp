#include "shell/desktop/dialog_places.h"

#include "shell/desktop/screen_areas.h"
#include "support/memory_settings.h"
#include "support/recorded_errors.h"

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;

class TheDialogsPlaces : public ::testing::Test
{
  protected:
    // Shows a dialog, lets the person touch it, and tells where it was when it came.
    QRect Show(
        const QString& name, const std::function<void(QDialog&)>& touch = [](QDialog&) {})
    {
        QDialog dialog;
        dialog.setObjectName(name);
        dialog.resize(300, 200);
        dialog.show();
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        const QRect place = dialog.geometry();
        touch(dialog);
        dialog.close();
        return place;
    }

    [[nodiscard]] auto Written() const { return settings_.GetAllSettings(settings_section::kWindow); }

    MemorySettings settings_;
    RecordedErrors errors_;
    DialogPlaces places_{settings_, errors_};
};

constexpr QRect kElsewhere(40, 50, 420, 310);

// By the hand of a person, which the desktop tells of.
void PutElsewhere(QDialog& dialog)
{
    dialog.windowHandle()->setGeometry(kElsewhere);
    QApplication::processEvents();
}

TEST_F(TheDialogsPlaces, AreThoseWhereAPersonHasPutThem)
{
    Show(u"frmZoom"_s, PutElsewhere);
    EXPECT_EQ(Show(u"frmZoom"_s), kElsewhere);
    EXPECT_EQ(Show(u"frmZoom"_s), kElsewhere);
}

TEST_F(TheDialogsPlaces, AreNotWrittenWhereNobodyHasTouchedTheDialog)
{
    Show(u"frmZoom"_s);
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(TheDialogsPlaces, AreNotWrittenWhereTheDialogItselfGrows)
{
    Show(u"frmZoom"_s, [](QDialog& dialog) { dialog.resize(500, 400); });
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(TheDialogsPlaces, AreThoseBeforeADialogFilledTheScreen)
{
    Show(u"frmZoom"_s, [](QDialog& dialog) {
        PutElsewhere(dialog);
        dialog.showMaximized();
        QApplication::processEvents();
    });
    EXPECT_EQ(Show(u"frmZoom"_s), kElsewhere);
}

TEST_F(TheDialogsPlaces, AreThoseOfTheProgramsOwnDialogs)
{
    Show(u"QFileDialog"_s, PutElsewhere);
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(TheDialogsPlaces, LeaveTheSizeToDialogsAsLargeAsTheirWords)
{
    Show(u"frmWarning"_s, PutElsewhere);
    EXPECT_EQ(Show(u"frmWarning"_s), QRect(kElsewhere.topLeft(), QSize(300, 200)));
}

TEST_F(TheDialogsPlaces, AreTheUsualOnesWhereTheValueIsBroken)
{
    const QRect usual = Show(u"frmZoom"_s);
    settings_.SaveSetting(settings_section::kWindow, "frmZoom", "all over the screen");
    EXPECT_EQ(Show(u"frmZoom"_s), usual);
}

} // namespace
} // namespace veldrane::testing
