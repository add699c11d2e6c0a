#include "datasource/odbc/driver_sockets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <array>
#include <chrono>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace veldrane {
namespace {

using namespace std::chrono_literals;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::UnorderedElementsAre;

// Two sockets that are connected with each other.
class Line
{
  public:
    Line() { EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends_.data()), 0); }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line()
    {
        for (const int end : ends_)
            close(end);
    }

    [[nodiscard]] int Near() const { return ends_[0]; }
    [[nodiscard]] int Far() const { return ends_[1]; }

    // Comes back when the line is cut.
    void AwaitCut() const
    {
        char byte = 0;
        EXPECT_EQ(recv(Far(), &byte, 1, 0), 0);
    }

    [[nodiscard]] bool IsCut() const
    {
        char byte = 0;
        return recv(Far(), &byte, 1, MSG_DONTWAIT) == 0;
    }

  private:
    std::array<int, 2> ends_{};
};

std::ptrdiff_t CountIn(const char* folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

std::ptrdiff_t Threads()
{
    return CountIn("/proc/self/task");
}

// A thread that has ended is listed for some moments more.
void AwaitThreads(std::ptrdiff_t number)
{
    for (int tries = 0; Threads() != number && tries < 500; ++tries)
        std::this_thread::sleep_for(10ms);
    EXPECT_EQ(Threads(), number);
}

void AwaitCutOf(const SocketWatch& watch)
{
    for (int tries = 0; watch.WhyCut() == SocketCut::None && tries < 500; ++tries)
        std::this_thread::sleep_for(10ms);
    EXPECT_EQ(watch.WhyCut(), SocketCut::Time);
}

TEST(DriverSockets, AreThoseThatHaveComeUpSince)
{
    const Line earlier;
    const OpenSockets before = FindSockets();
    EXPECT_TRUE(before.contains(earlier.Near()));
    EXPECT_THAT(SocketsSince(before), IsEmpty());
    const Line later;
    EXPECT_THAT(SocketsSince(before), UnorderedElementsAre(Key(later.Near()), Key(later.Far())));
}

TEST(DriverSockets, AreNotFilesOrPipes)
{
    const OpenSockets before = FindSockets();
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
    EXPECT_THAT(SocketsSince(before), IsEmpty());
    for (const int number : {ends[0], ends[1], file})
        close(number);
}

TEST(DriverSockets, AreOthersWhenTheirNumbersAreTakenAnew)
{
    auto line = std::make_unique<Line>();
    const OpenSockets before = FindSockets();
    const int number = line->Near();
    line.reset();
    const Line next;
    ASSERT_EQ(next.Near(), number);
    EXPECT_THAT(SocketsSince(before), UnorderedElementsAre(Key(next.Near()), Key(next.Far())));
    CutSockets(before);
    EXPECT_FALSE(next.IsCut());
}

TEST(DriverSockets, AreCutThoughTheirNumbersStay)
{
    const OpenSockets before = FindSockets();
    const Line line;
    const Line closed;
    OpenSockets sockets = SocketsSince(before);
    sockets.emplace(-1, 1);
    CutSockets(sockets);
    EXPECT_TRUE(line.IsCut());
    CutSockets(sockets);
    EXPECT_TRUE(SocketsSince(before).contains(line.Near()));
}

// Both ends of a TCP connection within this process.
class TcpLine
{
  public:
    TcpLine()
    {
        sockaddr_in address{.sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
        socklen_t size = sizeof(address);
        auto* general = reinterpret_cast<sockaddr*>(&address);
        const int listening = socket(AF_INET, SOCK_STREAM, 0);
        EXPECT_EQ(bind(listening, general, size), 0);
        EXPECT_EQ(listen(listening, 1), 0);
        EXPECT_EQ(getsockname(listening, general, &size), 0);
        EXPECT_EQ(connect(Near, general, size), 0);
        Far = accept(listening, nullptr, nullptr);
        close(listening);
    }
    TcpLine(const TcpLine&) = delete;
    TcpLine& operator=(const TcpLine&) = delete;
    ~TcpLine()
    {
        close(Near);
        close(Far);
    }

    void Send(std::size_t size) const
    {
        const std::string bytes(size, 'x');
        EXPECT_EQ(send(Far, bytes.data(), size, MSG_NOSIGNAL), static_cast<ssize_t>(size));
    }

    // Bytes that came, 0 behind the end.
    [[nodiscard]] ssize_t Read(std::size_t size) const
    {
        std::string bytes(size, '\0');
        return recv(Near, bytes.data(), size, MSG_WAITALL);
    }

    int Near = socket(AF_INET, SOCK_STREAM, 0);
    int Far = -1;
};

TEST(DriverSockets, TellHowMuchWasReadOfThemAndNotWhatWaits)
{
    const TcpLine line;
    line.Send(1000);
    ASSERT_EQ(line.Read(300), 300);
    const auto read = BytesReadFrom(line.Near);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->AtLeast, 300U);
    EXPECT_EQ(read->AtMost, 300U);
}

TEST(DriverSockets, WithoutTcpDoNotTellHowMuchWasRead)
{
    const Line line;
    EXPECT_FALSE(BytesReadFrom(line.Near()).has_value());
    EXPECT_FALSE(BytesReadFrom(-1).has_value());
}

TEST(DriverSockets, LoseWhatWaitsWhenTheyAreCut)
{
    const OpenSockets before = FindSockets();
    const TcpLine line;
    line.Send(1000);
    ASSERT_EQ(line.Read(1), 1);
    CutSockets(SocketsSince(before));
    EXPECT_LE(line.Read(999), 0);
}

// A watch that cuts whatever has come up since it was made.
class SocketWatching : public ::testing::Test
{
  protected:
    OpenSockets Before = FindSockets();
    SocketWatch Watch{[this] { return SocketsSince(Before); }};
};

TEST_F(SocketWatching, CutsWhatItFindsOnceALimitIsOver)
{
    const Line line;
    EXPECT_EQ(Watch.WhyCut(), SocketCut::None);
    const SocketWatch::Limit limit(Watch, 0s);
    line.AwaitCut();
    EXPECT_EQ(Watch.WhyCut(), SocketCut::Time);
}

TEST_F(SocketWatching, CutsAgainWhatComesUpWhileTheLimitIsThere)
{
    const SocketWatch::Limit limit(Watch, 0s);
    AwaitCutOf(Watch);
    const Line line;
    line.AwaitCut();
}

TEST_F(SocketWatching, LeavesAloneWhatComesUpBehindTheLimit)
{
    {
        const SocketWatch::Limit limit(Watch, 0s);
        AwaitCutOf(Watch);
    }
    const Line line;
    std::this_thread::sleep_for(1200ms); // longer than between two cuts
    EXPECT_FALSE(line.IsCut());
}

TEST_F(SocketWatching, CutsNothingWhereEachLimitIsCalledOff)
{
    const Line line;
    for (int statement = 0; statement < 10'000; ++statement)
        const SocketWatch::Limit limit(Watch, 1h);
    EXPECT_EQ(Watch.WhyCut(), SocketCut::None);
    EXPECT_FALSE(line.IsCut());
}

TEST_F(SocketWatching, HeedsALimitAmongOthersThatWereCalledOff)
{
    auto first = std::make_unique<SocketWatch::Limit>(Watch, 1s);
    const SocketWatch::Limit second(Watch, 1s);
    first.reset();
    const Line line;
    line.AwaitCut();
}

TEST_F(SocketWatching, HeedsALimitAfterAPauseWithoutAny)
{
    const auto cutOne = [&] {
        const Line line;
        const SocketWatch::Limit limit(Watch, 1s);
        line.AwaitCut();
    };
    cutOne();
    std::this_thread::sleep_for(1200ms); // until it waits for nothing
    cutOne();
}

TEST_F(SocketWatching, CutsACallThatReadsTooMuch)
{
    const TcpLine line;
    line.Send(5000);
    ASSERT_EQ(line.Read(5000), 5000);
    Watch.BeginCall(1000);
    const SocketWatch::Limit limit(Watch, 1h);
    std::this_thread::sleep_for(100ms); // until it has looked
    EXPECT_EQ(Watch.WhyCut(), SocketCut::None);
    line.Send(1001);
    ASSERT_EQ(line.Read(1001), 1001);
    EXPECT_EQ(line.Read(1), 0);
    EXPECT_EQ(Watch.WhyCut(), SocketCut::Bytes);
}

TEST_F(SocketWatching, CountsFromTheBeginningOfASocketInItsFirstCall)
{
    SocketWatch watch([this] { return SocketsSince(Before); }, 1000);
    const TcpLine line;
    line.Send(1001);
    ASSERT_EQ(line.Read(1001), 1001);
    const SocketWatch::Limit limit(watch, 1h);
    EXPECT_EQ(line.Read(1), 0);
    EXPECT_EQ(watch.WhyCut(), SocketCut::Bytes);
}

TEST_F(SocketWatching, LetsManyCallsReadWhatOneMayNot)
{
    const TcpLine line;
    const SocketWatch::Limit limit(Watch, 1h);
    for (int call = 0; call < 100; ++call) {
        Watch.BeginCall(1000);
        line.Send(900);
        ASSERT_EQ(line.Read(900), 900);
        std::this_thread::sleep_for(3ms);
    }
    EXPECT_EQ(Watch.WhyCut(), SocketCut::None);
}

TEST_F(SocketWatching, HasNothingToCutWhereThereAreNoSockets)
{
    SocketWatch watch([] { return OpenSockets(); });
    const Line line;
    const SocketWatch::Limit limit(watch, 0s);
    AwaitCutOf(watch);
    EXPECT_FALSE(line.IsCut());
}

TEST_F(SocketWatching, HasOneThreadFromTheFirstLimitToItsEndAndLeavesNothing)
{
    std::this_thread::sleep_for(100ms); // until no thread of an earlier test is listed
    const std::ptrdiff_t threads = Threads();
    const std::ptrdiff_t descriptors = CountIn("/proc/self/fd");
    for (int time = 0; time < 20; ++time) {
        AwaitThreads(threads);
        SocketWatch watch(FindSockets);
        EXPECT_EQ(Threads(), threads);
        const SocketWatch::Limit first(watch, 1h);
        const SocketWatch::Limit second(watch, 1h);
        EXPECT_EQ(Threads(), threads + 1);
    }
    AwaitThreads(threads);
    EXPECT_EQ(CountIn("/proc/self/fd"), descriptors);
}

} // namespace
} // namespace veldrane
