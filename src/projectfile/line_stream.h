#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace veldrane {

// A text read line by line from its beginning. Lines end with CR LF; LF alone ends a line only in a text that holds no
// CR LF at all, such as a file that lost them on its way.
class LineStream
{
  public:
    explicit LineStream(std::string text);
    LineStream(const LineStream&) = delete;
    LineStream& operator=(const LineStream&) = delete;
    ~LineStream() = default;

    [[nodiscard]] bool AtEnd() const { return position_ == text_.size(); }

    // The next line without its end; empty at the end of the text. Lives as long as the stream.
    std::string_view ReadLine();

    // All that is left. Lives as long as the stream.
    std::string_view ReadAll();

    [[nodiscard]] std::string_view LineEnd() const { return lineEnd_; }

  private:
    std::string text_;
    std::string_view lineEnd_;
    std::size_t position_ = 0;
};

} // namespace veldrane
