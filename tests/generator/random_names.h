#pragma once

#include "support/random_numbers.h"

#include <string>
#include <string_view>

namespace veldrane::testing {

// Names as databases and programmers give them, none of them twice in one project.
class RandomNames
{
  public:
    explicit RandomNames(RandomNumbers& random) : random_(random) {}

    // A name that the generated language takes as it stands.
    std::string Identifier() { return Numbered(Pick(std::to_array<std::string_view>({"Order", "Customer", "Item", "Address", "Employee", "UnitPrice", "Area", "Größe", "Upload", "z"}))); }

    // The name of a column or a table; many need brackets in a statement.
    std::string OfData()
    {
        return Numbered(Pick(std::to_array<std::string_view>({"Order", "ORDER_", "Order Date ", "2nd Contact", "1 x ", "Unit.Price", "Price per Unit. ", "größe ", "address", "Ident"})));
    }

  private:
    template <class Heads>
    std::string_view Pick(const Heads& heads)
    {
        return random_.Pick(heads);
    }

    std::string Numbered(std::string_view head) { return std::string(head).append(std::to_string(++names_)); }

    RandomNumbers& random_;
    unsigned names_ = 0;
};

} // namespace veldrane::testing
