#pragma once

#include "datasource/table_lists.h"
#include "shell/main_window/project_tree.h"

#include <cstddef>
#include <vector>

// Which classes of the tree a row of the data source's lists has to do with.
namespace veldrane {

// Whether the row stands for a table, a view or a stored procedure, not for a note or a command.
[[nodiscard]] bool IsRealRow(const ListRow& row);

// The nodes of the classes that stand on the row's table, letter case apart; none for a row that is not real.
[[nodiscard]] std::vector<std::size_t> ClassesOnTable(const ListRow& row, const ProjectTree& tree,
                                                      const KZMClasses& classes);

// The nodes of the classes that have a method bound to the row's stored procedure.
[[nodiscard]] std::vector<std::size_t> ClassesCallingProcedure(const ListRow& row, const ProjectTree& tree,
                                                               const KZMClasses& classes);

} // namespace veldrane
