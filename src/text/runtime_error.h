#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace veldrane {

// A run-time error of the generated language's kind: a number, a description and the source that raised it. Rules
// test the number; people read the description.
class RuntimeError : public std::runtime_error
{
  public:
    RuntimeError(long number, std::string source, const std::string& description)
        : std::runtime_error(description), Number(number), Source(std::move(source))
    {}

    [[nodiscard]] std::string Description() const { return what(); }

    long Number;
    std::string Source;
};

// The run-time error numbers of the Visual Basic language that the rules and the model raise or test.
namespace error_number {
inline constexpr long kInvalidCall = 5;
inline constexpr long kOverflow = 6;
inline constexpr long kSubscript = 9;
inline constexpr long kTypeMismatch = 13;
inline constexpr long kFileNotFound = 53;
inline constexpr long kPathAccess = 75;
inline constexpr long kDuplicateKey = 457;
} // namespace error_number

} // namespace veldrane
