#include "editors/frm_built_in_methods.h"

#include "datasource/builtin_members.h"
#include "editors/member_preview.h"

#include <optional>
#include <string>
#include <string_view>

namespace veldrane {
namespace {

// The box that refuses a method of the list; nothing for one that is added or passed over.
std::optional<Question> RefusalOf(std::string_view name, const KZMClass& item)
{
    const auto rowMethod = RowMethodOf(name);
    return rowMethod && !item.TTCMembers.Contains(name) ? NoRowIdentifier(item, *rowMethod) : std::nullopt;
}

std::vector<BuiltInRow> RowsFor(const ClassEdit& edit)
{
    std::vector<BuiltInRow> rows = OfferedRows(MethodsOnList(edit.Class), edit.Class.TTCMethods, &TTCMethod::PlusMethod,
                                               MethodNameRules(edit.Class, "", edit.CodePage), "MethodPlus");
    for (BuiltInRow& row : rows)
        if (const auto refusal = RefusalOf(row.Name, edit.Class); refusal && !row.IsInClass && row.Trouble.empty())
            row.Trouble = refusal->Text;
    return rows;
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
