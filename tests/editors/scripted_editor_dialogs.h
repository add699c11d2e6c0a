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
    bool Show(frmAddEditEvent& form) override { return Event(form); }
    bool Show(frmAddEditMethod& form) override { return Method(form); }
    bool Show(frmAddEditProperty& form) override { return Property(form); }
    bool Show(frmAddEditSP& form) override { return Procedure(form); }
    bool Show(frmBuiltInEvents& form) override { return BuiltInEvents(form); }
    bool Show(frmBuiltInMethods& form) override { return BuiltInMethods(form); }
    bool Show(frmBuiltInProperties& form) override { return BuiltInProperties(form); }
    bool Show(frmFieldProperties& form) override { return FieldProperties(form); }
    bool Show(frmPickSP& form) override { return PickSP(form); }

    Shown<frmAddEditClass> Class = [](frmAddEditClass& form) { return form.cmdOK_Click(); };
    Shown<frmAddEditArgument> Argument = Unexpected<frmAddEditArgument>;
    Shown<frmAddEditEvent> Event = Unexpected<frmAddEditEvent>;
    Shown<frmAddEditMethod> Method = Unexpected<frmAddEditMethod>;
    Shown<frmAddEditProperty> Property = Unexpected<frmAddEditProperty>;
    Shown<frmAddEditSP> Procedure = Unexpected<frmAddEditSP>;
    Shown<frmBuiltInEvents> BuiltInEvents = Unexpected<frmBuiltInEvents>;
    Shown<frmBuiltInMethods> BuiltInMethods = Unexpected<frmBuiltInMethods>;
    Shown<frmBuiltInProperties> BuiltInProperties = Unexpected<frmBuiltInProperties>;
    Shown<frmFieldProperties> FieldProperties = Unexpected<frmFieldProperties>;
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
