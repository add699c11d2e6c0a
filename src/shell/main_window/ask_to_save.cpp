#include "shell/main_window/ask_to_save.h"

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

} // namespace

bool AskToSave(const Application& application, ProjectSession& session)
{
    if (!session.Project().Modified())
        return true;
    const Answer answer = Ask(application.Asking, session.Project());
    if (answer == Answer::Cancel || (answer == Answer::Yes && !session.Save()))
        return false;
    session.ForgetCopies();
    // A document that stays open all the same has a copy again at the next minute.
    session.Project().AutosaveCurrentInterval = session.Project().AutosaveProjectInterval;
    return true;
}

} // namespace veldrane
