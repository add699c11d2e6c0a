#include "datasource/odbc/driver_sockets.h"

#include <charconv>
#include <csignal>
#include <filesystem>
#include <optional>
#include <string>
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
        if (SocketBehind(number) == socket)
            shutdown(number, SHUT_RDWR);
}

SocketWatch::Limit::Limit(SocketWatch& watch, std::chrono::seconds length)
    : watch_(watch), end_(watch.Add(Clock::now() + length))
{}

SocketWatch::Limit::~Limit()
{
    watch_.Remove(end_);
}

SocketWatch::SocketWatch(std::function<OpenSockets()> find) : find_(std::move(find)) {}

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
        else if (const Clock::time_point next = ends_.front(); Clock::now() < next)
            changed_.wait_until(lock, next);
        else {
            hasCut_ = true;
            CutSockets(find_());
            changed_.wait_for(lock, kBetweenCuts);
        }
    }
}

} // namespace veldrane
