#include "datasource/odbc/driver_sockets.h"

#include <algorithm>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <utility>

namespace veldrane {
namespace {

std::optional<ino_t> SocketBehind(int number)
{
    struct stat status = {};
    if (fstat(number, &status) != 0 || !S_ISSOCK(status.st_mode))
        return std::nullopt;
    return status.st_ino;
}

// Shut down, a socket still gives what has come before.
void DropUnread(int number)
{
    constexpr std::size_t kAtOnce = 1 << 30;
    while (recv(number, nullptr, kAtOnce, MSG_TRUNC | MSG_DONTWAIT) > 0) {
    }
}

std::optional<std::uint64_t> BytesReceivedBy(int number)
{
    tcp_info info = {};
    socklen_t size = sizeof(info);
    if (getsockopt(number, IPPROTO_TCP, TCP_INFO, &info, &size) != 0)
        return std::nullopt;
    return info.tcpi_bytes_received;
}

} // namespace

OpenSockets FindSockets()
{
    OpenSockets sockets;
    std::error_code ignored;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator entry("/proc/self/fd", ignored); entry != end; entry.increment(ignored)) {
        const std::string name = entry->path().filename();
        int number = -1;
        std::from_chars(name.data(), name.data() + name.size(), number);
        if (const auto socket = SocketBehind(number))
            sockets.emplace(number, *socket);
    }
    return sockets;
}

OpenSockets SocketsSince(const OpenSockets& before)
{
    OpenSockets since = FindSockets();
    std::erase_if(since, [&](const auto& socket) {
        const auto known = before.find(socket.first);
        return known != before.end() && known->second == socket.second;
    });
    return since;
}

void CutSockets(const OpenSockets& sockets)
{
    for (const auto& [number, socket] : sockets)
        if (SocketBehind(number) == socket) {
            shutdown(number, SHUT_RDWR);
            DropUnread(number);
        }
}

std::optional<BytesRead> BytesReadFrom(int number)
{
    const auto before = BytesReceivedBy(number);
    int unread = 0;
    if (!before || ioctl(number, FIONREAD, &unread) != 0)
        return std::nullopt;
    const std::uint64_t after = BytesReceivedBy(number).value_or(*before);
    const auto waiting = static_cast<std::uint64_t>(unread);
    return BytesRead{.AtLeast = *before - std::min(*before, waiting), .AtMost = after - std::min(after, waiting)};
}

SocketWatch::Limit::Limit(SocketWatch& watch, std::chrono::seconds length)
    : watch_(watch), end_(watch.Add(Clock::now() + length))
{}

SocketWatch::Limit::~Limit()
{
    watch_.Remove(end_);
}

SocketWatch::SocketWatch(std::function<OpenSockets()> find, std::uint64_t mostBytes)
    : find_(std::move(find)), mostBytes_(mostBytes)
{}

SocketWatch::~SocketWatch()
{
    {
        const std::lock_guard lock(mutex_);
        isGone_ = true;
    }
    changed_.notify_one();
    if (watching_.joinable())
        watching_.join();
}

std::list<SocketWatch::Clock::time_point>::iterator SocketWatch::Add(Clock::time_point end)
{
    const std::lock_guard lock(mutex_);
    if (!watching_.joinable())
        watching_ = std::thread([this] { Watch(); });
    else if (isIdle_) // otherwise it looks again before this end
        changed_.notify_one();
    return ends_.insert(ends_.end(), end);
}

void SocketWatch::Remove(std::list<Clock::time_point>::iterator end)
{
    const std::lock_guard lock(mutex_);
    ends_.erase(end);
}

void SocketWatch::BeginCall(std::uint64_t mostBytes)
{
    mostBytes_ = mostBytes;
    ++call_; // behind its bound: the watch asks in the other order
}

bool SocketWatch::HasReadTooMuch()
{
    const std::uint64_t call = call_;
    const std::uint64_t most = mostBytes_;
    if (most == kUnbounded)
        return false;
    const bool isNew = std::exchange(seenCall_, call) != call;
    if (isNew)
        readBeforeCall_.clear();
    std::uint64_t longest = 0;
    for (const auto& [number, socket] : find_()) {
        const auto read = BytesReadFrom(number);
        if (!read)
            continue;
        if (isNew)
            readBeforeCall_[number] = read->AtMost;
        const std::uint64_t before = readBeforeCall_[number];
        longest = std::max(longest, read->AtLeast - std::min(read->AtLeast, before));
    }
    return longest > most;
}

SocketCut SocketWatch::ReasonToCut()
{
    if (Clock::now() >= ends_.front())
        return SocketCut::Time;
    return HasReadTooMuch() ? SocketCut::Bytes : SocketCut::None;
}

SocketWatch::Clock::time_point SocketWatch::NextLook() const
{
    // A driver takes some thousand messages in it.
    constexpr std::chrono::milliseconds kBetweenLooks(1);
    if (mostBytes_ == kUnbounded)
        return ends_.front();
    return std::min<Clock::time_point>(ends_.front(), Clock::now() + kBetweenLooks);
}

void SocketWatch::Watch()
{
    constexpr std::chrono::seconds kBetweenCuts(1);
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr); // signals are for the thread that works
    std::unique_lock lock(mutex_);
    while (!isGone_) {
        isIdle_ = ends_.empty();
        if (isIdle_)
            changed_.wait(lock);
        else if (const SocketCut reason = ReasonToCut(); reason == SocketCut::None)
            changed_.wait_until(lock, NextLook());
        else {
            if (cut_ == SocketCut::None)
                cut_ = reason;
            CutSockets(find_());
            changed_.wait_for(lock, kBetweenCuts);
        }
    }
}

} // namespace veldrane
