#include "shell/main_window/catalog_reading.h"
#include "support/manual_clock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using namespace std::chrono_literals;

class CatalogReadingTest : public ::testing::Test
{
  protected:
    void ReadAfter(std::chrono::milliseconds duration, std::size_t rows)
    {
        clock_.Wait(duration);
        reading_.Read(rows);
    }

    testing::ManualClock clock_;
    CatalogReading reading_{clock_};
    std::vector<std::string> shown_;
    Connection connection_ =
        reading_.Changed.Connect([this] { shown_.push_back(reading_.Visible() ? reading_.Text() : "gone"); });
};

TEST_F(CatalogReadingTest, IsNotShownWhereItIsSoonOver)
{
    {
        const CatalogReading::Session session(reading_);
        ReadAfter(499ms, 1);
    }
    EXPECT_TRUE(shown_.empty());
}

TEST_F(CatalogReadingTest, IsShownWhereItTakesLong)
{
    {
        const CatalogReading::Session session(reading_);
        ReadAfter(500ms, 0);
        ReadAfter(49ms, 1);
        ReadAfter(1ms, 1);
        ReadAfter(60ms, 1200);
    }
    EXPECT_EQ(shown_, (std::vector<std::string>{"Reading the data source...", "Reading the data source... 1 row",
                                                "Reading the data source... 1200 rows", "gone"}));
}

TEST_F(CatalogReadingTest, IsCancelledAtItsNextRow)
{
    const CatalogReading::Session session(reading_);
    ReadAfter(1ms, 1);
    reading_.Cancel();
    EXPECT_THROW(reading_.Read(2), ReadingCancelled);
    EXPECT_TRUE(reading_.WasCancelled());
}

TEST_F(CatalogReadingTest, IsCancelledByAnEventThatIsServedWhileItIsShown)
{
    const CatalogReading::Session session(reading_);
    const Connection button = reading_.Changed.Connect([this] { reading_.Cancel(); });
    EXPECT_NO_THROW(reading_.Read(1));
    EXPECT_THROW(ReadAfter(1s, 2), ReadingCancelled);
}

TEST_F(CatalogReadingTest, BeginsAnewAfterACancelledOne)
{
    {
        const CatalogReading::Session session(reading_);
        reading_.Cancel();
        EXPECT_THROW(reading_.Read(1), ReadingCancelled);
    }
    EXPECT_TRUE(reading_.WasCancelled());
    const CatalogReading::Session session(reading_);
    EXPECT_FALSE(reading_.WasCancelled());
    EXPECT_NO_THROW(reading_.Read(1));
}

TEST_F(CatalogReadingTest, TakesNoNoticeOutsideOfASession)
{
    reading_.Cancel();
    EXPECT_NO_THROW(ReadAfter(1h, 1'000'000));
    EXPECT_FALSE(reading_.WasCancelled());
    EXPECT_TRUE(shown_.empty());
}

TEST_F(CatalogReadingTest, AnInnerSessionBelongsToTheOuterOne)
{
    const CatalogReading::Session outer(reading_);
    {
        const CatalogReading::Session inner(reading_);
        ReadAfter(1s, 1);
    }
    EXPECT_TRUE(reading_.Visible());
    reading_.Cancel();
    EXPECT_THROW(reading_.Read(2), ReadingCancelled);
}

} // namespace
} // namespace veldrane
