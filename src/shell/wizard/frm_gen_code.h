#pragma once

#include "generator/code_generation.h"
#include "shell/application.h"
#include "shell/generation_run.h"
#include "shell/wizard/wizard_dialogs.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace veldrane {

// The pages of the wizard.
namespace wizard_page {
inline constexpr int kIntroduction = 0;
inline constexpr int kFolder = 1;
inline constexpr int kOptions = 2;
inline constexpr int kProgress = 3;
} // namespace wizard_page

struct WizardButton
{
    std::string Caption;
    bool Enabled = true;
    bool Visible = true;
};

// One of the lines that tell how far the run is, with its check mark.
struct WizardStep
{
    std::string lblProgress;
    bool Bold = false;
    bool imgStep = false;
};

// The wizard that generates the project: where to, what becomes of files that exist, the run, and what came of it.
class frmGenCode : private ConflictResolver
{
  public:
    // All must outlive the wizard. Reads its settings.
    frmGenCode(const Application& application, TTCProject& project, KZMClasses& classes, WizardDialogs& dialogs);

    Signal<> Changed; // something of it is to be shown anew

    [[nodiscard]] int tabMain() const { return page_; }
    [[nodiscard]] const WizardButton& cmdBack() const { return back_; }
    [[nodiscard]] const WizardButton& cmdNext() const { return next_; }
    [[nodiscard]] const WizardButton& cmdCancel() const { return cancel_; }
    [[nodiscard]] const std::string& lblInst() const { return instructions_; }

    // The target folder; without one the page can't be left forward. It changes on its own page alone: what becomes of
    // the tree on a later one is nobody's choice.
    [[nodiscard]] const std::string& treFolder() const { return folder_; }
    void treFolder_Change(const std::string& path);

    // What becomes of files that exist: one of overwrite_mode.
    [[nodiscard]] std::int32_t Mode() const { return mode_; }
    void opt_Click(std::int32_t mode) { mode_ = mode; }

    // Without a command for Visual Basic the box is off and disabled.
    [[nodiscard]] bool chkCompile() const { return compile_ && MayCompile(); }
    [[nodiscard]] bool MayCompile() const;
    void chkCompile_Click(bool on) { compile_ = on; }

    [[nodiscard]] const std::array<WizardStep, 4>& Steps() const { return steps_; }
    [[nodiscard]] int Progress() const { return percent_; }

    // What came of the run, as soon as it has ended: heading and text, and each file.
    [[nodiscard]] bool HasEnded() const { return hasEnded_; }
    [[nodiscard]] const std::string& lblWarnings() const { return heading_; }
    [[nodiscard]] const std::string& txtWarnings() const { return text_; }
    [[nodiscard]] const std::vector<SettledFile>& Files() const { return Process.Files; }
    [[nodiscard]] bool CanOpenProject() const { return canOpen_; } // lblOpenProject is visible

    void cmdNext_Click();
    void cmdBack_Click();

    // Closes the wizard; a run is given up before its next file or before the compiler starts instead, and tells what
    // it has written by then. The compiler's work can't be given up: the button is disabled meanwhile, and for a moment
    // behind the end, so that nothing that was meant for the run closes the page that tells of it.
    void cmdCancel_Click();

    // Whether the run is due, which tmrStart_Timer starts once the page has been painted.
    [[nodiscard]] bool tmrStart() const { return startIsDue_; }
    void tmrStart_Timer();

    // The command "NewFolder" of the folder tree: asks for a name and makes the folder, which is the target then.
    // Nothing happens while there is no target folder to make it in.
    void NewFolder();

    // Opens the generated project group with the program that the desktop has for it. Whether it has one is not told to
    // those who ask: lblOpened is what the person is to know of that, "" before.
    void lblOpenProject_Click();
    [[nodiscard]] const std::string& lblOpened() const { return opened_; }

    CodeGeneration Process;

  private:
    void ReadSettings();
    void WriteSettings();
    void GoTo(int page);
    void ChooseFolder();
    void LeaveFolder();
    void StatusChanged(int stage, const std::string& message);
    void OperationEnded(const RunEnd& end, bool canOpen);
    void OfferClose();
    void ShowAndServe();

    // ConflictResolver
    [[nodiscard]] ConflictAnswer ResolveConflict(const FileConflict& conflict) override;
    [[nodiscard]] bool IsCancelled() override;

    const Application& application_;
    TTCProject& project_;
    KZMClasses& classes_;
    WizardDialogs& dialogs_;
    int page_ = wizard_page::kIntroduction;
    WizardButton back_{.Caption = "< &Back", .Enabled = false};
    WizardButton next_{.Caption = "&Next >"};
    WizardButton cancel_{.Caption = "&Cancel"};
    std::string instructions_;
    std::string folder_;
    std::int32_t mode_ = overwrite_mode::kPrompt;
    bool compile_ = true;
    std::array<WizardStep, 4> steps_;
    int percent_ = 0;
    bool startIsDue_ = false;
    bool isRunning_ = false;
    bool isCancelled_ = false;
    bool hasEnded_ = false;
    bool canOpen_ = false;
    std::string heading_;
    std::string text_;
    std::string opened_;
    ConflictAnswer lastAnswer_ = ConflictAnswer::BackupAndOverwrite;
    std::vector<Connection> events_;
};

} // namespace veldrane
