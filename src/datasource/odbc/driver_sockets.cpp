#include "datasource/odbc/driver_sockets.h"

#include <charconv>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>

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

CutAfter::CutAfter(std::chrono::seconds limit) : waiting_([this, limit] { Wait(limit); }) {}

CutAfter::~CutAfter()
{
    {
        const std::lock_guard lock(mutex_);
        isGone_ = true;
    }
    gone_.notify_one();
    waiting_.join();
}

void CutAfter::Wait(std::chrono::seconds limit)
{
    std::unique_lock lock(mutex_);
    if (!gone_.wait_for(lock, limit, [this] { return isGone_; }))
        CutSockets(SocketsSince(before_));
}

} // namespace veldrane
