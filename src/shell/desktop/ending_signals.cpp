#include "shell/desktop/ending_signals.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>

#include <fcntl.h>
#include <unistd.h>

namespace veldrane {
namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 200ms;
constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};

// Global, for a signal handler knows nothing else.
std::array<int, 2> caughtSignals{-1, -1}; // a pipe
std::array<struct sigaction, kSignals.size()> effects;

void GiveBackEffects()
{
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &effects[i], nullptr);
}

extern "C" void Catch(int signal)
{
    const int error = errno;
    GiveBackEffects();
    const auto number = static_cast<unsigned char>(signal);
    if (write(caughtSignals[1], &number, sizeof number) != sizeof number)
        raise(signal);
    errno = error;
}

int OpenPipe()
{
    if (pipe2(caughtSignals.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        caughtSignals = {-1, -1};
    return caughtSignals[0];
}

} // namespace

EndingSignals::EndingSignals(std::function<bool()> lastAct)
    : lastAct_(std::move(lastAct)), caught_(OpenPipe(), QSocketNotifier::Read)
{
    again_.setSingleShot(true);
    connect(&caught_, &QSocketNotifier::activated, this, &EndingSignals::Act);
    connect(&again_, &QTimer::timeout, this, &EndingSignals::Act);
    struct sigaction action = {};
    action.sa_handler = Catch;
    sigfillset(&action.sa_mask);
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], nullptr, &effects[i]);
        if (caughtSignals[1] >= 0 && effects[i].sa_handler != SIG_IGN)
            sigaction(kSignals[i], &action, nullptr);
    }
}

EndingSignals::~EndingSignals()
{
    GiveBackEffects();
    for (const int end : caughtSignals)
        close(end);
    caughtSignals = {-1, -1};
}

void EndingSignals::Act()
{
    unsigned char number = 0;
    if (read(caughtSignals[0], &number, sizeof number) == sizeof number)
        signal_ = number;
    if (signal_ == 0)
        return;
    if (lastAct_())
        raise(signal_);
    else
        again_.start(kPause);
}

} // namespace veldrane
