#pragma once

#include <cstddef>
#include <string_view>

namespace veldrane {

// Walks over the lines of a text, empty ones left out, without taking the text apart beforehand.
class LineCursor
{
  public:
    // The text must outlive the cursor.
    LineCursor(std::string_view text, std::string_view lineEnd);

    // The number of lines.
    [[nodiscard]] std::size_t Count() const { return count_; }

    // The 1-based number of the current line; Count() + 1 behind the last one.
    [[nodiscard]] std::size_t Position() const { return position_; }

    // Throws RuntimeError (9) behind the last line: the text ends within a block.
    [[nodiscard]] std::string_view Current() const;

    void Advance();

  private:
    std::string_view rest_; // behind the current line and its end
    std::string_view lineEnd_;
    std::string_view line_;
    std::size_t count_ = 0;
    std::size_t position_ = 0;
};

} // namespace veldrane
