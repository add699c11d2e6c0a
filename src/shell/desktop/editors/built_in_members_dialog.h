#pragma once

#include "editors/built_in_rows.h"
#include "generator/outputs.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace Ui {
class frmBuiltInMembers;
}

namespace veldrane {

class frmBuiltInEvents;
class frmBuiltInMethods;

// The rules of a dialog that offers built-in members, and what it is called.
struct BuiltInMembersForm
{
    const char* Name;
    const char* ListName; // of the control
    const char* Title;
    const char* Kind; // of the members, as a heading
    std::function<std::vector<BuiltInRow>()> Rows;
    std::function<void(const std::vector<std::size_t>& rows, bool on)> Tick;
    std::function<TTCOutputs(std::size_t row)> Preview;
    std::function<bool()> MayAccept;
    std::function<bool()> MayCancel;
};

// `frmBuiltInMethods` or `frmBuiltInEvents` as a window, with the code of the row in hand.
class BuiltInMembersDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    BuiltInMembersDialog(frmBuiltInMethods& form, const PreviewLook& look, QWidget* parent);
    BuiltInMembersDialog(frmBuiltInEvents& form, const PreviewLook& look, QWidget* parent);
    ~BuiltInMembersDialog() override;

  protected:
    bool MayAccept() override { return form_.MayAccept(); }
    bool MayCancel() override { return form_.MayCancel(); }
    void ShowState() override;

  private:
    BuiltInMembersDialog(BuiltInMembersForm form, const PreviewLook& look, QWidget* parent);

    void SetNames();
    void SelectFirstThatCanBeAdded();
    void ShowRowInHand();

    BuiltInMembersForm form_;
    std::unique_ptr<Ui::frmBuiltInMembers> ui_;
};

} // namespace veldrane
