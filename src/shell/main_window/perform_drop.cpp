#include "shell/main_window/perform_drop.h"

#include "shell/main_window/move_class.h"

namespace veldrane {
namespace {

class Performer
{
  public:
    explicit Performer(const DropWorld& world) : world_(world) {}

    bool operator()(const NoDrop& /*drop*/) const { return false; }

    bool operator()(const NewClass& request) const { return world_.Editor.Add(request); }

    bool operator()(const ClassMove& move) const { return MoveClass(move, world_.Project, world_.Classes); }

    bool operator()(const EditedMove& move) const
    {
        const auto item = world_.Classes.Item(move.ClassName);
        return item != nullptr && world_.Editor.Move(item, move.ParentClassName);
    }

  private:
    const DropWorld& world_;
};

} // namespace

bool Perform(const Drop& drop, const DropWorld& world)
{
    return std::visit(Performer(world), drop);
}

} // namespace veldrane
