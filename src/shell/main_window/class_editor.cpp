#include "shell/main_window/class_editor.h"

#include "datasource/class_names.h"
#include "model/working_copy.h"
#include "shell/main_window/move_class.h"

namespace veldrane {

bool AcceptingClassEditor::Add(const NewClass& request)
{
    std::unique_ptr<Catalog> catalog;
    if (!Guarded(application_.Errors, kClassEditorModule, "OpenCatalog", [&] { catalog = OpenCatalog(); }))
        return false;
    const auto item = std::make_shared<KZMClass>();
    ClassEdit edit = EditOf(*item, catalog.get());
    if (BuildClass(edit, request, session_.Classes()) != BuildOutcome::Built)
        return false;
    return AcceptNewClass(item, {.Project = session_.Project(),
                                 .Classes = session_.Classes(),
                                 .Messages = application_.Asking,
                                 .Errors = application_.Errors,
                                 .CodePage = edit.CodePage});
}

bool AcceptingClassEditor::Move(const std::shared_ptr<KZMClass>& item, const std::string& newParent)
{
    const auto parent = session_.Classes().Item(newParent);
    if (parent == nullptr)
        return false;
    std::unique_ptr<Catalog> catalog;
    // The joins that the class leaves would be lost, and nobody could pick others.
    if (!Guarded(application_.Errors, kClassEditorModule, "MoveClass", [&] {
            catalog = OpenCatalog();
            static_cast<void>(OpenSource(catalog.get()));
        }))
        return false;
    const std::shared_ptr<KZMClass> copy = WorkingCopy(*item);
    ClassEdit edit = EditOf(*copy, catalog.get());
    if (!MoveClassUnder(edit, *parent))
        return false;
    ReplaceClass(copy, session_.Project(), session_.Classes());
    return true;
}

// Nothing while no data source is open; a connection that was lost meanwhile shows itself in what is asked of the
// catalog.
std::unique_ptr<Catalog> AcceptingClassEditor::OpenCatalog()
{
    DataSourceConnection* const connection = session_.ActiveConnection();
    return connection != nullptr && connection->IsOpen() ? connection->OpenCatalog() : nullptr;
}

ClassEdit AcceptingClassEditor::EditOf(KZMClass& item, Catalog* source)
{
    return {.Class = item,
            .Source = source,
            .Messages = application_.Asking,
            .Errors = application_.Errors,
            .CodePage = application_.State.Generation.CodePage};
}

} // namespace veldrane
