#pragma once

#include "datasource/jet/answer_format.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace veldrane::jet {

// Why a file is not read. It ends the reading, and is told in place of what the file holds.
class Refusal : public std::runtime_error
{
  public:
    // `reason` is one of those of answer_format.h; `words` are for a person and may be empty.
    explicit Refusal(std::string_view reason, const std::string& words = {})
        : std::runtime_error(words), reason_(reason)
    {}

    [[nodiscard]] std::string_view Reason() const { return reason_; }

  private:
    std::string_view reason_;
};

// The refusal of a file whose bytes can't be what the engine wrote.
[[nodiscard]] inline Refusal Damaged(const std::string& words)
{
    return Refusal(jet_answer::kDamaged, words);
}

} // namespace veldrane::jet
