#pragma once

#include "datasource/typed_name.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane {

// A row of a list of built-in members.
struct BuiltInRow
{
    std::string Name;
    std::string Description; // the second column
    std::string Icon;
    bool IsInClass = false; // the class has it: it stands ticked and can't be unticked
    bool Ticked = IsInClass;
    std::string Trouble{}; // why OK would not add it, "" if it would
};

// The rows for what is offered: `members` are those of the class, `isBuiltIn` tells which of them are of the catalogue,
// `rules` which names are free.
template <class Offered, class Members, class Member>
[[nodiscard]] std::vector<BuiltInRow> OfferedRows(const std::vector<Offered>& offered, const Members& members,
                                                  bool Member::*isBuiltIn, const TypedName& rules,
                                                  std::string_view icon)
{
    std::vector<BuiltInRow> rows;
    for (const Offered& each : offered) {
        const auto present = members.Item(each.Name);
        const bool isInClass = present && (*present).*isBuiltIn;
        const bool isTaken = !isInClass && rules.IsTaken(each.Name);
        rows.push_back({.Name = std::string(each.Name),
                        .Description = std::string(each.Description),
                        .Icon = std::string(icon),
                        .IsInClass = isInClass,
                        .Trouble = isTaken ? CannotBeAddedText(each.Name, rules) : std::string()});
    }
    return rows;
}

// The rows of such a list and their ticks.
class BuiltInRows
{
  public:
    explicit BuiltInRows(std::vector<BuiltInRow> rows) : rows_(std::move(rows)) {}

    [[nodiscard]] const std::vector<BuiltInRow>& Rows() const { return rows_; }

    // Ticks or unticks the rows at these positions, from 0.
    void Tick(const std::vector<std::size_t>& positions, bool on)
    {
        for (const std::size_t position : positions)
            if (BuiltInRow& row = rows_.at(position); !row.IsInClass)
                row.Ticked = on;
    }

    // The names of the ticked rows that the class does not have yet.
    [[nodiscard]] std::vector<std::string> Wanted() const
    {
        std::vector<std::string> names;
        for (const BuiltInRow& row : rows_)
            if (row.Ticked && !row.IsInClass)
                names.push_back(row.Name);
        return names;
    }

  private:
    std::vector<BuiltInRow> rows_;
};

} // namespace veldrane
