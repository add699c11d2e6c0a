#include "editors/frm_built_in_events.h"

#include "datasource/builtin_members.h"
#include "editors/member_preview.h"

namespace veldrane {
namespace {

std::vector<BuiltInRow> RowsFor(const ClassEdit& edit)
{
    return OfferedRows(EventsOnList(edit.Class), edit.Class.TTCEvents, &ttcEvent::PlusEvent,
                       EventNameRules(edit.Class, "", edit.CodePage), "EventPlus");
}

} // namespace

frmBuiltInEvents::frmBuiltInEvents(const MemberSurroundings& surroundings)
    : surroundings_(surroundings), rows_(RowsFor(surroundings.Edit))
{}

TTCOutputs frmBuiltInEvents::Preview(std::size_t row) const
{
    return BuiltInEventPreview(surroundings_.Generated, surroundings_.Edit.Class, lstEvents().at(row).Name);
}

bool frmBuiltInEvents::cmdOK_Click()
{
    AcceptBuiltInEvents(surroundings_.Edit, rows_.Wanted());
    return true;
}

} // namespace veldrane
