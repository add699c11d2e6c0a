#pragma once

#include <functional>
#include <sys/types.h>

namespace veldrane::testing {

// Runs the body in a child process, whose exit code is what the body returns, or kThrew.
[[nodiscard]] pid_t StartChild(const std::function<int()>& body);

// Waits for the child: its exit code, or 1000 + the number of the signal that ended it.
[[nodiscard]] int EndOf(pid_t child);

inline constexpr int kThrew = 99;
inline constexpr int kKilled = 1000;

[[nodiscard]] inline int ExitCodeOf(const std::function<int()>& body)
{
    return EndOf(StartChild(body));
}

// The same as a user without privileges: nobody, where the tests run as root.
[[nodiscard]] int ExitCodeUnprivileged(const std::function<int()>& body);

// Runs the body in as many processes at once, each with its number from 0 on; whether none of them threw.
[[nodiscard]] bool AllEndWell(int processes, const std::function<void(int)>& body);

} // namespace veldrane::testing
