#pragma once

#include "datasource/catalog.h"
#include "datasource/class_names.h"
#include "editors/member_dialogs.h"
#include "generator/code_generation.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {

// What the editor of a class works with. All that is referred to must outlive it.
struct ClassEditorWorld
{
    ProjectNames Names;         // the project, its classes, and who is asked and told
    CodeGeneration& Generation; // of this project: writes what the editor previews
    MemberDialogs& Members;

    // The catalog as it is now; nothing while no data source is open. Throws DataSourceError and ReadingCancelled.
    std::function<std::unique_ptr<Catalog>()> OpenCatalog;

    // The names of the classes that stand below a class in the project tree, in its order.
    std::function<std::vector<std::string>(const std::string& className)> ClassesBelow;
};

} // namespace veldrane
