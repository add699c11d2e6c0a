#include "shell/platform/temporary_registry.h"

#include "shell/platform/limited_program_runner.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <string_view>
#include <unistd.h>

namespace veldrane {
namespace {

constexpr std::string_view kPrefix = ".veldrane-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::size_t kRandomDigits = 16;
constexpr std::string_view kRandomLetters = "0123456789abcdef";
constexpr std::size_t kNameSize = temporary_name::kOwnerSize + 16; // the number and the suffix

constexpr std::size_t kSlots = 64; // a run holds one a folder that it writes into
constexpr int kFree = -1;
constexpr int kTaken = -2; // being filled: nothing to remove yet

// One writer's files in one folder. A signal handler reads this: no allocation, no lock.
struct Slot
{
    std::atomic<int> Folder{kFree};
    std::atomic<unsigned> Last{0};
    pid_t Process = 0; // a forked child has a copy of the table, but not the files
    std::array<char, temporary_name::kOwnerSize> Owner{};
};

std::array<Slot, kSlots> slots; // NOLINT: a signal handler has nowhere else to look

static_assert(std::atomic<int>::is_always_lock_free && std::atomic<unsigned>::is_always_lock_free);

// Prefix, process, hyphen, random part, hyphen.
bool IsOwner(std::string_view text)
{
    if (!text.starts_with(kPrefix) || !text.ends_with('-') || text.size() >= temporary_name::kOwnerSize)
        return false;
    const std::string_view inner = text.substr(kPrefix.size(), text.size() - kPrefix.size() - 1);
    const std::size_t hyphen = inner.find_first_not_of("0123456789");
    return hyphen != 0 && hyphen != std::string_view::npos && inner[hyphen] == '-' &&
           inner.size() - hyphen - 1 == kRandomDigits &&
           inner.find_first_not_of(kRandomLetters, hyphen + 1) == std::string_view::npos;
}

char* Append(char* end, std::string_view text)
{
    return std::copy(text.begin(), text.end(), end);
}

// Fit for a signal handler, hence no std::string.
void FormatName(std::array<char, kNameSize>& name, std::string_view owner, unsigned number)
{
    char* end = Append(name.data(), owner);
    end = std::to_chars(end, name.data() + name.size() - kSuffix.size() - 1, number).ptr;
    *Append(end, kSuffix) = '\0';
}

void RemoveFilesOf(const Slot& slot)
{
    const int folder = slot.Folder;
    if (folder < 0 || slot.Process != getpid())
        return;
    std::array<char, kNameSize> name{};
    // The lock, number 0, comes last: while it stands nobody takes the others for abandoned.
    for (unsigned left = slot.Last + 1; left > 0; --left) {
        FormatName(name, slot.Owner.data(), left - 1);
        unlinkat(folder, name.data(), 0);
    }
}

extern "C" void RemoveTemporariesAndEnd(int signal)
{
    KillRunningProgram();
    for (const Slot& slot : slots)
        RemoveFilesOf(slot);
    _exit(128 + signal); // the shell's convention
}

} // namespace

namespace temporary_name {

std::string ProcessAndRandom()
{
    std::random_device random;
    std::uint64_t value = (static_cast<std::uint64_t>(random()) << 32) | random();
    std::string digits(kRandomDigits, '0');
    for (char& digit : digits) {
        digit = kRandomLetters[value & 0xF];
        value >>= 4;
    }
    return std::to_string(getpid()) + "-" + digits;
}

std::string NewOwner()
{
    return std::string(kPrefix) + ProcessAndRandom() + "-";
}

std::string Of(const std::string& owner, unsigned number)
{
    return owner + std::to_string(number).append(kSuffix);
}

std::string OwnerOf(const std::string& name)
{
    const std::size_t end = name.rfind('-') + 1; // npos + 1 is 0
    std::string owner = name.substr(0, end);
    unsigned number = 0;
    std::from_chars(name.data() + end, name.data() + name.size(), number);
    return IsOwner(owner) && Of(owner, number) == name ? owner : std::string();
}

} // namespace temporary_name

RegisteredTemporaries::RegisteredTemporaries(int folder, const std::string& owner) : slot_(0)
{
    for (; slot_ < slots.size(); ++slot_) {
        Slot& slot = slots[slot_];
        int expected = kFree;
        if (!slot.Folder.compare_exchange_strong(expected, kTaken))
            continue;
        slot.Last = 0;
        slot.Process = getpid();
        slot.Owner.fill('\0');
        owner.copy(slot.Owner.data(), slot.Owner.size() - 1);
        slot.Folder = folder;
        return;
    }
}

RegisteredTemporaries::~RegisteredTemporaries()
{
    if (slot_ < slots.size())
        slots[slot_].Folder = kFree;
}

void RegisteredTemporaries::Reach(unsigned number)
{
    if (slot_ < slots.size())
        slots[slot_].Last = number;
}

void RemoveTemporariesOnSignal()
{
    struct sigaction action = {};
    action.sa_handler = RemoveTemporariesAndEnd;
    sigfillset(&action.sa_mask);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        struct sigaction former = {};
        if (sigaction(signal, nullptr, &former) == 0 && former.sa_handler != SIG_IGN)
            sigaction(signal, &action, nullptr);
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace veldrane
