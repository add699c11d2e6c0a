#pragma once

#include "shell/project_properties/frm_edit_prefix.h"
#include "shell/project_properties/frm_logging_table.h"
#include "shell/project_properties/project_dialogs.h"

#include <functional>
#include <string>
#include <vector>

namespace veldrane::testing {

// A person in front of the dialogs that the properties open.
class ScriptedProjectDialogs : public ProjectDialogs
{
  public:
    bool Show(frmEditPrefix& form) override
    {
        captions.push_back(form.Caption());
        return atPrefix && atPrefix(form);
    }

    bool Show(frmLoggingTable& form) override
    {
        scripts.push_back(form.txtScript());
        return false;
    }

    std::function<bool(frmEditPrefix&)> atPrefix;
    std::vector<std::string> captions;
    std::vector<std::string> scripts;
};

} // namespace veldrane::testing
