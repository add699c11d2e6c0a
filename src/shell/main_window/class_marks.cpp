#include "shell/main_window/class_marks.h"

#include "text/case_folding.h"

#include <algorithm>

namespace veldrane {
namespace {

template <class Condition>
std::vector<std::size_t> ClassNodesWhere(const ProjectTree& tree, const KZMClasses& classes, const Condition& condition)
{
    std::vector<std::size_t> nodes;
    for (std::size_t i = 0; i < tree.size(); ++i)
        if (tree[i].Id.Kind == NodeKind::Class)
            if (const auto item = classes.Item(tree[i].ClassName); item && condition(*item))
                nodes.push_back(i);
    return nodes;
}

bool Calls(const KZMClass& item, std::string_view procedure)
{
    return std::any_of(item.TTCMethods.begin(), item.TTCMethods.end(), [&](const TTCMethod& method) {
        return method.MethodIsSP && method.StoredProcedure != nullptr &&
               text::EqualFolded(method.StoredProcedure->SPName, procedure);
    });
}

} // namespace

bool IsRealRow(const ListRow& row)
{
    return !row.Key.empty() && row.Key != kNoDataSourceKey && row.Key != kAddTableKey;
}

std::vector<std::size_t> ClassesOnTable(const ListRow& row, const ProjectTree& tree, const KZMClasses& classes)
{
    if (!IsRealRow(row))
        return {};
    return ClassNodesWhere(tree, classes,
                           [&](const KZMClass& item) { return text::EqualFolded(item.TableName, row.Text); });
}

std::vector<std::size_t> ClassesCallingProcedure(const ListRow& row, const ProjectTree& tree, const KZMClasses& classes)
{
    if (!IsRealRow(row))
        return {};
    return ClassNodesWhere(tree, classes, [&](const KZMClass& item) { return Calls(item, row.Text); });
}

} // namespace veldrane
