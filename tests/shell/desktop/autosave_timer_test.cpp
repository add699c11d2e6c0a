#include "shell/desktop/autosave_timer.h"

#include "shell/desktop/room_for_dialog.h"
#include "started_window.h"

#include <QTest>

#include <gmock/gmock.h>

namespace veldrane::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class TheAutosaveTimer : public StartedWindow
{
  protected:
    TheAutosaveTimer()
    {
        Start();
        rules_->Project().AutosaveProjectInterval = 1;
        rules_->Project().SetModified(true);
    }

    void TearDown() override
    {
        while (QApplication::overrideCursor() != nullptr)
            QApplication::restoreOverrideCursor();
    }

    // Two make a minute.
    static void TickTwice(AutosaveTimer& timer)
    {
        timer.Tick();
        timer.Tick();
    }

    [[nodiscard]] auto Entries() const { return world_.UserSettings.GetAllSettings(settings_section::kTempFiles); }
};

TEST_F(TheAutosaveTimer, SavesBetweenEvents)
{
    AutosaveTimer timer(*rules_);
    TickTwice(timer);
    EXPECT_THAT(Entries(), SizeIs(1));
}

TEST_F(TheAutosaveTimer, HoldsATickOverUntilTheRoutineIsDone)
{
    AutosaveTimer timer(*rules_);
    timer.Tick();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    timer.Tick();
    EXPECT_THAT(Entries(), IsEmpty());
    QApplication::restoreOverrideCursor();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Entries().empty(); }));
}

TEST_F(TheAutosaveTimer, KeepsALastCopyUnlessARoutineIsOnItsWay)
{
    AutosaveTimer timer(*rules_);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    EXPECT_FALSE(timer.KeepLastCopy());
    EXPECT_THAT(Entries(), IsEmpty());
    QApplication::restoreOverrideCursor();
    EXPECT_TRUE(timer.KeepLastCopy());
    EXPECT_THAT(Entries(), SizeIs(1));
}

TEST_F(TheAutosaveTimer, HoldsATickOverWhereARunShowsTheArrowOverItsCancel)
{
    AutosaveTimer timer(*rules_);
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    TickTwice(timer);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TheAutosaveTimer, SavesWhileAQuestionStandsOverARoutine)
{
    AutosaveTimer timer(*rules_);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const RoomForDialog asking;
    TickTwice(timer);
    EXPECT_THAT(Entries(), SizeIs(1));
}

} // namespace
} // namespace veldrane::testing
