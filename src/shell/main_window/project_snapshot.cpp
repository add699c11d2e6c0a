#include "shell/main_window/project_snapshot.h"

#include "model/working_copy.h"
#include "projectfile/class_writer.h"
#include "projectfile/project_writer.h"
#include "shell/project_properties/project_controls.h"

#include <algorithm>

namespace veldrane {
namespace {

std::string SectionOf(const TTCProject& project)
{
    std::string text;
    WriteProjectInfo(text, project);
    return text;
}

std::string SectionOf(const std::shared_ptr<KZMClass>& item)
{
    KZMClasses alone;
    alone.AddExisting(item, item->ClassName);
    std::string text;
    WriteClassInfo(text, alone);
    return text;
}

void CopyTables(const TTCProject& from, TTCProject& to)
{
    to.AttachedTables = {};
    for (const KZMTable& table : from.AttachedTables)
        to.AttachedTables.Add(table.TableName, table.TableName);
}

std::vector<std::string> NamesOf(const TTCProject& project)
{
    std::vector<std::string> names;
    for (const TTCClassCollectionName& name : project.ClassCollectionNames)
        names.push_back(name.ClassCollectionName);
    return names;
}

} // namespace

ProjectSnapshot::ProjectSnapshot(const TTCProject& project, const KZMClasses& classes, const ProjectSnapshot* before)
    : file_(SectionOf(project)), names_(NamesOf(project))
{
    auto properties = std::make_shared<TTCProject>();
    CopyProjectProperties(project, *properties);
    CopyTables(project, *properties);
    edits_ = SectionOf(*properties);
    properties_ = std::move(properties);
    for (std::size_t position = 1; position <= classes.Count(); ++position)
        classes_.push_back(Freeze(classes.Item(position), before));
}

std::shared_ptr<const ProjectSnapshot::FrozenClass> ProjectSnapshot::Freeze(const std::shared_ptr<KZMClass>& item,
                                                                            const ProjectSnapshot* before)
{
    std::string text = SectionOf(item);
    if (before != nullptr) {
        const auto same = std::find_if(before->classes_.begin(), before->classes_.end(),
                                       [&](const auto& frozen) { return frozen->Text == text; });
        if (same != before->classes_.end())
            return *same;
    }
    return std::make_shared<FrozenClass>(FrozenClass{.Text = std::move(text), .Copy = WorkingCopy(*item)});
}

void ProjectSnapshot::Restore(TTCProject& project, KZMClasses& classes) const
{
    CopyProjectProperties(*properties_, project);
    CopyTables(*properties_, project);
    project.ClassCollectionNames = {};
    for (const std::string& name : names_)
        project.ClassCollectionNames.Add(name, name);
    classes.Clear();
    classes.LoadingProject = true;
    for (const auto& frozen : classes_)
        classes.AddExisting(WorkingCopy(*frozen->Copy), frozen->Copy->ClassName);
    classes.LoadingProject = false;
}

bool ProjectSnapshot::HasSameEdits(const ProjectSnapshot& other) const
{
    return edits_ == other.edits_ && names_ == other.names_ && HasSameClasses(other);
}

bool ProjectSnapshot::HasSameFile(const ProjectSnapshot& other) const
{
    return file_ == other.file_ && HasSameClasses(other);
}

bool ProjectSnapshot::HasSameClasses(const ProjectSnapshot& other) const
{
    return std::equal(classes_.begin(), classes_.end(), other.classes_.begin(), other.classes_.end(),
                      [](const auto& one, const auto& two) { return one == two || one->Text == two->Text; });
}

} // namespace veldrane
