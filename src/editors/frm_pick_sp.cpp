#include "editors/frm_pick_sp.h"

#include "editors/member_preview.h"
#include "model/working_copy.h"

namespace veldrane {

bool frmPickSP::PickStoredProcedures(const TTCMethods& methods, SPs& selected)
{
    const ClassEdit& edit = surroundings_.Edit;
    procedures_ = &selected;
    isAccepted_ = false;
    veldrane::PickStoredProcedures({.Source = edit.Source, .Messages = edit.Messages, .Errors = edit.Errors}, methods,
                                   selected, [this](const std::vector<ListRow>& rows) { return Show(rows); });
    return isAccepted_;
}

std::optional<std::vector<std::string>> frmPickSP::Show(const std::vector<ListRow>& rows)
{
    rows_.clear();
    for (const ListRow& row : rows)
        rows_.push_back({.Row = row, .MethodName = procedures_->Item(row.Key)->SPCleanName()});
    isAccepted_ = surroundings_.Dialogs.Show(*this);
    if (!isAccepted_)
        return std::nullopt;
    std::vector<std::string> keys;
    for (const ProcedureTick& row : rows_)
        if (row.Ticked)
            keys.push_back(row.Row.Key);
    return keys;
}

void frmPickSP::lstSPs_ItemCheck(const std::vector<std::size_t>& positions, bool on)
{
    for (const std::size_t position : positions)
        rows_.at(position).Ticked = on;
}

std::shared_ptr<SP> frmPickSP::ProcedureOf(std::size_t row) const
{
    return procedures_->Item(rows_.at(row).Row.Key);
}

std::vector<ParameterRow> frmPickSP::lstParameters(std::size_t row) const
{
    return ParameterRows(*ProcedureOf(row));
}

TTCOutputs frmPickSP::Preview(std::size_t row) const
{
    const std::shared_ptr<SP> procedure = WorkingCopy(*ProcedureOf(row));
    procedure->SPMethodName = procedure->SPCleanName();
    return ProcedurePreview(surroundings_.Generated, surroundings_.Edit.Class, *procedure);
}

} // namespace veldrane
