#include "shell/desktop/editors/parameter_rows.h"

#include <QHeaderView>

namespace veldrane {

using namespace Qt::StringLiterals;

void ShowParameters(EditorList& list, const std::vector<ParameterRow>& parameters)
{
    list.setHeaderLabels({u"Parameter"_s, u"Direction"_s, u"Type"_s});
    std::vector<EditorRow> rows;
    rows.reserve(parameters.size());
    for (const ParameterRow& parameter : parameters)
        rows.push_back({.Columns = {parameter.Name, parameter.Direction, parameter.DataType}});
    list.Show(rows);
    list.resizeColumnToContents(0);
    list.resizeColumnToContents(1);
}

} // namespace veldrane
