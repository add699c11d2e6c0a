#include "shell/project_properties/frm_edit_prefix.h"

#include "datasource/naming.h"
#include "text/strings.h"

#include <utility>

namespace veldrane {

frmEditPrefix::frmEditPrefix(std::string_view name, std::string prefix, Messages& messages,
                             const text::CodePage& codePage)
    : txtPrefix(std::move(prefix)), name_(name), messages_(messages), codePage_(codePage)
{}

// Something stands behind a prefix, so a reserved word is none of its own there.
std::string frmEditPrefix::Trouble() const
{
    if (txtPrefix.empty())
        return {};
    if (text::StartsWithDigit(txtPrefix) || txtPrefix.find_first_of(kNameDelimiters) != std::string::npos)
        return "Invalid Prefix. Please begin with a letter, and remove special characters and spaces from the prefix.";
    return NotWritableText(txtPrefix, codePage_);
}

bool frmEditPrefix::cmdOK_Click()
{
    std::string trouble = Trouble();
    if (trouble.empty())
        return true;
    messages_.Tell("Invalid Prefix", std::move(trouble), MessageIcon::Warning);
    return false;
}

} // namespace veldrane
