#pragma once

#include "projectfile/recent_list.h"
#include "shell/application.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// Whether the options want the start-up dialog to be shown.
[[nodiscard]] bool WantsStartupDialog(const RegistryAccess& settings);

// What the start-up dialog was left for.
enum class StartupAction
{
    Nothing, // closed
    New,     // the tool "New" is to run
    Open,    // the file `Path` is to be opened
};

struct StartupChoice
{
    StartupAction Action = StartupAction::Nothing;
    std::string Path{};
};

// A row of `lstNew`.
struct StartupRow
{
    std::string_view Key;
    std::string_view Text;
    std::string_view Icon;
};

// The start-up dialog: a new project, any file, or a recent project. It opens nothing itself: whoever shows it carries
// the choice out once it is closed.
class frmStartup
{
  public:
    // Reads the recent projects and `DontShowStartupDialog`.
    explicit frmStartup(const Application& application);

    [[nodiscard]] static const std::vector<StartupRow>& lstNew();
    [[nodiscard]] const std::vector<RecentProject>& lstRecent() const { return lstRecent_; }
    [[nodiscard]] bool chkDontShow() const { return chkDontShow_; }

    // A double click or Enter on the row with this key: "New", or "Browse", which asks for a file. The choice with
    // which the dialog closes; nothing while it stays, as after a cancelled file dialog.
    [[nodiscard]] std::optional<StartupChoice> lstNew_DblClick(std::string_view key);

    // The same on a recent project, by its row. A row that there is none of leaves the dialog as it is.
    [[nodiscard]] std::optional<StartupChoice> lstRecent_DblClick(std::size_t row) const;

    // A click on the check box: writes the option at once as "0" or "1". Settings that can't be written are reported,
    // and the box stays as it was.
    void chkDontShow_Click();

  private:
    const Application& application_;
    std::vector<RecentProject> lstRecent_;
    bool chkDontShow_ = false;
};

} // namespace veldrane
