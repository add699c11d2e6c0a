#pragma once

#include <string>
#include <string_view>

namespace veldrane::text {

// The system's converter from a Windows code page to UTF-8. The tables of most code pages are files of the C library,
// so that a system may lack one.
class Converter
{
  public:
    explicit Converter(int codePage);
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter();

    // Whether the system has one. Nothing else may be asked of one that it has not.
    [[nodiscard]] bool IsThere() const;

    // The text that `bytes` begin with, up to the first that the code page gives no meaning, or to a character that
    // ends too early. Takes what it has converted off them.
    [[nodiscard]] std::string Convert(std::string_view& bytes) const;

  private:
    void* handle_;
};

} // namespace veldrane::text
