#include "shell/main_window/frm_warning.h"

#include "shell/main_window/help_messages.h"

#include <cstddef>
#include <utility>

namespace veldrane {
namespace {

// Nothing for a number that is none.
const HelpMessage* MessageOf(std::int32_t warningId)
{
    const auto place = static_cast<std::size_t>(warningId);
    return warningId >= 0 && place < kHelpMessages.size() ? &kHelpMessages.at(place) : nullptr;
}

} // namespace

frmWarning::frmWarning(RegistryAccess& registry, ErrorReport& errors, Window window)
    : registry_(registry), errors_(errors), window_(std::move(window))
{}

void frmWarning::DisplayWarning(const std::string& message, std::int32_t warningId)
{
    const HelpMessage* known = MessageOf(warningId);
    if (known != nullptr && !IsShown(*known, registry_))
        return;
    message_ = message;
    warningId_ = warningId;
    chkDoNotShow = false;
    window_(*this);
}

std::string_view frmWarning::Caption() const
{
    const HelpMessage* known = MessageOf(warningId_);
    return known == nullptr ? "Warning" : known->About;
}

bool frmWarning::HasDoNotShow() const
{
    return MessageOf(warningId_) != nullptr && warningId_ != warning_id::kHelpMessages;
}

void frmWarning::cmdOK_Click()
{
    if (chkDoNotShow && HasDoNotShow())
        Guarded(errors_, "frmWarning", "cmdOK_Click", [this] { TurnOff(*MessageOf(warningId_), registry_); });
}

} // namespace veldrane
