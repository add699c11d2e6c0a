#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <list>
#include <map>
#include <mutex>
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

// Ends the connections behind them, as if the other side had. One that is closed already is passed over.
void CutSockets(const OpenSockets& sockets);

// Cuts sockets once a limit is over, and again each second for as long as the limit is there: drivers that lose one
// connection may go on with another. One thread serves any number of limits, and starts with the first.
class SocketWatch
{
  public:
    using Clock = std::chrono::steady_clock;

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

    // `find` tells at the time of a cut what to cut; the watch's thread calls it.
    explicit SocketWatch(std::function<OpenSockets()> find);
    SocketWatch(const SocketWatch&) = delete;
    SocketWatch& operator=(const SocketWatch&) = delete;
    ~SocketWatch();

    // Whether a limit has been over, ever.
    [[nodiscard]] bool HasCut() const { return hasCut_; }

  private:
    std::list<Clock::time_point>::iterator Add(Clock::time_point end);
    void Remove(std::list<Clock::time_point>::iterator end);
    void Watch();

    std::function<OpenSockets()> find_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::list<Clock::time_point> ends_; // the next one first
    bool isIdle_ = false;               // without an end to wait for
    bool isGone_ = false;
    std::atomic<bool> hasCut_ = false;
    std::thread watching_;
};

} // namespace veldrane
