#pragma once

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace veldrane::testing {

// A server that takes connections and never says a word. It outlives what waits for its callers.
class SilentServer
{
  public:
    SilentServer() : socket_(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address{.sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
        socklen_t size = sizeof(address);
        EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), size), 0);
        EXPECT_EQ(listen(socket_, 8), 0);
        EXPECT_EQ(getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size), 0);
        port_ = ntohs(address.sin_port);
    }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;
    ~SilentServer() { close(socket_); }

    // Waits for a caller and hangs up; false once Close was called.
    [[nodiscard]] bool HangUp() const
    {
        const int caller = accept(socket_, nullptr, nullptr);
        close(caller);
        return caller >= 0;
    }

    // Takes no more callers.
    void Close() const { shutdown(socket_, SHUT_RDWR); }

    // Comes back once somebody has connected.
    void AwaitCaller() const { EXPECT_GE(accept(socket_, nullptr, nullptr), 0); }

    // The part of a connection string that says where it is.
    [[nodiscard]] std::string Target() const { return "Server=127.0.0.1;Port=" + std::to_string(port_) + ";"; }

  private:
    int socket_;
    int port_ = 0;
};

} // namespace veldrane::testing
