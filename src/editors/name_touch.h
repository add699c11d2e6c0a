#pragma once

#include <string_view>

namespace veldrane {

// Whether the person has had a hand in the name that a dialog asks for. Before, nothing is said of an empty one: the
// dialog of a new member does not open with a complaint.
class NameTouch
{
  public:
    // A member that is there has its name from somebody.
    explicit NameTouch(bool isNew) : touched_(!isNew) {}

    void Touch() { touched_ = true; }
    [[nodiscard]] bool IsSilentOf(std::string_view typed) const { return typed.empty() && !touched_; }

  private:
    bool touched_;
};

} // namespace veldrane
