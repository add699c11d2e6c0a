#pragma once

#include "ports/error_report.h"
#include "ports/settings.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace veldrane {

// The window of the help messages: each is shown until the person has chosen to see it no more.
class frmWarning
{
  public:
    // Shows the window and returns when it is left.
    using Window = std::function<void(frmWarning&)>;

    // All must outlive this object.
    frmWarning(RegistryAccess& registry, ErrorReport& errors, Window window);

    // Shows the message, unless the one of this number (of warning_id) was turned off. A number that is none of theirs
    // is always shown.
    void DisplayWarning(const std::string& message, std::int32_t warningId);

    [[nodiscard]] const std::string& lblMessage() const { return message_; }
    [[nodiscard]] std::string_view Caption() const;

    // Whether `chkDoNotShow` is visible: the messages that have a value of their own can be turned off, but for the one
    // that tells that all are shown again.
    [[nodiscard]] bool HasDoNotShow() const;

    bool chkDoNotShow = false;

    // Turns the message off if the box is ticked. A failure is reported. Leaving the window otherwise does nothing.
    void cmdOK_Click();

  private:
    RegistryAccess& registry_;
    ErrorReport& errors_;
    Window window_;
    std::string message_;
    std::int32_t warningId_ = -1;
};

} // namespace veldrane
