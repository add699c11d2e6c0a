#include "shell/main_window/drop_rules.h"

#include "preview/tree_node.h"
#include "shell/main_window/class_marks.h"
#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_set>
#include <utility>

namespace veldrane {
namespace {

using ClassPointer = std::shared_ptr<KZMClass>;

// A group that takes a table as a class.
struct RowGroup
{
    std::string_view Key;
    Placement Place;
};

constexpr auto kRowGroups = std::to_array<RowGroup>({
    {tree_key::kParentClasses, Placement::Root},
    {tree_key::kLookupClasses, Placement::Lookup},
});

enum class Relationships
{
    Kept,
    Cleared,
};

enum class OwnCollection
{
    Kept,
    Dropped,
};

// What happens to a class whose node is dropped on a group. It has no parent afterwards.
struct GroupMove
{
    std::string_view Tag; // of the dragged node
    std::string_view Group;
    bool IsDomainTable;
    veldrane::Relationships Relationships;
    veldrane::OwnCollection OwnCollection;
};

// A class that is dragged by its own node leaves its collection behind.
constexpr auto kGroupMoves = std::to_array<GroupMove>({
    {tree_tag::kTable, tree_key::kParentClasses, false, Relationships::Cleared, OwnCollection::Dropped},
    {tree_tag::kTableCollection, tree_key::kParentClasses, false, Relationships::Cleared, OwnCollection::Kept},
    {tree_tag::kTable, tree_key::kLookupClasses, true, Relationships::Cleared, OwnCollection::Dropped},
    {tree_tag::kTableCollection, tree_key::kLookupClasses, true, Relationships::Cleared, OwnCollection::Kept},
    {tree_tag::kDomain, tree_key::kParentClasses, false, Relationships::Kept, OwnCollection::Kept},
    {tree_tag::kDomainCollection, tree_key::kParentClasses, false, Relationships::Kept, OwnCollection::Kept},
    {tree_tag::kClass, tree_key::kAdditionalClasses, false, Relationships::Kept, OwnCollection::Kept},
    {tree_tag::kClassCollection, tree_key::kAdditionalClasses, false, Relationships::Kept, OwnCollection::Kept},
});

ClassPointer ClassOf(const TreeNode& node, const KZMClasses& classes)
{
    return node.Id.Kind == NodeKind::Fixed ? nullptr : classes.Item(node.ClassName);
}

bool IsChildOf(const KZMClass& item, const KZMClass& parent)
{
    return text::EqualFolded(item.ParentClassName, parent.ClassName);
}

// What a dragged row does on the nodes of a tree.
class RowDrops
{
  public:
    RowDrops(const DraggedRow& row, const DropGround& ground)
        : ground_(ground), request_{.TableName = row.Row.Text,
                                    .Access =
                                        row.From == RowList::Views ? ClassAccess::ReadOnly : ClassAccess::Updatable}
    {
        for (const KZMClass& item : ground.Classes)
            if (const ClassPointer parent = ground.Classes.Item(item.ParentClassName)) {
                parents_.insert(parent.get());
                if (text::EqualFolded(item.TableName, row.Row.Text))
                    parentsOfTable_.insert(parent.get());
            }
    }

    [[nodiscard]] Drop On(const TreeNode& node) const
    {
        for (const RowGroup& group : kRowGroups)
            if (IsFixed(node, group.Key))
                return RequestFor(group.Place, "");
        const ClassPointer parent = ClassOf(node, ground_.Classes);
        if (parent == nullptr || !TakesTables(node, *parent) || parentsOfTable_.contains(parent.get()))
            return NoDrop{};
        return RequestFor(Placement::UnderParent, parent->ClassName);
    }

  private:
    // A class takes tables if it stands on one itself or is a parent already.
    [[nodiscard]] bool TakesTables(const TreeNode& node, const KZMClass& item) const
    {
        return !item.IsMTSRequiredClass &&
               (node.Tag == tree_tag::kTable || node.Tag == tree_tag::kTableCollection || parents_.contains(&item));
    }

    [[nodiscard]] NewClass RequestFor(Placement place, const std::string& parent) const
    {
        NewClass request = request_;
        request.Place = place;
        request.ParentClassName = parent;
        return request;
    }

