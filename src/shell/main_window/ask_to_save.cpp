#include "shell/main_window/ask_to_save.h"

#include "projectfile/project_dialogs.h"

#include <utility>

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

// Other running programs have entries of their own in the section. Without the name of a copy, a document that stays
// after all gets a copy and an entry anew.
void ForgetCopy(const Application& application, TTCProject& project)
{
    const std::string copy = std::exchange(project.TempFileName, "");
    if (copy.empty())
        return;
    Guarded(application.Errors, "frmMain", "AskToSave",
            [&] { application.UserSettings.DeleteSetting(settings_section::kTempFiles, LastPart(copy)); });
}

} // namespace

bool AskToSave(const Application& application, ProjectSession& session)
{
    if (!session.Project().Modified())
        return true;
    const Answer answer = Ask(application.Asking, session.Project());
    if (answer == Answer::Cancel || (answer == Answer::Yes && !session.Save()))
        return false;
    ForgetCopy(application, session.Project());
    return true;
}

} // namespace veldrane
