#pragma once

#include "editors/editor_dialogs.h"
#include "editors/frm_add_edit_class.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace veldrane::testing {

// A person in front of the editors of definitions: does with a form what the test says. The editor of a class is
// accepted as it is otherwise; any other form that no test speaks of is a failure, and is cancelled.
class ScriptedEditorDialogs : public EditorDialogs
{
  public:
    template <class Form>
    using Shown = std::function<bool(Form& form)>;

    bool Show(frmAddEditArgument& form) override { return Argument(form); }
    bool Show(frmAddEditClass& form) override
    {
        Opened.push_back(form.Caption());
        return Class(form);
    }
    bool Show(frmAddEditEvent& form) override { return Unexpected(form); }
    bool Show(frmAddEditMethod& form) override { return Unexpected(form); }
    bool Show(frmAddEditProperty& form) override { return Unexpected(form); }
    bool Show(frmAddEditSP& form) override { return Unexpected(form); }
    bool Show(frmBuiltInEvents& form) override { return Unexpected(form); }
    bool Show(frmBuiltInMethods& form) override { return Unexpected(form); }
    bool Show(frmBuiltInProperties& form) override { return Unexpected(form); }
    bool Show(frmFieldProperties& form) override { return Unexpected(form); }
    bool Show(frmPickSP& form) override { return PickSP(form); }

    Shown<frmAddEditArgument> Argument = Unexpected<frmAddEditArgument>;
    Shown<frmAddEditClass> Class = [](frmAddEditClass& form) { return form.cmdOK_Click(); };
    Shown<frmPickSP> PickSP = Unexpected<frmPickSP>;
    std::vector<std::string> Opened; // the editors of classes, by their captions

  private:
    template <class Form>
    static bool Unexpected(Form& /*form*/)
    {
        ADD_FAILURE() << "a form is shown";
        return false;
    }
};

} // namespace veldrane::testing
