#include "shell/main_window/frm_startup.h"

#include "projectfile/project_dialogs.h"

namespace veldrane {
namespace {

constexpr std::string_view kDontShow = "DontShowStartupDialog";
constexpr std::string_view kChecked = "1";
constexpr std::string_view kUnchecked = "0";

} // namespace

bool WantsStartupDialog(const RegistryAccess& settings)
{
    return settings.GetKeyValue(settings_section::kOptions, kDontShow) != kChecked;
}

frmStartup::frmStartup(const Application& application)
    : application_(application), chkDontShow_(!WantsStartupDialog(application.UserSettings))
{
    Guarded(application_.Errors, "frmStartup", "Form_Load", [&] {
        lstRecent_ =
            RecentProjects(application_.UserSettings, application_.Files, application_.State.Generation.CodePage);
    });
}

const std::vector<StartupRow>& frmStartup::lstNew()
{
    static const std::vector<StartupRow> rows{{"New", "New", "Root"}, {"Browse", "Browse", "OpenFolder"}};
    return rows;
}

std::optional<StartupChoice> frmStartup::lstNew_DblClick(std::string_view key)
{
    if (key == "New")
        return StartupChoice{.Action = StartupAction::New};
    if (key != "Browse")
        return std::nullopt;
    const std::string latest = lstRecent_.empty() ? "" : lstRecent_.front().Path;
    std::optional<std::string> path;
    Guarded(application_.Errors, "frmStartup", "lstNew_DblClick",
            [&] { path = application_.Windows.Dialogs.AskForFileToOpen(OpenProjectRequest(latest)); });
    return path ? std::optional(StartupChoice{.Action = StartupAction::Open, .Path = *path}) : std::nullopt;
}

std::optional<StartupChoice> frmStartup::lstRecent_DblClick(std::size_t row) const
{
    if (row >= lstRecent_.size())
        return std::nullopt;
    return StartupChoice{.Action = StartupAction::Open, .Path = lstRecent_[row].Path};
}

void frmStartup::chkDontShow_Click()
{
    Guarded(application_.Errors, "frmStartup", "chkDontShow_Click", [&] {
        application_.UserSettings.UpdateKey(settings_section::kOptions, kDontShow,
                                            chkDontShow_ ? kUnchecked : kChecked);
        chkDontShow_ = !chkDontShow_;
    });
}

} // namespace veldrane
