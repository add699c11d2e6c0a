#pragma once

#include "editors/frm_add_edit_argument.h"
#include "editors/member_fixture.h"
#include "shell/desktop/editors/qt_editor_dialogs.h"
#include "shown_dialog.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace veldrane::testing {

// A dialog of a member in front of a person; those that it opens are shown too.
class MemberDialogTest : public MemberTest
{
  protected:
    MemberDialogTest()
    {
        dialogs.Argument = [this](frmAddEditArgument& form) { return shown.Show(form); };
        dialogs.PickSP = [this](frmPickSP& form) { return shown.Show(form); };
    }

    template <class Dialog, class Form>
    QWidget& Open(Form& form)
    {
        window = std::make_unique<Dialog>(form, PreviewLook{}, nullptr);
        BringToFront(*window);
        return *window;
    }

    // What each argument's dialog is for a person: a name is typed, and it is accepted.
    static Act NameIt(const std::string& name)
    {
        return [name](QWidget& dialog) {
            Type(dialog, "txtArgumentName", name);
            Click(dialog, "cmdOK");
        };
    }

    // The same by the keyboard alone.
    static Act NameItByKeys(const std::string& name)
    {
        return [name](QWidget& dialog) {
            QTest::keyClicks(dialog.focusWidget(), QString::fromStdString(name));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        };
    }

    // Runs `body`, which opens a dialog for `act`, and comes back to the one in hand.
    void WithInner(const std::function<void()>& body, const Act& act)
    {
        WithDialogs(body, {act});
        BringToFront(*window);
    }

    [[nodiscard]] bool IsClosedBy(int result) const { return !window->isVisible() && window->result() == result; }

    QtEditorDialogs shown{[] { return PreviewLook{}; }};
    std::unique_ptr<QDialog> window;
};

} // namespace veldrane::testing
