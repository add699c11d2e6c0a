#pragma once

#include <cstddef>
#include <string>

namespace veldrane::jet {

// A plain file opened once, for reading; whoever puts another in its place changes nothing.
class InputFile
{
  public:
    // Throws Refusal: kMissing, kNotAFile for anything but a plain file, which is not opened then, kUnreachable,
    // kUnreadable, kFailing.
    explicit InputFile(const std::string& path);
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    // The first bytes, fewer if there are no more. Throws Refusal as the constructor does.
    [[nodiscard]] std::string Beginning(std::size_t size) const;

    // A path by which this process opens the same file again.
    [[nodiscard]] std::string Path() const;

  private:
    int descriptor_;
};

} // namespace veldrane::jet
