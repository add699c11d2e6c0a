#include "shell/open_project_file.h"

#include "shell/platform/console_text.h"

namespace veldrane {

bool OpenProjectFile(const Application& application, ProjectSession& session, const std::string& path,
                     DataSourceOnOpen dataSource)
{
    application.Progress.Stage(0, "Reading the project " + path);
    const bool opened = session.Open(path, dataSource);
    if (!opened)
        application.ErrorOutput << "veldrane: " << ConsoleLine(path) << " was not opened, and nothing was written.\n";
    else if (session.LostClasses())
        application.ErrorOutput << "veldrane: " << ConsoleLine(path) << ": not all of its classes could be read.\n";
    return opened;
}

} // namespace veldrane
