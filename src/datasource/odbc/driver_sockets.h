#pragma once

#include <chrono>
#include <condition_variable>
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

// Cuts whatever sockets have come up since it was made, unless it is gone by then.
class CutAfter
{
  public:
    explicit CutAfter(std::chrono::seconds limit);
    CutAfter(const CutAfter&) = delete;
    CutAfter& operator=(const CutAfter&) = delete;
    ~CutAfter();

  private:
    void Wait(std::chrono::seconds limit);

    OpenSockets before_ = FindSockets();
    std::mutex mutex_;
    std::condition_variable gone_;
    bool isGone_ = false;
    std::thread waiting_;
};

} // namespace veldrane
