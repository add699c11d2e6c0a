#pragma once

#include "datasource/class_edit.h"

#include <cstddef>

namespace veldrane {

enum class FieldsOutcome
{
    Read,              // the properties follow the table; also for a class without a table
    TableRenamed,      // the table is missing and the person knows its new name: let it be typed
    TableDeleted,      // the table is missing for good: close the editor
    Cancelled,         // the table is missing: close the editor
    SourceUnavailable, // no data source is open; the class can still be edited
    Failed,            // anything else; it was reported
};

// Makes the properties of the class follow the fields of its table. A field without a property gets one; of an existing
// property FieldAllowsNull alone is refreshed; a property whose field is gone goes too. Then the keys are read
// (RetrieveTableKeys). Reports its failures; the class is then as it was.
FieldsOutcome AddFieldsAsProperties(ClassEdit& edit);

// Removes the property at a 1-based position from the class: its name and those of what it looks up are free then.
void RemoveProperty(KZMClass& item, std::size_t position);

} // namespace veldrane
