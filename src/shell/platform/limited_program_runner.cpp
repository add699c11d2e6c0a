#include "shell/platform/limited_program_runner.h"

#include "shell/platform/spawn.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldrane {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kSource = "ProgramRunner";

std::atomic<pid_t> runningGroup{0}; // NOLINT: a signal handler has nowhere else to look

static_assert(std::atomic<pid_t>::is_always_lock_free);

// While it lives, no signal comes between the start of a program and the note that it runs.
class HeldSignals
{
  public:
    HeldSignals()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &former_);
    }
    ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

  private:
    sigset_t former_{};
};

// The two ends of what goes from one program to the other, closed on exec.
struct Channel
{
    Descriptor Here;
    Descriptor There;
};

// A socket, for a pipe raises SIGPIPE when the other end is gone.
Channel InputChannel(const std::string& program)
{
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw StartFailure(kSource, program, errno);
    return {.Here = Descriptor(ends[0]), .There = Descriptor(ends[1])};
}

Channel OutputChannel(const std::string& program)
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw StartFailure(kSource, program, errno);
    return {.Here = Descriptor(ends[0]), .There = Descriptor(ends[1])};
}

// Readable when the process has ended; closed on exec. Not open on failure, which errno then tells.
Descriptor ProcessDescriptor(pid_t process)
{
    // The system library's own function is declared for C alone.
    return Descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
}

constexpr std::chrono::milliseconds kLongestPoll = std::chrono::hours(1);
constexpr std::chrono::milliseconds kWatchedPoll{100}; // from one word to the watch to the next

// A program from its start until it has ended and has been waited for.
class RunningProgram
{
  public:
    explicit RunningProgram(std::vector<std::string> command);
    ~RunningProgram() { Finish(); }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    // Hands over the input and keeps the output, until the program ends by itself or meets a limit.
    [[nodiscard]] ProgramEnd Converse(std::string_view input, const ProgramLimits& limits);

    // Kills what is left of the program; its status as waitpid tells it.
    int Finish();

    [[nodiscard]] std::string TakeOutput() { return std::move(output_); }

  private:
    void Send(std::string_view& input);
    void Receive(std::size_t most);

    Descriptor toProgram_;
    Descriptor fromProgram_;
    Descriptor ended_;
    pid_t process_ = 0;
    std::string output_;
    std::size_t lines_ = 0; // of the output
};

RunningProgram::RunningProgram(std::vector<std::string> command)
{
    if (command.empty() || command[0].empty())
        throw StartFailure(kSource, "The command names no program", ENOENT);
    Channel input = InputChannel(command[0]);
    Channel output = OutputChannel(command[0]);
    SpawnSettings settings(SpawnPlace::OwnGroup);
    settings.Give(STDIN_FILENO, input.There);
    settings.Give(STDOUT_FILENO, output.There);
    settings.Open(STDERR_FILENO, "/dev/null", O_WRONLY);
    const std::vector<char*> arguments = ArgumentsOf(command);
    {
        const HeldSignals held;
        if (const int error = settings.Spawn(arguments.data(), process_); error != 0)
            throw StartFailure(kSource, command[0], error);
        runningGroup = process_;
    }
    toProgram_ = std::move(input.Here);
    fromProgram_ = std::move(output.Here);
    ended_ = ProcessDescriptor(process_);
    if (!ended_.IsOpen()) {
        const int error = errno;
        Finish();
        throw StartFailure(kSource, command[0], error);
    }
}

// The group is there to be killed as long as its first process has not been waited for.
int RunningProgram::Finish()
{
    if (process_ == 0)
        return 0;
    kill(-process_, SIGKILL);
    runningGroup = 0;
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = 0;
    return status;
}

void RunningProgram::Send(std::string_view& input)
{
    const ssize_t count = send(toProgram_.Number(), input.data(), input.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count >= 0)
        input.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EINTR && errno != EAGAIN)
        input = {}; // nobody reads it any more
}

void RunningProgram::Receive(std::size_t most)
{
    std::array<char, 65536> buffer{};
    const ssize_t count = read(fromProgram_.Number(), buffer.data(), std::min(buffer.size(), most));
    if (count > 0) {
        output_.append(buffer.data(), static_cast<std::size_t>(count));
        lines_ += static_cast<std::size_t>(std::count(buffer.data(), buffer.data() + count, '\n'));
    } else if (count == 0 || errno != EINTR)
        static_cast<void>(fromProgram_.Close());
}

ProgramEnd RunningProgram::Converse(std::string_view input, const ProgramLimits& limits)
{
    const Clock::time_point end = Clock::now() + limits.Time;
    const std::chrono::milliseconds longestPoll = limits.Watch == nullptr ? kLongestPoll : kWatchedPoll;
    while (true) {
        if (limits.Watch != nullptr)
            limits.Watch->Read(lines_);
        if (input.empty())
            static_cast<void>(toProgram_.Close());
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0)
            return ProgramEnd::OutOfTime;
        // A number below 0 is passed over.
        std::array<pollfd, 3> files{pollfd{.fd = toProgram_.Number(), .events = POLLOUT, .revents = 0},
                                    pollfd{.fd = fromProgram_.Number(), .events = POLLIN, .revents = 0},
                                    pollfd{.fd = ended_.Number(), .events = POLLIN, .revents = 0}};
        if (poll(files.data(), files.size(), static_cast<int>(std::min(left, longestPoll).count())) <= 0)
            continue;
        if (files[0].revents != 0)
            Send(input);
        // What the program has said is taken before its end is.
        if (files[1].revents != 0) {
            Receive(limits.OutputBytes + 1 - output_.size());
            if (output_.size() > limits.OutputBytes)
                return ProgramEnd::TooMuchOutput;
        } else if (files[2].revents != 0) {
            return ProgramEnd::Exited;
        }
    }
}

} // namespace

void KillRunningProgram() noexcept
{
    if (const pid_t group = runningGroup; group > 0)
        kill(-group, SIGKILL);
}

ProgramOutcome LimitedProgramRunner::Run(const std::vector<std::string>& command, std::string_view input,
                                         const ProgramLimits& limits)
{
    RunningProgram program(command);
    const ProgramEnd end = program.Converse(input, limits);
    const int status = program.Finish();
    ProgramOutcome outcome{.End = end, .Code = 0, .Output = program.TakeOutput()};
    outcome.Output.resize(std::min(outcome.Output.size(), limits.OutputBytes));
    if (WIFSIGNALED(status)) {
        outcome.Code = WTERMSIG(status);
        if (end == ProgramEnd::Exited)
            outcome.End = ProgramEnd::Signalled;
    } else {
        outcome.Code = WEXITSTATUS(status);
    }
    return outcome;
}

} // namespace veldrane
