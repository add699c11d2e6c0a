#pragma once

#include "datasource/typed_name.h"
#include "editors/argument_list.h"
#include "editors/member_surroundings.h"
#include "editors/name_touch.h"
#include "model/signal.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// The dialog of an event of the user's, or of a built-in one, of which nothing can be changed. OK alone changes the
// class.
class frmAddEditEvent
{
  public:
    // A new event, or the one of the class that is given. `surroundings` must outlive the dialog.
    explicit frmAddEditEvent(const MemberSurroundings& surroundings,
                             const std::shared_ptr<ttcEvent>& present = nullptr);
    frmAddEditEvent(const frmAddEditEvent&) = delete;
    frmAddEditEvent& operator=(const frmAddEditEvent&) = delete;

    [[nodiscard]] std::string Caption() const;

    // The name of a built-in event stays, and its arguments do: the generated code raises it so. Why, for a tip; "" for
    // an event of the user's.
    [[nodiscard]] std::string WhyFixed() const;
    std::string txtEventName;
    [[nodiscard]] bool txtEventName_Enabled() const { return !present_->PlusEvent; }
    void txtEventName_Change(std::string typed); // by the person

    [[nodiscard]] ArgumentList& lstArguments() { return arguments_; }

    // What is wrong with the text of the control, in the words of the first box that OK would show; "" if nothing, and
    // for an empty name that nobody has touched yet.
    [[nodiscard]] std::string Trouble(std::string_view control) const;

    // The lines that are generated for the event as the dialog has it.
    [[nodiscard]] TTCOutputs Preview() const { return PreviewWith(arguments_.Items()); }

    // False if the dialog stays. Cancel asks before it gives up changes.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] bool cmdCancel_Click();

    Signal<std::string_view> FocusWanted; // by the control of this name

  private:
    [[nodiscard]] TypedName NameRules() const;
    [[nodiscard]] bool IsModified() const;
    [[nodiscard]] std::shared_ptr<ttcEvent> Edited(const Arguments& arguments) const;
    std::shared_ptr<ttcEvent> PutInto(KZMClass& item, const Arguments& arguments) const;
    [[nodiscard]] TTCOutputs PreviewWith(const Arguments& arguments) const;

    const MemberSurroundings& surroundings_;
    std::size_t position_;                    // in the class; 0 for a new event
    std::shared_ptr<const ttcEvent> present_; // as it was when the dialog came up
    NameTouch nameTouch_;
    ArgumentList arguments_;
};

} // namespace veldrane
