#pragma once

#include "editors/member_surroundings.h"
#include "generator/outputs.h"

#include <cstddef>
#include <string>
#include <vector>

namespace veldrane {

// A row of the catalogue.
struct BuiltInPropertyRow
{
    std::string Name;
    std::string Description; // the second column
    std::string Icon = "PropertyPlus";
    bool Ticked = false;
    bool Enabled = true;   // false where the class has a member of the name: nothing is to be added
    std::string Trouble{}; // says so where that member is another one, be it a property of a field; "" otherwise
};

// The dialog that offers the properties which the generator knows how to write. Only OK changes the class.
class frmBuiltInProperties
{
  public:
    // Those that the class has stand ticked.
    explicit frmBuiltInProperties(const MemberSurroundings& surroundings);

    [[nodiscard]] const std::vector<BuiltInPropertyRow>& lstProperties() const { return rows_; }

    // Rows that can't be used stay as they are.
    void lstProperties_ItemCheck(const std::vector<std::size_t>& rows, bool ticked);

    // The routines of a row, as they would be generated; nothing where another member has the name.
    [[nodiscard]] TTCOutputs Preview(std::size_t row) const;

    // Adds the ticked rows that the class lacks. True: the dialog closes.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    MemberSurroundings surroundings_;
    std::vector<BuiltInPropertyRow> rows_;
};

} // namespace veldrane
