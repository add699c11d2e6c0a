#include "projectfile/line_stream.h"

#include "projectfile/format.h"

#include <algorithm>
#include <utility>

namespace veldrane {

LineStream::LineStream(std::string text)
    : text_(std::move(text)),
      lineEnd_(text_.find(project_format::kLineEnd) == std::string::npos ? std::string_view("\n")
                                                                         : project_format::kLineEnd)
{}

std::string_view LineStream::ReadLine()
{
    const std::string_view rest = std::string_view(text_).substr(position_);
    const std::string_view line = rest.substr(0, rest.find(lineEnd_));
    position_ += std::min(rest.size(), line.size() + lineEnd_.size());
    return line;
}

std::string_view LineStream::ReadAll()
{
    const std::string_view rest = std::string_view(text_).substr(position_);
    position_ = text_.size();
    return rest;
}

} // namespace veldrane
