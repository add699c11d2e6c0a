#pragma once

#include "datasource/table_to_class.h"
#include "shell/application.h"
#include "shell/project_session.h"

#include <memory>
#include <string>

namespace veldrane {

// Where a class is made or moved with the person's help.
class ClassEditor
{
  public:
    virtual ~ClassEditor() = default;

    // Add mode. True if the class is in the project now; it is then modified.
    virtual bool Add(const NewClass& request) = 0;

    // Move mode: puts a class of the project under another one. True if it is there now; the project is modified then,
    // and holds a changed copy in place of `item`.
    virtual bool Move(const std::shared_ptr<KZMClass>& item, const std::string& newParent) = 0;
};

// Takes what the editor proposes without showing it: the class as its table gives it, the joins as the foreign keys
// give them. The questions on the way are asked; what can't be done is told, and the project is as it was.
class AcceptingClassEditor : public ClassEditor
{
  public:
    AcceptingClassEditor(const Application& application, ProjectSession& session)
        : application_(application), session_(session)
    {}

    bool Add(const NewClass& request) override;
    bool Move(const std::shared_ptr<KZMClass>& item, const std::string& newParent) override;

  private:
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog();
    [[nodiscard]] ClassEdit EditOf(KZMClass& item, Catalog* source);

    const Application& application_;
    ProjectSession& session_;
};

} // namespace veldrane
