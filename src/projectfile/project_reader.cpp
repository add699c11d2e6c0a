#include "projectfile/project_reader.h"

#include "projectfile/format.h"
#include "projectfile/value_tables.h"
#include "text/runtime_error.h"
#include "text/strings.h"

namespace veldrane {

using namespace project_format;

namespace {

class ProjectSection
{
  public:
    explicit ProjectSection(TTCProject& project) : project_(project) {}

    void Take(std::string_view fileLine)
    {
        const KeyAndValue read = SplitValueLine(text::Trim(fileLine));
        if (read.Key.empty())
            return;
        const std::string_view value = text::Trim(read.Value);
        if (attached_)
            TakeAttached(read.Key, value);
        else if (read.Key == "Begin AttachedTables")
            attached_ = true;
        else
            TakeValue(read.Key, value);
    }

    void Finish()
    {
        if (!lastValue_.empty())
            AssignMember(project_, *lastLine_, lastValue_);
    }

  private:
    // The list of tables is the last of the section, so every line from its opening on is taken for a table.
    void TakeAttached(std::string_view key, std::string_view value)
    {
        if (key != "End AttachedTables")
            project_.AttachedTables.Add(value, value);
    }

    void TakeValue(std::string_view key, std::string_view value)
    {
        const ValueLine<TTCProject>* line = FindValueLine(kProjectLines, key);
        if (line == nullptr || line->WhenRead == Reading::Ignored)
            return;
        if (line->WhenRead == Reading::Taken) {
            Naming(line->Key, [&] { AssignMember(project_, *line, value); });
        } else {
            lastLine_ = line;
            lastValue_ = value;
        }
    }

    TTCProject& project_;
    bool attached_ = false;
    const ValueLine<TTCProject>* lastLine_ = nullptr;
    std::string_view lastValue_;
};

} // namespace

void ReadProjectInfo(LineStream& stream, TTCProject& project)
{
    while (!stream.AtEnd() && stream.ReadLine() != "Begin Project") {
    }
    if (stream.AtEnd())
        throw RuntimeError(error_number::kInvalidCall, "TTCFileManagement", "The file has no section of the project.");
    project.AutosaveProject = false; // a new project has it on, and a file says so by its line
    ProjectSection section(project);
    bool empty = true;
    while (!stream.AtEnd()) {
        const std::string_view line = stream.ReadLine();
        if (line == "End Project")
            break;
        empty = false;
        section.Take(line);
    }
    if (empty)
        throw RuntimeError(error_number::kInvalidCall, "TTCFileManagement", "The section of the project is empty.");
    section.Finish();
}

} // namespace veldrane
