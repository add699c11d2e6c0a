#pragma once

#include "datasource/class_edit.h"
#include "ports/settings.h"
#include "preview/preview.h"

#include <functional>

namespace veldrane {

// What the dialogs of a property work with. All must outlive them.
struct PropertySurroundings
{
    ClassEdit& Edit; // the class that the property is of, as its editor holds it
    const PreviewSource& Generated;
    Settings& UserSettings; // the limit of the list of tables

    // Runs a reading of the data source, under the signs of it that a person is to see. It ends by ReadingCancelled
    // where the person ends it.
    std::function<void(const std::function<void()>&)> Watched = [](const auto& reading) { reading(); };
};

} // namespace veldrane
