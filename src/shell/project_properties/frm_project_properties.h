#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "model/signal.h"
#include "ports/error_report.h"
#include "ports/messages.h"
#include "ports/settings.h"
#include "shell/project_properties/frm_logging_table.h"
#include "shell/project_properties/project_controls.h"
#include "shell/project_properties/project_dialogs.h"
#include "text/code_page.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace veldrane {

// The project whose properties are changed, and what the dialog works with. All must outlive it.
struct ProjectPropertiesWorld
{
    TTCProject& Project;
    KZMClasses& Classes;
    Settings& Options;
    ProjectDialogs& Dialogs;
    LoggingTablePorts Logging;             // its messages, reports and code page are the dialog's own, too
    std::function<void()> LoggingTurnedOn; // tells what the table of the log is for; called once the box is ticked
};

// The help that belongs to a control.
struct ProjectHelp
{
    std::string_view Heading;
    std::string_view Text;
};

// The dialog of a project's properties. It shows a copy of them, by the names of its controls; only OK changes the
// project, but for the defaults of new projects, which their buttons store at once.
class frmProjectProperties
{
  public:
    frmProjectProperties(const ProjectPropertiesWorld& world, ProjectTab first);

    Signal<std::string_view> FocusWanted; // the control that OK was refused for

    [[nodiscard]] static std::string Caption() { return "Project Properties"; }
    [[nodiscard]] ProjectTab FirstTab() const { return first_; }

    // The text of a box, by its control: "txtProjectName", "txtAutoSave" or one of kProjectTexts.
    [[nodiscard]] const std::string& Text(std::string_view control) const;
    void Text_Change(std::string_view control, const std::string& text);

    // The same for one of kProjectChecks.
    [[nodiscard]] bool IsChecked(std::string_view control) const;
    void Check_Click(std::string_view control, bool on);

    // On which side errors are logged; all are clear in a project that has not been asked yet.
    [[nodiscard]] std::int32_t LoggingLevel() const { return values_.LoggingLevel; }
    void LoggingLevel_Click(std::int32_t level); // of logging_level

    [[nodiscard]] std::int32_t cmbVBVersion() const { return values_.VBVersion; }
    void cmbVBVersion_Click(std::int32_t version); // of visual_basic_version

    // The prefix in a row of lstPrefixes: a row for each of kProjectPrefixes.
    [[nodiscard]] const std::string& Prefix(std::size_t row) const;
    // Opens the dialog of the prefix. A row that is not there does nothing.
    void lstPrefixes_DblClick(std::size_t row);

    [[nodiscard]] bool IsEnabled(std::string_view control) const;

    // What the option of forms is called, which depends on `chkWeb`.
    [[nodiscard]] std::string_view chkForms_Caption() const { return FormsCaption(values_.MakeWebCompatible); }

    // Empty for a control without help.
    [[nodiscard]] ProjectHelp Help(std::string_view control) const;

    // What is wrong with what a control holds, in the words that OK tells; "" if nothing, and for what OK alone misses:
    // an empty box is no mistake while it is being filled.
    [[nodiscard]] std::string Trouble(std::string_view control) const;

    // Whether OK was refused for the control, and it has not changed since: its label is red.
    [[nodiscard]] bool IsMissing(std::string_view control) const { return !missing_.empty() && missing_ == control; }

    // To and from the defaults that a new project takes. What stands in the dialog becomes the default, or the other
    // way round; `cmdSetDefaults` and `cmdRestorePrefixes` for the prefixes alone. A failure is reported.
    void cmdSetAsDefault_Click();
    void cmdRestoreDefaults_Click();
    void cmdSetDefaults_Click();
    void cmdRestorePrefixes_Click();

    // Opens the dialog of the logging table, once its name is one.
    void cmdLoggingTable_Click();

    // True if the dialog closes: the project has the values then and counts as modified, and the class xmlAssist is
    // there exactly while component services are enabled. A refusal is told and leaves everything as it was.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    [[nodiscard]] struct CheckedProject Checked() const;
    [[nodiscard]] bool LogsTransactions() const { return values_.MTSEnabled && values_.LogTransactions; }
    bool Refuse(std::string_view control, const Question& box);
    [[nodiscard]] bool CleansLogTable();
    [[nodiscard]] bool MayStore();
    void Store();
    void StoreOptions();
    void FollowComponentServices();

    ProjectPropertiesWorld world_;
    ProjectTab first_;
    TTCProject values_;
    std::string interval_; // as typed
    std::string missing_;
};

// The sides on which errors are logged, as `TTCProject::LoggingLevel` numbers them.
namespace logging_level {
inline constexpr std::int32_t kServer = 1;
inline constexpr std::int32_t kClient = 2;
inline constexpr std::int32_t kBoth = 3;
} // namespace logging_level

} // namespace veldrane
