#pragma once

#include "datasource/table_lists.h"
#include "datasource/table_to_class.h"
#include "shell/main_window/project_tree.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// What a thing dragged onto a node of the project tree does there. The same rules serve the menus that move things
// without a mouse.
namespace veldrane {

// A class goes elsewhere in the tree without a question.
struct ClassMove
{
    std::string ClassName;
    std::string ParentClassName; // "" for none
    bool IsDomainTable = false;
    bool ClearsRelationships = false;
    bool DropsCollection = false;
};

// A class goes under another, in the class editor, where the person picks the join.
struct EditedMove
{
    std::string ClassName;
    std::string ParentClassName;
};

struct NoDrop
{};

// The effect of a drop; for a table, the class that is added in the class editor.
using Drop = std::variant<NoDrop, NewClass, ClassMove, EditedMove>;

// The list that a dragged row comes from.
enum class RowList
{
    Tables, // lstTables
    Views,  // lstViews: the class becomes read only
};

struct DraggedRow
{
    ListRow Row;
    RowList From = RowList::Tables;
};

// The project as the rules look at it.
struct DropGround
{
    const ProjectTree& Tree; // shows these classes
    const KZMClasses& Classes;
};

// Whether a drag may start from the row or the node. Rows that stand for no table, nodes of no class and classes that
// the project requires stay where they are.
[[nodiscard]] bool CanDrag(const ListRow& row);
[[nodiscard]] bool CanDrag(std::size_t node, const DropGround& ground);

// What a row, or a node, does on the target. NoDrop where there is no target, where the target can't take it, where it
// stands already, and where a class would come to stand below itself.
[[nodiscard]] Drop DropOf(const DraggedRow& row, std::optional<std::size_t> target, const DropGround& ground);
[[nodiscard]] Drop DropOf(std::size_t node, std::optional<std::size_t> target, const DropGround& ground);

// The pictures of the mouse pointer over a target, and where nothing would happen.
inline constexpr std::string_view kDragIcon = "DragTable";
inline constexpr std::string_view kNoDropIcon = "DragTableNoDrop";

// A place where a thing may go, for a menu.
struct DropTarget
{
    std::size_t Node = 0;
    std::string Caption;
    Drop Effect;
};

// All places where a row, or a node, does something, in the order of the tree. A class and its collection are one
// place wherever they take it alike. The caption says so where a class would lose its collection.
[[nodiscard]] std::vector<DropTarget> TargetsOf(const DraggedRow& row, const DropGround& ground);
[[nodiscard]] std::vector<DropTarget> TargetsOf(std::size_t node, const DropGround& ground);

} // namespace veldrane
