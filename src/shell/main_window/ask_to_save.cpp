#include "shell/main_window/ask_to_save.h"

#include "projectfile/project_dialogs.h"

namespace veldrane {
namespace {

Answer Ask(Messages& messages, const TTCProject& project)
{
    const std::string kind = project.Recovered ? "recovered " : "";
    return messages.Ask({.Title = "Save Changes?",
                         .Text = "This " + kind + "project has been modified and changes have not been saved.\r\n" +
                                 "Do you want to save " + project.ProjectName() + " first?",
                         .Offered = Buttons::YesNoCancel,
                         .Icon = MessageIcon::Question,
                         .Default = Answer::Yes});
}

// Other running programs have entries of their own in the section.
void ForgetCopy(const Application& application, const std::string& temporaryFile)
{
    if (temporaryFile.empty())
        return;
    Guarded(application.Errors, "frmMain", "AskToSave",
            [&] { application.UserSettings.DeleteSetting(settings_section::kTempFiles, LastPart(temporaryFile)); });
}

} // namespace

bool AskToSave(const Application& application, ProjectSession& session)
{
    if (!session.Project().Modified())
        return true;
    const Answer answer = Ask(application.Asking, session.Project());
    if (answer == Answer::Cancel || (answer == Answer::Yes && !session.Save()))
        return false;
    ForgetCopy(application, session.Project().TempFileName);
    return true;
}

} // namespace veldrane
