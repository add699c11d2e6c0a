#pragma once

#include "datasource/catalog.h"
#include "datasource/class_names.h"
#include "ports/error_report.h"
#include "shell/application.h"
#include "shell/command_line.h"
#include "shell/project_session.h"

namespace veldrane {

// What the classes of a `define` run are made from and told to.
struct ClassRun
{
    const veldrane::Application& Application;
    const DefineCommand& Command;
    ProjectSession& Session;
    Catalog& Source;
    ErrorReport& Errors;
};

// Brings the classes of the project up to their tables, then makes those that the command asks for, and then its
// stored procedures. What can't be done is told, one line each, and the rest is done. A table that the login may not
// read is left out with a note where the command did not name it: that is no failure. False if anything else was left
// out. Throws DataSourceError where the catalog as a whole can't be read.
[[nodiscard]] bool DefineClasses(const ClassRun& run);

} // namespace veldrane
