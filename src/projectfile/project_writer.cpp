#include "projectfile/project_writer.h"

#include "projectfile/format.h"
#include "projectfile/value_tables.h"

namespace veldrane {

using namespace project_format;

void WriteProjectInfo(std::string& text, const TTCProject& project)
{
    AppendLine(text, "Begin Project");
    AppendValueLines(text, project, kProjectLines);
    if (project.AttachedTables.Count() > 0) {
        AppendLine(text, "Begin AttachedTables");
        for (const KZMTable& table : project.AttachedTables)
            AppendLine(text, "Table", kSeparator, table.TableName);
        AppendLine(text, "End AttachedTables");
    }
    AppendLine(text, "End Project");
}

} // namespace veldrane
