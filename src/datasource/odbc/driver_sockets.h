#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <limits>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <sys/types.h>
#include <thread>

namespace veldrane {

// Sockets of this process by their numbers, each with what tells it from a later one of that number. Drivers give no
// limit to a server that goes on talking; a connection that is cut at its socket brings each of them back.
using OpenSockets = std::map<int, ino_t>;

// Those that are open now.
[[nodiscard]] OpenSockets FindSockets();

// Those that are open now and were not among these: a driver's own, if it has connected meanwhile.
[[nodiscard]] OpenSockets SocketsSince(const OpenSockets& before);

// Ends the connections behind them, as if the other side had, and drops what has come and nobody has read. One that is
// closed already is passed over.
void CutSockets(const OpenSockets& sockets);

// Bytes that this process has read from a TCP connection since it began. What has come and what waits to be read are
// asked for one after the other, so the number lies between two.
struct BytesRead
{
    std::uint64_t AtLeast = 0;
    std::uint64_t AtMost = 0;
};

// None for what is no TCP connection.
[[nodiscard]] std::optional<BytesRead> BytesReadFrom(int number);

// Why a watch has cut sockets.
enum class SocketCut
{
    None,
    Time,  // a limit was over
    Bytes, // a call into the driver has read more than it may
};

// Cuts sockets once a limit is over or a call into the driver reads too much, and again each second for as long as that
// is so and a limit is there: drivers that lose one connection may go on with another. One thread serves any number of
// limits, and starts with the first.
class SocketWatch
{
  public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::uint64_t kUnbounded = std::numeric_limits<std::uint64_t>::max();

    // Begins when it is made and is called off when it goes. The limits of one watch are equally long.
    class Limit
    {
      public:
        Limit(SocketWatch& watch, std::chrono::seconds length);
        Limit(const Limit&) = delete;
        Limit& operator=(const Limit&) = delete;
        ~Limit();

      private:
        SocketWatch& watch_;
        std::list<Clock::time_point>::iterator end_;
    };

    // `find` tells what to look at, and at the time of a cut what to cut; the watch's thread calls it. A first call
    // into the driver begins with the watch, and may read `mostBytes` of each socket from the socket's beginning on.
    explicit SocketWatch(std::function<OpenSockets()> find, std::uint64_t mostBytes = kUnbounded);
    SocketWatch(const SocketWatch&) = delete;
    SocketWatch& operator=(const SocketWatch&) = delete;
    ~SocketWatch();

    // Ends the call before and begins another. It is cut off soon after it has read so many bytes, counted from when
    // the watch first looks at it. Costs nothing to speak of: rows come by a call each.
    void BeginCall(std::uint64_t mostBytes);

    // Why it has cut first, ever.
    [[nodiscard]] SocketCut WhyCut() const { return cut_; }

  private:
    std::list<Clock::time_point>::iterator Add(Clock::time_point end);
    void Remove(std::list<Clock::time_point>::iterator end);
    void Watch();
    [[nodiscard]] SocketCut ReasonToCut();
    [[nodiscard]] bool HasReadTooMuch();
    [[nodiscard]] Clock::time_point NextLook() const;

    std::function<OpenSockets()> find_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::list<Clock::time_point> ends_; // the next one first
    bool isIdle_ = false;               // without an end to wait for
    bool isGone_ = false;
    std::atomic<SocketCut> cut_ = SocketCut::None;
    std::atomic<std::uint64_t> mostBytes_;
    std::atomic<std::uint64_t> call_ = 0;
    std::uint64_t seenCall_ = 0;                  // the watch's thread alone has it, and what follows
    std::map<int, std::uint64_t> readBeforeCall_; // from a socket; nothing from one that has come up since
    std::thread watching_;
};

} // namespace veldrane
