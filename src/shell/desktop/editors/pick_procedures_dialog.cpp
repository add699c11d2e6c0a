#include "shell/desktop/editors/pick_procedures_dialog.h"

#include "shell/desktop/editors/parameter_rows.h"
#include "ui_frm_pick_sp.h"

#include <algorithm>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

EditorRow ShownRow(const ProcedureTick& row)
{
    return {
        .Columns = {row.Row.Text, row.MethodName}, .Icon = row.Row.Icon, .Ticked = row.Ticked, .Trouble = row.Trouble};
}

} // namespace

PickProceduresDialog::PickProceduresDialog(frmPickSP& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmPickSP>())
{
    ui_->setupUi(this);
    ui_->lstPreview->SetLook(look);
    EditorList& list = *ui_->lstSPs;
    list.setHeaderLabels({u"Stored Procedure"_s, u"Method"_s});
    list.FilterBy(*ui_->txtFilter);
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    connect(&list, &EditorList::RowsTicked, this, [this](const std::vector<std::size_t>& rows, bool ticked) {
        form_.lstSPs_ItemCheck(rows, ticked);
        ShowState();
    });
    connect(&list, &EditorList::RowsSelected, this, &PickProceduresDialog::ShowRowInHand);
    ShowState();
    list.resizeColumnToContents(0);
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    list.SelectRow(0);
    ui_->txtFilter->setFocus();
}

PickProceduresDialog::~PickProceduresDialog() = default;

void PickProceduresDialog::ShowState()
{
    std::vector<EditorRow> rows;
    for (const ProcedureTick& row : form_.lstSPs())
        rows.push_back(ShownRow(row));
    ui_->lstSPs->Show(rows, ui_->lstSPs->SelectedRows());
    ShowTicked();
    ShowRowInHand();
}

// Those that are filtered out count too.
void PickProceduresDialog::ShowTicked()
{
    const auto& rows = form_.lstSPs();
    const auto ticked = std::count_if(rows.begin(), rows.end(), [](const ProcedureTick& row) { return row.Ticked; });
    ui_->lblTicked->setText(u"%1 of %2 ticked"_s.arg(ticked).arg(rows.size()));
}

void PickProceduresDialog::ShowRowInHand()
{
    const std::vector<std::size_t> selected = ui_->lstSPs->SelectedRows();
    if (selected.empty()) {
        ShowParameters(*ui_->lstParameters, {});
        ui_->lblTrouble->ShowTrouble("");
        return ui_->lstPreview->ShowLines(TTCOutputs());
    }
    ShowParameters(*ui_->lstParameters, form_.lstParameters(selected.front()));
    ui_->lblTrouble->ShowTrouble(form_.lstSPs().at(selected.front()).Trouble);
    ui_->lstPreview->ShowLines(form_.Preview(selected.front()));
}

} // namespace veldrane
