#include "shell/main_window/recovery.h"

#include <string>
#include <vector>

namespace veldrane {
namespace {

constexpr std::string_view kModule = "frmMain";

class Recovery
{
  public:
    Recovery(const Application& application, ProjectSession& session, const StartCommand& start)
        : application_(application), session_(session), start_(start)
    {}

    AfterRecovery Run()
    {
        for (const TempFile& copy : Copies()) {
            if (!Take(copy))
                continue;
            if (application_.Files.Kind(start_.File) == FileKind::File)
                return AskForOne(copy);
            if (!IsEmptyCommandLine()) {
                application_.Asking.Tell("", "The file does not exist. Please restart application.");
                return start_.File.empty() ? AfterRecovery::CommandLine : AfterRecovery::WithoutItsProject;
            }
            if (Recover(copy))
                return AfterRecovery::Recovered;
            application_.Asking.Tell("Recovery Failed", "Unable to recover lost file. It stays as " + copy.Path + ".",
                                     MessageIcon::Warning);
            Delete(copy);
        }
        return AfterRecovery::CommandLine;
    }

  private:
    std::vector<TempFile> Copies()
    {
        std::vector<TempFile> copies;
        Guarded(application_.Errors, kModule, "Form_Load", [&] { copies = session_.UnsavedCopies().Recoverable(); });
        return copies;
    }

    bool Take(const TempFile& copy)
    {
        bool isTaken = false;
        Guarded(application_.Errors, kModule, "Form_Load", [&] { isTaken = session_.UnsavedCopies().Take(copy); });
        return isTaken;
    }

    [[nodiscard]] bool IsEmptyCommandLine() const
    {
        return start_.File.empty() && start_.InvalidPath.empty() && (start_.NoSplash || !start_.DebugTiming);
    }

    AfterRecovery AskForOne(const TempFile& copy)
    {
        const Answer answer = application_.Asking.Ask(
            {.Title = "Recoverable File Detected",
             .Text = "There is a file that is able to be recovered from a previous session.\r\n"
                     "You have also chosen to open an existing file.\r\n"
                     "Click 'Yes' to recover the file from the previous session, OR \r\n"
                     "Click 'No' to open the existing file (THE RECOVERABLE FILE WILL BE LOST)\r\n"
                     "Click 'Cancel' to end this application. (The recoverable file will remain intact.)",
             .Offered = Buttons::YesNoCancel,
             .Icon = MessageIcon::Question,
             .Default = Answer::Yes});
        if (answer == Answer::Cancel)
            return AfterRecovery::End;
        if (answer == Answer::Yes)
            return Recover(copy) ? AfterRecovery::Recovered : AskForTheOther();
        session_.UnsavedCopies().GiveUp(copy);
        return AfterRecovery::CommandLine;
    }

    AfterRecovery AskForTheOther()
    {
        switch (application_.Asking.Ask(
            {.Title = "Recovery Failed",
             .Text = "Unable to recover lost file. Do you want to open the other file you originally wanted?",
             .Offered = Buttons::YesNoCancel,
             .Icon = MessageIcon::Question,
             .Default = Answer::Yes})) {
        case Answer::Yes:
            return AfterRecovery::CommandLine;
        case Answer::No:
            return AfterRecovery::WithoutItsProject;
        default:
            return AfterRecovery::End;
        }
    }

    bool Recover(const TempFile& copy)
    {
        if (!session_.Recover(copy.Path))
            return false;
        if (session_.Autosave() && !session_.LostClasses())
            Delete(copy);
        else
            session_.UnsavedCopies().GiveUp(copy); // it goes when the work is settled
        return true;
    }

    void Delete(const TempFile& copy)
    {
        Guarded(application_.Errors, kModule, "Form_Load", [&] { session_.UnsavedCopies().Delete(copy); });
    }

    const Application& application_;
    ProjectSession& session_;
    const StartCommand& start_;
};

} // namespace

AfterRecovery RecoverProject(const Application& application, ProjectSession& session, const StartCommand& start)
{
    return Recovery(application, session, start).Run();
}

} // namespace veldrane
