#include "shell/main_window/recent_menu.h"

#include "projectfile/recent_list.h"
#include "text/strings.h"

#include <algorithm>

namespace veldrane {

void RecentMenu::Update(const std::string& path)
{
    Guarded(application_.Errors, "frmMain", "LoadRecentList",
            [&] { UpdateRecentList(application_.UserSettings, path); });
    Rebuild();
}

void RecentMenu::Rebuild()
{
    tools_.clear();
    Guarded(application_.Errors, "frmMain", "LoadRecentList", [&] {
        for (const RecentProject& project :
             RecentProjects(application_.UserSettings, application_.Files, application_.State.Generation.CodePage)) {
            const std::string number = std::to_string(tools_.size() + 1);
            tools_.push_back({.Name = "MRU" + number,
                              .Caption = "&" + number + " " + text::ReplaceAll(project.ProjectName, "&", "&&"),
                              .Tag = project.Path,
                              .BeginsGroup = tools_.empty()});
        }
    });
    Changed.Raise();
}

std::optional<std::string> RecentMenu::PathOf(std::string_view toolName) const
{
    const auto found =
        std::find_if(tools_.begin(), tools_.end(), [&](const RecentTool& tool) { return tool.Name == toolName; });
    return found == tools_.end() ? std::nullopt : std::optional(found->Tag);
}

} // namespace veldrane
