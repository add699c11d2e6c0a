#include "shell/wizard/frm_gen_code.h"

#include "generator/file_names.h"
#include "generator/target_files.h"
#include "shell/option_text.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kModule = "frmGenCode";

// In which a second Escape or the other half of a double click comes.
constexpr std::chrono::milliseconds kSecondPress{500};

std::string Introduction(const TTCProject& project)
{
    std::string text =
        "This wizard will generate a complete Visual Basic Project based on the objects you have defined. "
        "You can specify the directory that these files will be saved to. ";
    if (project.MTSEnabled)
        text += "The generated COM Object code requires the Quillmere Component Services Manager application to be "
                "installed on your Transaction Server(s). Please see the help file and search for 'Transaction Server' "
                "for detailed instructions on setting up your Transaction Server(s). You will also need to distribute "
                "the Microsoft XML 2.0 Parser with your COM Object. ";
    return text + "Interface forms will also be generated and placed into the target directory. ";
}

std::string_view WithoutEndingSlash(std::string_view path)
{
    return path.size() > 1 && path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
}

// The setting of each mode, in the order of the options.
struct ModeSetting
{
    std::int32_t Mode;
    std::string_view Name;
    bool WhenEmpty;
};

constexpr auto kModes = std::to_array<ModeSetting>({
    {overwrite_mode::kPrompt, "Prompt", true},
    {overwrite_mode::kLeave, "Leave", false},
    {overwrite_mode::kBackupAndOverwrite, "Overwrite", false},
});

} // namespace

frmGenCode::frmGenCode(const Application& application, TTCProject& project, KZMClasses& classes, WizardDialogs& dialogs)
    : Process(project,
              {.Asking = application.Asking,
               .Errors = application.Errors,
               .Files = application.Files,
               .Time = application.Time,
               .Programs = application.Programs,
               .Conflicts = *this},
              application.State.Generation),
      application_(application), project_(project), classes_(classes), dialogs_(dialogs),
      instructions_(Introduction(project))
{
    ReadSettings();
    events_.push_back(Process.Progress.Connect([this](int percent) {
        percent_ = percent;
        Changed.Raise();
    }));
    events_.push_back(Process.StatusChanged.Connect(
        [this](int stage, const std::string& message) { StatusChanged(stage, message); }));
    events_.push_back(Process.OperationComplete.Connect(
        [this](const std::string& message) { OperationEnded(EndOfCompleteRun(message), true); }));
    events_.push_back(Process.OperationAborted.Connect(
        [this](const std::string& message) { OperationEnded(EndOfAbortedRun(message), false); }));
}

bool frmGenCode::MayCompile() const
{
    return !application_.State.Generation.VisualBasicCommand.empty();
}

// With every option off the first one is on.
void frmGenCode::ReadSettings()
{
    const auto isOn = [&](const ModeSetting& mode) {
        return BooleanOf(application_.UserSettings.GetKeyValue(settings_section::kGenerateCodeSettings, mode.Name),
                         mode.WhenEmpty);
    };
    const auto found = std::find_if(kModes.rbegin(), kModes.rend(), isOn);
    mode_ = found == kModes.rend() ? overwrite_mode::kPrompt : found->Mode;
    compile_ = WantsCompile(application_.UserSettings);
}

// A box that is disabled says nothing of what the person wants.
void frmGenCode::WriteSettings()
{
    Guarded(application_.Errors, kModule, "WriteSettings", [&] {
        for (const ModeSetting& mode : kModes)
            application_.UserSettings.UpdateKey(settings_section::kGenerateCodeSettings, mode.Name,
                                                mode.Mode == mode_ ? "True" : "False");
        if (MayCompile())
            application_.UserSettings.UpdateKey(settings_section::kGenerateCodeSettings, kAutoCompile,
                                                compile_ ? "1" : "0");
    });
}

void frmGenCode::GoTo(int page)
{
    page_ = page;
    back_.Enabled = page == wizard_page::kFolder || page == wizard_page::kOptions;
    next_.Caption = page == wizard_page::kOptions ? "&Finish" : "&Next >";
    next_.Enabled = page != wizard_page::kProgress && (page != wizard_page::kFolder || !folder_.empty());
}

void frmGenCode::treFolder_Change(const std::string& path)
{
    if (page_ != wizard_page::kFolder)
        return;
    folder_ = path;
    GoTo(page_);
    Changed.Raise();
}

void frmGenCode::cmdNext_Click()
{
    if (!next_.Enabled)
        return;
    switch (page_) {
    case wizard_page::kIntroduction:
        ChooseFolder();
        break;
    case wizard_page::kFolder:
        LeaveFolder();
        break;
    case wizard_page::kOptions:
        GoTo(wizard_page::kProgress);
        WriteSettings();
        startIsDue_ = true;
        break;
    default:
        return;
    }
    Changed.Raise();
}

