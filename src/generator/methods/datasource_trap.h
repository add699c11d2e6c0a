#pragma once

#include "generator/scopes.h"

#include <exception>

// What becomes of a routine whose class no longer fits the tables it was made from.
namespace veldrane {

// A column that the model knows has no property any more.
class DatasourceChanged : public std::exception
{};

// Says that the definition no longer fits the data source: to the person, and in the text, with lines that no compiler
// lets pass.
void WriteDatasourceWarning(const ClassEmitter& emit);

// Runs the writer of a routine; if that meets a column without a property, its text ends with the warning.
template <class Writer>
void TrapDatasourceChange(const ClassEmitter& emit, Writer&& write)
{
    try {
        write();
    } catch (const DatasourceChanged&) {
        WriteDatasourceWarning(emit);
    }
}

} // namespace veldrane
