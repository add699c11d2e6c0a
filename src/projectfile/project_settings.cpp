#include "projectfile/project_settings.h"

#include "projectfile/format.h"
#include "projectfile/value_tables.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <string>

namespace veldrane {

using namespace project_format;

namespace {

RuntimeError Refusal(const std::string& description)
{
    return {error_number::kInvalidCall, "TTCFileManagement", description};
}

// Nothing protects a line break or a separator inside a value.
bool FileHolds(std::string_view value)
{
    return value.find_first_of(std::string_view("\r\n\2\0", 4)) == std::string_view::npos;
}

} // namespace

void SetProjectSetting(TTCProject& project, std::string_view name, std::string_view value)
{
    const ValueLine<TTCProject>* line = FindValueLine(kProjectLines, name);
    if (line == nullptr)
        throw Refusal("project files have no setting of this name.");
    if (line->WhenRead == Reading::Ignored)
        throw Refusal("this line of a project file is written only, and would be gone at the next opening.");
    if (line->WhenRead == Reading::TakenLast)
        throw Refusal("the connection is given with --connection.");
    if (!FileHolds(value))
        throw Refusal("a project file can't hold a value with a line break or a control character in it.");
    AssignMember(project, *line, text::Trim(value));
}

} // namespace veldrane
