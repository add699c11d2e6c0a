#pragma once

#include "text/runtime_error.h"

#include <string>
#include <string_view>

namespace veldrane {

// The failure of a system call that reads or removes what stands at the path: 53 for what is missing, 75 otherwise;
// the description is the path and the system's own text of `error`, a value of errno.
[[nodiscard]] RuntimeError ReadFailure(const std::string& path, int error);

// The same for a call that writes; always 75.
[[nodiscard]] RuntimeError WriteFailure(const std::string& path, int error);

// An open file, closed with its owner.
class Descriptor
{
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    [[nodiscard]] int Number() const { return number_; }

    // Closes now; returns 0, or the errno of a failure that the write behind it only meets here.
    [[nodiscard]] int Close();

  private:
    int number_ = -1;
};

// Opens what stands at the path for reading; waits for the other end if that is a pipe. Throws ReadFailure.
[[nodiscard]] Descriptor OpenForReading(const std::string& path);

// Everything up to the end, or to as many bytes as `most`. `path` is for the failure's text. Throws ReadFailure.
[[nodiscard]] std::string ReadAll(const Descriptor& file, const std::string& path,
                                  std::size_t most = std::string::npos);

// All bytes, in as many steps as the system takes. `path` is for the failure's text. Throws WriteFailure.
void WriteAll(const Descriptor& file, std::string_view bytes, const std::string& path);

// The path that stands at the end of the symbolic links, whether something stands there or not; the path itself if it
// is no link. Throws WriteFailure for a chain without an end.
[[nodiscard]] std::string FollowLinks(const std::string& path);

} // namespace veldrane
