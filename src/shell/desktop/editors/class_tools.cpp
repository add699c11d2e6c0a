#include "shell/desktop/editors/class_tools.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/qt_text.h"

#include <QKeySequence>

#include <array>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr auto kTools = std::to_array<ClassTool>({
    {"FieldProperties", ClassList::lstProperties, "&Field Properties...", "", "Edit",
     "Edits the property, its formats and its lookup"},
    {"SetAsPrimaryKey", ClassList::lstProperties, "Set as Primary &Key", "Ctrl+K", "FieldKey",
     "Makes the selected fields the primary key of the class"},
    {"RefreshField", ClassList::lstProperties, "&Refresh Field", "F5", "Refresh",
     "Makes the selected properties anew from their fields"},
    {"GetNewFields", ClassList::lstProperties, "Get &New Fields", "Ins", "Field",
     "Adds a property for each field of the table that has none"},

    {"NewPlusProperty", ClassList::lstPlusProperties, "&New Property...", "Ins", "Property",
     "Adds a property that stands on no field"},
    {"EditPlusProperty", ClassList::lstPlusProperties, "&Edit Property...", "", "Edit", "Edits the selected property"},
    {"AddPlusProperty", ClassList::lstPlusProperties, "&Built-in Properties...", "Ctrl+B", "PropertyPlus",
     "Adds properties from a list of ready ones"},
    {"DeletePlusProperty", ClassList::lstPlusProperties, "&Delete Property", "Del", "Delete",
     "Deletes the selected properties"},

    {"NewMethod", ClassList::lstMethods, "&New Method...", "Ins", "Sub", "Adds a method of your own"},
    {"EditMethod", ClassList::lstMethods, "&Edit Method...", "", "Edit",
     "Edits the selected method, or the stored procedure behind it"},
    {"AddBuiltInMethod", ClassList::lstMethods, "&Built-in Methods...", "Ctrl+B", "PlusMethod",
     "Adds methods from a list of ready ones"},
    {"AddSP", ClassList::lstMethods, "&Stored Procedures...", "Ctrl+Ins", "SP",
     "Adds methods that call stored procedures of the data source"},
    {"ByPrimaryKey", ClassList::lstMethods, "By &Primary Key", "Ctrl+K", "FieldKey",
     "Lets Retrieve or Delete find its row by the primary key"},
    {"ByIdentityColumn", ClassList::lstMethods, "By &Identity Column", "Ctrl+I", "IdentityCol",
     "Lets Retrieve or Delete find its row by the identity column"},
    {"DeleteMethod", ClassList::lstMethods, "&Delete Method", "Del", "Delete", "Deletes the selected methods"},

    {"NewEvent", ClassList::lstEvents, "&New Event...", "Ins", "Event", "Adds an event of your own"},
    {"EditEvent", ClassList::lstEvents, "&Edit Event...", "", "Edit", "Edits the selected event"},
    {"AddBuiltInEvent", ClassList::lstEvents, "&Built-in Events...", "Ctrl+B", "PlusEvent",
     "Adds events from a list of ready ones"},
    {"DeleteEvent", ClassList::lstEvents, "&Delete Event", "Del", "Delete", "Deletes the selected events"},

    {"GetNewRelationships", ClassList::lstJoins, "&Get New Relationships", "F5", "Refresh",
     "Adds the relationships that the data source knows"},
    {"DeleteRelationship", ClassList::lstJoins, "&Delete Relationship", "Del", "Delete",
     "Deletes the relationships of the selected joins"},
});

struct Opening
{
    ClassList List;
    std::string_view Tool;
};
constexpr auto kOpenings = std::to_array<Opening>({
    {ClassList::lstProperties, "FieldProperties"},
    {ClassList::lstPlusProperties, "EditPlusProperty"},
    {ClassList::lstMethods, "EditMethod"},
    {ClassList::lstEvents, "EditEvent"},
});

QString ToolTipOf(const ClassTool& tool)
{
    const bool opens = OpeningTool(tool.List) == tool.Name;
    const QKeySequence key = opens ? QKeySequence(Qt::Key_Return)
                                   : QKeySequence::fromString(ToQt(tool.Shortcut), QKeySequence::PortableText);
    const QString words = ToQt(tool.ToolTip);
    return key.isEmpty() ? words : words + u" (%1)"_s.arg(key.toString(QKeySequence::NativeText));
}

} // namespace

std::span<const ClassTool> ClassTools()
{
    return kTools;
}

std::string_view OpeningTool(ClassList list)
{
    for (const Opening& opening : kOpenings)
        if (opening.List == list)
            return opening.Tool;
    return {};
}

QAction* MakeAction(const ClassTool& tool, QObject* parent)
{
    auto* action = new QAction(Icon(tool.Icon), ToQt(tool.Caption), parent);
    action->setObjectName(ToQt(tool.Name));
    action->setToolTip(ToolTipOf(tool));
    action->setShortcut(QKeySequence::fromString(ToQt(tool.Shortcut), QKeySequence::PortableText));
    action->setShortcutContext(Qt::WidgetShortcut);
    return action;
}

} // namespace veldrane