    const DropGround& ground_;
    NewClass request_;
    std::unordered_set<const KZMClass*> parents_;
    std::unordered_set<const KZMClass*> parentsOfTable_; // of a class on the row's table
};

// Whether the class is the other one or stands below it. A ring of parents has an end here too.
bool StandsBelow(const KZMClass& item, const KZMClass& other, const KZMClasses& classes)
{
    const KZMClass* at = &item;
    for (std::size_t step = 0; at != nullptr && step <= classes.Count(); ++step) {
        if (at == &other)
            return true;
        at = classes.Item(at->ParentClassName).get();
    }
    return false;
}

bool ChangesNothing(const ClassMove& move, const KZMClass& item)
{
    return item.ParentClassName == move.ParentClassName && item.IsDomainTable == move.IsDomainTable &&
           (!move.ClearsRelationships || item.TTCRelationships.Count() == 0) &&
           (!move.DropsCollection || !item.CreateCollection);
}

Drop UnlessNothing(ClassMove move, const KZMClass& item)
{
    return ChangesNothing(move, item) ? Drop(NoDrop{}) : Drop(std::move(move));
}

Drop DropOnGroup(const TreeNode& dragged, const KZMClass& item, const TreeNode& group)
{
    const auto* const row = std::find_if(kGroupMoves.begin(), kGroupMoves.end(), [&](const GroupMove& move) {
        return move.Tag == dragged.Tag && move.Group == group.Id.Key;
    });
    if (row == kGroupMoves.end())
        return NoDrop{};
    return UnlessNothing({.ClassName = item.ClassName,
                          .ParentClassName = "",
                          .IsDomainTable = row->IsDomainTable,
                          .ClearsRelationships = row->Relationships == Relationships::Cleared,
                          .DropsCollection = row->OwnCollection == OwnCollection::Dropped},
                         item);
}

Drop DropOnClass(const TreeNode& dragged, const KZMClass& item, const TreeNode& target, const KZMClass& parent,
                 const KZMClasses& classes)
{
    // Under one of its own subclasses, the class and all below it would hang on nothing: no tree shows them and no
    // generated class reaches them.
    if (parent.IsMTSRequiredClass || IsChildOf(item, parent) || StandsBelow(parent, item, classes))
        return NoDrop{};
    const bool standsOnTable = dragged.Tag != tree_tag::kClass && dragged.Tag != tree_tag::kClassCollection;
    if (standsOnTable)
        return EditedMove{.ClassName = item.ClassName, .ParentClassName = parent.ClassName};
    if (target.Tag != tree_tag::kClass)
        return NoDrop{};
    return ClassMove{.ClassName = item.ClassName, .ParentClassName = parent.ClassName};
}

bool LosesCollection(const Drop& effect, const KZMClasses& classes)
{
    const auto* const move = std::get_if<ClassMove>(&effect);
    return move != nullptr && move->DropsCollection && classes.Item(move->ClassName)->CreateCollection;
}

std::string CaptionOf(const TreeNode& node, const Drop& effect, const KZMClasses& classes)
{
    const std::string& place = node.Id.Kind == NodeKind::Fixed ? node.Caption : node.ClassName;
    return LosesCollection(effect, classes) ? place + " (without its collection)" : place;
}

template <class DropAt>
std::vector<DropTarget> TargetsWhere(const DropGround& ground, const DropAt& dropAt)
{
    const ProjectTree& tree = ground.Tree;
    std::vector<DropTarget> targets;
    for (std::size_t i = 0; i < tree.size(); ++i) {
        Drop effect = dropAt(i);
        if (std::holds_alternative<NoDrop>(effect))
            continue;
        const bool isBelowItsCollection = !targets.empty() && tree[i].Id.Kind == NodeKind::Class &&
                                          tree[targets.back().Node].ClassName == tree[i].ClassName;
        if (isBelowItsCollection)
            continue;
        std::string caption = CaptionOf(tree[i], effect, ground.Classes);
        targets.push_back({.Node = i, .Caption = std::move(caption), .Effect = std::move(effect)});
    }
    return targets;
}

} // namespace

bool CanDrag(const ListRow& row)
{
    return IsRealRow(row);
}

bool CanDrag(std::size_t node, const DropGround& ground)
{
    const ClassPointer item = ClassOf(ground.Tree.at(node), ground.Classes);
    return item != nullptr && !item->IsMTSRequiredClass;
}

Drop DropOf(const DraggedRow& row, std::optional<std::size_t> target, const DropGround& ground)
{
    if (!target || !CanDrag(row.Row))
        return NoDrop{};
    return RowDrops(row, ground).On(ground.Tree.at(*target));
}

Drop DropOf(std::size_t node, std::optional<std::size_t> target, const DropGround& ground)
{
    if (!target || !CanDrag(node, ground))
        return NoDrop{};
    const TreeNode& dragged = ground.Tree.at(node);
    const TreeNode& onto = ground.Tree.at(*target);
    const ClassPointer item = ClassOf(dragged, ground.Classes);
    if (onto.Id.Kind == NodeKind::Fixed)
        return DropOnGroup(dragged, *item, onto);
    const ClassPointer parent = ClassOf(onto, ground.Classes);
    return parent == nullptr ? Drop(NoDrop{}) : DropOnClass(dragged, *item, onto, *parent, ground.Classes);
}

std::vector<DropTarget> TargetsOf(const DraggedRow& row, const DropGround& ground)
{
    if (!CanDrag(row.Row))
        return {};
    const RowDrops drops(row, ground);
    return TargetsWhere(ground, [&](std::size_t target) { return drops.On(ground.Tree[target]); });
}

std::vector<DropTarget> TargetsOf(std::size_t node, const DropGround& ground)
{
    return TargetsWhere(ground, [&](std::size_t target) { return DropOf(node, target, ground); });
}

} // namespace veldrane
