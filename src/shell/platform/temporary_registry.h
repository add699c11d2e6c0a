#pragma once

#include <cstddef>
#include <string>

namespace veldrane {

// The private name of a file that is being written, hidden beside its target:
//
//   .veldrane-4711-0123456789abcdef-17.tmp
//             |    |                +- number among the files of one writer in this folder; 0 is its lock
//             |    +- random, one for each writer and folder
//             +- process
//
// The owner's part is everything before the last hyphen, the hyphen included.
namespace temporary_name {

inline constexpr unsigned kLockNumber = 0;
inline constexpr std::size_t kOwnerSize = 48; // bytes that an owner's part takes at most, its NUL included

// This process and a random part, "4711-0123456789abcdef": another one each time.
[[nodiscard]] std::string ProcessAndRandom();

// A fresh owner's part for this process.
[[nodiscard]] std::string NewOwner();

[[nodiscard]] std::string Of(const std::string& owner, unsigned number);

// The owner's part of a name of exactly this form, "" for any other name.
[[nodiscard]] std::string OwnerOf(const std::string& name);

} // namespace temporary_name

// While it lives, an interrupted run removes the owner's files in the folder. There is room for as many writers as a
// run could ever hold at once; one that finds no room goes unregistered, and its files wait for RemoveAbandoned.
class RegisteredTemporaries
{
  public:
    // `folder` is an open folder that outlives this.
    RegisteredTemporaries(int folder, const std::string& owner);
    ~RegisteredTemporaries();
    RegisteredTemporaries(const RegisteredTemporaries&) = delete;
    RegisteredTemporaries& operator=(const RegisteredTemporaries&) = delete;

    // Told before the file of this number is made.
    void Reach(unsigned number);

  private:
    std::size_t slot_;
};

// From now on SIGINT, SIGTERM, SIGHUP and SIGPIPE remove the temporary files of this process, kill the program that it
// runs (limited_program_runner.h) and end it with the exit code 128 + the signal's number (130 for SIGINT). A signal
// that the program was started to ignore stays ignored. SIGXFSZ is ignored from now on: a file that grows beyond its
// limit is then a write that fails, as on a full disk.
void RemoveTemporariesOnSignal();

} // namespace veldrane
