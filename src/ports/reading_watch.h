#pragma once

#include <cstddef>
#include <exception>

namespace veldrane {

// The person wants no more of what is being read. No failure: nothing is reported.
class ReadingCancelled : public std::exception
{
  public:
    [[nodiscard]] const char* what() const noexcept override { return "The reading was cancelled."; }
};

// Whoever watches a data source being read.
class ReadingWatch
{
  public:
    virtual ~ReadingWatch() = default;

    // So many rows of the present answer were read. Told after each of them, and several times a second while a
    // program is waited for that does the reading. Throws ReadingCancelled to end it: the answer is then given up, and
    // the connection stays open.
    virtual void Read(std::size_t rows) = 0;
};

} // namespace veldrane
