#include "shell/desktop/editors/event_dialog.h"

#include "shell/desktop/editors/disabled_control.h"
#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_add_edit_event.h"

namespace veldrane {

EventDialog::EventDialog(frmAddEditEvent& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmAddEditEvent>())
{
    ui_->setupUi(this);
    setWindowTitle(NameToQt(form_.Caption()));
    ui_->lstPreview->SetLook(look);
    ui_->fraArguments->ShowList(form_.lstArguments());
    DisableFor(*ui_->txtEventName, form_.WhyFixed());
    connect(ui_->txtEventName, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.txtEventName_Change(FromQt(text));
        ShowState();
    });
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    Follow(form_.lstArguments().Changed);
    Follow(form_.FocusWanted);
    ShowState();
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    FocusOn(form_.txtEventName_Enabled() ? "txtEventName" : "lstArguments");
}

EventDialog::~EventDialog() = default;

void EventDialog::ShowState()
{
    ShowText(*ui_->txtEventName, form_.txtEventName);
    ui_->lblEventNameTrouble->ShowTrouble(form_.Trouble("txtEventName"));
    ui_->fraArguments->ShowState();
    ui_->lstPreview->ShowLines(form_.Preview());
}

} // namespace veldrane
