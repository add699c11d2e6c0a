#pragma once

#include "editors/built_in_rows.h"
#include "editors/member_surroundings.h"
#include "generator/outputs.h"

#include <cstddef>
#include <vector>

namespace veldrane {

// The dialog that offers the methods that the generator knows how to write, as far as the class can have them.
class frmBuiltInMethods
{
  public:
    // Those that the class has stand ticked at first. `surroundings` must outlive the dialog.
    explicit frmBuiltInMethods(const MemberSurroundings& surroundings);

    [[nodiscard]] const std::vector<BuiltInRow>& lstMethods() const { return rows_.Rows(); }

    // Ticks or unticks the rows at these positions, from 0; one that the class has stays ticked.
    void lstMethods_ItemCheck(const std::vector<std::size_t>& positions, bool on) { rows_.Tick(positions, on); }

    // The lines that are generated for the method of the row.
    [[nodiscard]] TTCOutputs Preview(std::size_t row) const;

    // Gives the class the ticked methods. Those that find a row may ask how; one that has no key to find it by is told
    // and left out.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    const MemberSurroundings& surroundings_;
    BuiltInRows rows_;
};

} // namespace veldrane
