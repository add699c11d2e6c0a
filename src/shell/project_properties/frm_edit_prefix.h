#pragma once

#include "ports/messages.h"
#include "text/code_page.h"

#include <string>
#include <string_view>

namespace veldrane {

// The dialog of one prefix of a project: a few letters before the names of files, or of variables of a type.
class frmEditPrefix
{
  public:
    // Shows the prefix of this name. The messages and the code page must outlive the dialog.
    frmEditPrefix(std::string_view name, std::string prefix, Messages& messages, const text::CodePage& codePage);

    [[nodiscard]] std::string Caption() const { return "Edit " + name_ + " Prefix"; }

    std::string txtPrefix;

    // What is wrong with the prefix as it is typed, in the words that OK tells; "" if nothing. No prefix at all is
    // right, and so is any that a name may begin with.
    [[nodiscard]] std::string Trouble() const;

    // True if the dialog closes; a prefix that no name may begin with is told.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    std::string name_;
    Messages& messages_;
    const text::CodePage& codePage_;
};

} // namespace veldrane
