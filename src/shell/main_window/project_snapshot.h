#pragma once

#include "model/classes.h"
#include "model/project.h"

#include <memory>
#include <string>
#include <vector>

namespace veldrane {

// What edits change of a project, as it was at one moment. Copies share what they hold.
class ProjectSnapshot
{
  public:
    // Takes the project as it is now. Classes that are the same in `before` are shared with it.
    ProjectSnapshot(const TTCProject& project, const KZMClasses& classes, const ProjectSnapshot* before = nullptr);

    // Gives the project the classes, their order, the names and the properties of that moment; nobody is told of single
    // classes. Where it lies, what it is connected to and where its code goes stay as they are.
    void Restore(TTCProject& project, KZMClasses& classes) const;

    // Whether edits left the project as it was.
    [[nodiscard]] bool HasSameEdits(const ProjectSnapshot& other) const;

    // Whether a file of the one would be a file of the other, to the letter.
    [[nodiscard]] bool HasSameFile(const ProjectSnapshot& other) const;

  private:
    [[nodiscard]] bool HasSameClasses(const ProjectSnapshot& other) const;

    struct FrozenClass
    {
        std::string Text; // as the project's file has it
        std::shared_ptr<const KZMClass> Copy;
    };

    [[nodiscard]] static std::shared_ptr<const FrozenClass> Freeze(const std::shared_ptr<KZMClass>& item,
                                                                   const ProjectSnapshot* before);

    std::string file_;                             // the project's section of its file
    std::string edits_;                            // the same of what edits change
    std::shared_ptr<const TTCProject> properties_; // what edits change of it
    std::vector<std::string> names_;
    std::vector<std::shared_ptr<const FrozenClass>> classes_;
};

} // namespace veldrane