void frmGenCode::ChooseFolder()
{
    folder_ = project_.OutputPath.empty() ? dialogs_.DefaultFolder() : project_.OutputPath;
    GoTo(wizard_page::kFolder);
}

void frmGenCode::LeaveFolder()
{
    if (!folder_.starts_with('/'))
        application_.Asking.Tell(
            "Invalid Folder Name",
            "The folder named: " + folder_ +
                " you selected is not valid. \r\nThe Code Generation wizard requires a fully qualified path. You can "
                "continue, however errors may occur code generation.",
            MessageIcon::Warning);
    GoTo(wizard_page::kOptions);
    if (WithoutEndingSlash(folder_) == WithoutEndingSlash(project_.OutputPath))
        return;
    project_.OutputPath = folder_;
    project_.SetModified(true);
}

void frmGenCode::cmdBack_Click()
{
    if (back_.Enabled)
        GoTo(page_ - 1);
    Changed.Raise();
}

void frmGenCode::cmdCancel_Click()
{
    startIsDue_ = false;
    if (!cancel_.Enabled)
        return;
    if (!isRunning_)
        return dialogs_.Close();
    isCancelled_ = true;
    cancel_.Enabled = false;
    Changed.Raise();
}

void frmGenCode::tmrStart_Timer()
{
    if (!std::exchange(startIsDue_, false))
        return;
    isRunning_ = true;
    {
        const PointerWhile hourglass(application_.Windows.Pointer, PointerShape::Hourglass);
        if (chkCompile())
            MakeFolderOfCompileLog(application_);
        Process.GenerateCode(
            classes_,
            {.TargetFolder = folder_, .OverwriteMode = mode_, .Compile = chkCompile(), .TellsUnchanged = true});
    }
    OfferClose();
}

// What is done is checked, what is under way is bold.
void frmGenCode::StatusChanged(int stage, const std::string& message)
{
    constexpr int kFilesStage = 1;
    constexpr int kLastBold = 3;
    for (int step = 1; step <= static_cast<int>(steps_.size()); ++step) {
        WizardStep& shown = steps_[static_cast<std::size_t>(step - 1)];
        shown.imgStep = step < stage;
        shown.Bold = step == stage && stage <= kLastBold;
        if (step == stage)
            shown.lblProgress = message;
    }
    if (stage > kFilesStage)
        cancel_.Enabled = false;
    ShowAndServe();
}

// The person may press Cancel meanwhile.
void frmGenCode::ShowAndServe()
{
    Changed.Raise();
    application_.Time.Wait(std::chrono::milliseconds(0));
}

void frmGenCode::OperationEnded(const RunEnd& end, bool canOpen)
{
    isRunning_ = false;
    hasEnded_ = true;
    canOpen_ = canOpen;
    instructions_ = end.Instructions;
    heading_ = end.Heading;
    text_ = end.Text;
    next_.Visible = false;
    back_.Visible = false;
    cancel_.Enabled = false;
    Changed.Raise();
}

void frmGenCode::OfferClose()
{
    application_.Time.Wait(kSecondPress);
    cancel_ = {.Caption = "&Close"};
    Changed.Raise();
}

ConflictAnswer frmGenCode::ResolveConflict(const FileConflict& conflict)
{
    const PointerWhile pointer(application_.Windows.Pointer, PointerShape::Default);
    frmFile dialog(conflict, lastAnswer_, application_.Files, application_.State.Generation.CodePage);
    dialogs_.Show(dialog);
    if (dialog.Answer() != ConflictAnswer::Cancel)
        lastAnswer_ = dialog.Answer();
    return dialog.Answer();
}

bool frmGenCode::IsCancelled()
{
    return isCancelled_;
}

void frmGenCode::NewFolder()
{
    if (folder_.empty())
        return;
    const std::string name = dialogs_.NewFolderName();
    if (name.empty())
        return;
    const std::string path = PathIn(folder_, name);
    if (application_.Files.Kind(path) != FileKind::Missing)
        return application_.Asking.Tell("", "The folder name already exists in this directory.");
    if (!Guarded(application_.Errors, kModule, "CreateFolder", [&] { dialogs_.MakeFolder(path); }))
        return;
    treFolder_Change(path);
}

void frmGenCode::lblOpenProject_Click()
{
    Guarded(application_.Errors, kModule, "lblOpenProject_Click", [&] {
        const std::string group = NameOf(kTestProjectGroup, ProjectScope{project_, Process.Settings});
        application_.Programs.Start({"xdg-open", PathIn(folder_, group)});
        opened_ = "The desktop was asked to open " + group + ". If nothing opens, it knows no program for such files.";
        Changed.Raise();
    });
}

} // namespace veldrane
