#include "editors/frm_built_in_methods.h"

#include "datasource/builtin_members.h"
#include "editors/member_preview.h"

namespace veldrane {
namespace {

std::vector<BuiltInRow> RowsFor(const ClassEdit& edit)
{
    return OfferedRows(MethodsOnList(edit.Class), edit.Class.TTCMethods, &TTCMethod::PlusMethod,
                       MethodNameRules(edit.Class, "", edit.CodePage), "MethodPlus");
}

} // namespace

frmBuiltInMethods::frmBuiltInMethods(const MemberSurroundings& surroundings)
    : surroundings_(surroundings), rows_(RowsFor(surroundings.Edit))
{}

TTCOutputs frmBuiltInMethods::Preview(std::size_t row) const
{
    return BuiltInMethodPreview(surroundings_.Generated, surroundings_.Edit.Class, lstMethods().at(row).Name);
}

bool frmBuiltInMethods::cmdOK_Click()
{
    AcceptBuiltInMethods(surroundings_.Edit, rows_.Wanted(), Occasion::Ticked);
    return true;
}

} // namespace veldrane
