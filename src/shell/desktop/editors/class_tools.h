#pragma once

#include "editors/frm_add_edit_class.h"

#include <QAction>

#include <span>
#include <string_view>

namespace veldrane {

// How a tool of the class editor is offered beside the list that it works on. What it does, and when it may be used,
// the rules know by its name.
struct ClassTool
{
    std::string_view Name;
    ClassList List;
    std::string_view Caption;  // with "&" before its access key in the list's menu
    std::string_view Shortcut; // while the list has the focus; "" for none
    std::string_view Icon;
    std::string_view ToolTip;
};

// All tools, those of a list side by side and in their order.
[[nodiscard]] std::span<const ClassTool> ClassTools();

// The tool that opens a row of the list; "" for a list whose rows are not opened.
[[nodiscard]] std::string_view OpeningTool(ClassList list);

// An action that carries the tool's name, words, picture and key.
[[nodiscard]] QAction* MakeAction(const ClassTool& tool, QObject* parent);

} // namespace veldrane
