#pragma once

#include <atomic>
#include <csignal>
#include <string>
#include <vector>

namespace veldrane::testing {

// The system calls that the tests' linker puts behind a switch.
enum class SystemCall
{
    Fork,
    Fsync,
    Renameat,
    Syncfs,
};

// While it lives, the call fails with the errno, after it went well `before` times.
class FailingCall
{
  public:
    FailingCall(SystemCall call, int error, int before = 0);
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;
};

// From now on the process kills itself, or raises another signal, at the given call, the first being 1, of all those
// behind a switch and of mkdir, open where it may make a file, openat, rename, unlink, unlinkat and write: before the
// call is made. 0 for never.
void KillAtCall(int number, int signal = SIGKILL);

// While it lives, the calls that make, fill, sync or rename a file or make a folder fail with the errno from the
// `first` of them, counted from 1, to the `last`, and are not made: a bad spot on the disk, or a full one.
class FailingCalls
{
  public:
    FailingCalls(int error, int first, int last);
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    // How many of them there were.
    [[nodiscard]] int Made() const;

    // The name of the first that failed, "" for none.
    [[nodiscard]] const char* Failed() const;
};

// From now on the name of each call that KillAtCall counts is put there before it is made. In shared memory, another
// process sees where this one has come to.
void TellCalls(std::atomic<const char*>& latest);

// While it lives, writes take one byte at a time, and every second one is interrupted before it took any.
class HaltingWrites
{
  public:
    HaltingWrites();
    ~HaltingWrites();
    HaltingWrites(const HaltingWrites&) = delete;
    HaltingWrites& operator=(const HaltingWrites&) = delete;
};

// While it lives, keeps the names of the calls made.
class CallLog
{
  public:
    CallLog();
    ~CallLog();
    CallLog(const CallLog&) = delete;
    CallLog& operator=(const CallLog&) = delete;

    [[nodiscard]] const std::vector<std::string>& Calls() const { return calls_; }
    void Add(const char* call) { calls_.emplace_back(call); }

  private:
    std::vector<std::string> calls_;
};

} // namespace veldrane::testing
