#pragma once

#include "datasource/pick_procedures.h"
#include "datasource/procedure_method.h"
#include "editors/member_surroundings.h"
#include "generator/outputs.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veldrane {

// A row of the list of stored procedures.
struct ProcedureTick
{
    ListRow Row;
    std::string MethodName; // by which the class would have it
    bool Ticked = false;
    std::string Trouble{}; // why it can become no method; "" if it can
};

// The dialog in which the stored procedures are chosen that become methods of a class.
class frmPickSP
{
  public:
    // `surroundings` must outlive the dialog.
    explicit frmPickSP(const MemberSurroundings& surroundings) : surroundings_(surroundings) {}

    // Reads the procedures of the data source into `selected` and shows the dialog: true if it was left by OK. Those
    // that were ticked then, and no others, have a `SPMethodName` afterwards. A failure is reported; the dialog is not
    // shown then. `selected` must outlive the dialog.
    bool PickStoredProcedures(const TTCMethods& methods, SPs& selected);

    [[nodiscard]] const std::vector<ProcedureTick>& lstSPs() const { return rows_; }

    // Ticks or unticks the rows at these positions, from 0; one that can become no method stays unticked.
    void lstSPs_ItemCheck(const std::vector<std::size_t>& positions, bool on);

    // The parameters of a row's procedure, as the dialog that names its method shows them.
    [[nodiscard]] std::vector<ParameterRow> lstParameters(std::size_t row) const;

    // The function that is generated for the procedure of the row, under the name that it is offered; nothing where it
    // can become no method.
    [[nodiscard]] TTCOutputs Preview(std::size_t row) const;

    [[nodiscard]] static bool cmdOK_Click() { return true; }
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    [[nodiscard]] ProcedureTick RowOf(const ListRow& row) const;
    [[nodiscard]] std::string TroubleOf(const SP& procedure) const;
    [[nodiscard]] std::optional<std::vector<std::string>> Show(const std::vector<ListRow>& rows);
    [[nodiscard]] std::shared_ptr<SP> ProcedureOf(std::size_t row) const;

    const MemberSurroundings& surroundings_;
    const SPs* procedures_ = nullptr;
    bool isAccepted_ = false;
    std::vector<ProcedureTick> rows_;
};

} // namespace veldrane
