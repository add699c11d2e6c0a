#include "editors/frm_pick_sp.h"

#include "datasource/naming.h"
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

std::string frmPickSP::TroubleOf(const SP& procedure) const
{
    if (procedure.SPCleanName().empty())
        return "The stored procedure '" + procedure.SPName +
               "' can't become a method: nothing in its name can stand in that of a method.";
    const auto refusal = ProcedureRefusal(procedure, surroundings_.Edit.CodePage);
    return refusal ? refusal->Text : std::string();
}

ProcedureTick frmPickSP::RowOf(const ListRow& row) const
{
    const std::shared_ptr<SP> procedure = procedures_->Item(row.Key);
    const std::string cleanName = procedure->SPCleanName();
    return {
        .Row = row, .MethodName = cleanName.empty() ? "" : MakeValidName(cleanName), .Trouble = TroubleOf(*procedure)};
}

std::optional<std::vector<std::string>> frmPickSP::Show(const std::vector<ListRow>& rows)
{
    rows_.clear();
    for (const ListRow& row : rows)
        rows_.push_back(RowOf(row));
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
        if (ProcedureTick& row = rows_.at(position); row.Trouble.empty())
            row.Ticked = on;
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
    if (!rows_.at(row).Trouble.empty())
        return TTCOutputs(surroundings_.Generated.Generation.Settings.Colors);
    const std::shared_ptr<SP> procedure = WorkingCopy(*ProcedureOf(row));
    procedure->SPMethodName = rows_.at(row).MethodName;
    return ProcedurePreview(surroundings_.Generated, surroundings_.Edit.Class, *procedure);
}

} // namespace veldrane
