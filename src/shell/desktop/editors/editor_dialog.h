#pragma once

#include "model/signal.h"

#include <QDialog>

#include <string_view>
#include <vector>

class QAbstractButton;

namespace veldrane {

// What the dialogs of the editors share. However one is left, its rules are asked first: by OK, or by Cancel, Escape
// and the close box. It shows what the rules hold anew whenever that may have changed.
class EditorDialog : public QDialog
{
    Q_OBJECT

  public:
    using QDialog::QDialog;

    // Leaves by Cancel, unless the rules keep the dialog.
    void reject() override;

  protected:
    // Of the rules: whether the dialog may close.
    virtual bool MayAccept() = 0;
    virtual bool MayCancel() = 0;

    // Puts what the rules hold into the controls.
    virtual void ShowState() = 0;

    // The buttons by which it is left.
    void ConnectButtons(QAbstractButton& ok, QAbstractButton& cancel);

    // Shows the state whenever the signal is raised.
    void Follow(Signal<>& changed);

    // Goes where the rules want the focus.
    void Follow(Signal<std::string_view>& focusWanted);

    // Puts the focus on the control of this name and selects its text; its tab comes to the front. A name that no
    // control has is passed over, as is "".
    void FocusOn(std::string_view control);

  private:
    void OK();

    std::vector<Connection> connections_;
};

} // namespace veldrane
