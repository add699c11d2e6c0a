#include "shell/desktop/qt_clock.h"
#include "shell/desktop/qt_mouse_pointer.h"
#include "shell/desktop/qt_progress.h"

#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

TEST(QtMousePointer, ShowsTheHourglassUntilAllWhoWantedItAreDone)
{
    QtMousePointer pointer;
    {
        const PointerWhile outer(pointer, PointerShape::Hourglass);
        {
            const PointerWhile inner(pointer, PointerShape::Hourglass);
        }
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(QtClock, ServesEventsWhileItWaits)
{
    bool wasServed = false;
    QTimer::singleShot(0, [&] { wasServed = true; });
    QtClock().Wait(std::chrono::milliseconds(20));
    EXPECT_TRUE(wasServed);
}

TEST(QtProgress, ShowsEachStageAndPassesOverStepsThatFollowFast)
{
    QLabel status;
    QProgressBar bar;
    QtProgress progress(status, bar);
    progress.Stage(10, "Reading tables");
    EXPECT_EQ(status.text(), u"Reading tables"_s);
    EXPECT_EQ(bar.value(), 10);
    progress.Step(11, "Customers");
    EXPECT_EQ(bar.value(), 10);
    progress.Stage(100, "Done");
    EXPECT_EQ(status.text(), u"Done"_s);
}

TEST(QtProgress, OutlivesItsControls)
{
    auto status = std::make_unique<QLabel>();
    QProgressBar bar;
    QtProgress progress(*status, bar);
    status.reset();
    progress.Stage(10, "Reading tables");
    EXPECT_EQ(bar.value(), -1) << "the bar stays as it was made";
}

} // namespace
} // namespace veldrane::testing
