#pragma once

#include "datasource/table_to_class.h"
#include "editors/class_editor_world.h"
#include "editors/editor_dialogs.h"

#include <memory>
#include <string>
#include <utility>

namespace veldrane {

// Where a class is made, changed or moved with the person's help. Each function returns whether the project was
// changed: it is modified then. Throws ReadingCancelled, with the project as it was.
class ClassEditor
{
  public:
    virtual ~ClassEditor() = default;

    virtual bool Add(const NewClass& request) = 0;
    virtual bool Edit(const std::shared_ptr<KZMClass>& item) = 0;

    // Puts a class of the project under another one: the project holds a changed copy in place of `item` then.
    virtual bool Move(const std::shared_ptr<KZMClass>& item, const std::string& newParent) = 0;
};

// Shows the editor, each time in the mode that is asked for.
class ShownClassEditor : public ClassEditor
{
  public:
    // The dialogs outlive this object.
    ShownClassEditor(ClassEditorWorld world, EditorDialogs& dialogs) : world_(std::move(world)), dialogs_(dialogs) {}

    bool Add(const NewClass& request) override;
    bool Edit(const std::shared_ptr<KZMClass>& item) override;
    bool Move(const std::shared_ptr<KZMClass>& item, const std::string& newParent) override;

  private:
    bool Show(frmAddEditClass& form);

    ClassEditorWorld world_;
    EditorDialogs& dialogs_;
};

} // namespace veldrane
