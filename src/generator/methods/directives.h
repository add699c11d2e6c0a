#pragma once

#include "generator/methods/data_routine.h"
#include "generator/methods/stored_fields.h"

// The document of directives by which an object and its children have the component change the database in one
// transaction, as generated code builds it, and the reply. The root object's routine makes the document and sends it;
// its children's fill it:
//
//     KZMCP  CON, OP, LogToDB, LogToTable, User
//       Mods
//         <class, or keys of parent and child>  TableHasID, Table; of Update also Query, Operation
//           Fields
//             <column>  F, V, IsID
//           Propogations
//             P<number>  IDParentMod, ChildField, ParentField
namespace veldrane {

// Where the document's transactions are to be logged.
void WriteLogAttributes(const ProjectEmitter& emit);

enum class OperationAttribute
{
    Once,
    AroundTheLog, // before the attributes of the log and again behind them
};

// The root of the document, where this class makes it, and the element of this row.
void WriteDocumentRoot(const ClassEmitter& emit, const ClassLine& operation, OperationAttribute stands);
void WriteModificationElement(const ClassEmitter& emit);

// Whether the table makes a number of its own for each row.
void WriteTableHasID(const ClassEmitter& emit);

// When the fields go out that are not tracked one by one.
enum class UntrackedFields
{
    Always,
    OfModifiedRows,
};

// The fields of the row.
void WriteFieldElements(const ClassEmitter& emit, UntrackedFields untracked);

// For a child: which of the parent's new values go into which columns.
void WritePropogations(const ClassEmitter& emit);

// A loop over the child collection, with one call in it, and a number for each member; and one for each child class.
void WriteNumberedCall(const ChildEmitter& emit, const TemplateLine<ChildScope>& call);
void WriteNumberedCalls(const ClassEmitter& emit, const TemplateLine<ChildScope>& call);

// Sends the document and reads the reply up to the element of this row.
void WriteExecution(const ClassEmitter& emit);

// The loop over the fields of this row's element, behind the tests whether it has any. `writeCases` writes what is done
// with each.
template <class WriteCases>
void WriteReturnedFields(const ClassEmitter& emit, WriteCases&& writeCases)
{
    emit("            Set RetFields = RetModification(0).childNodes(0).childNodes 'Fields");
    emit("            For Each RetField In RetFields");
    emit("                Select Case RetField.baseName");
    writeCases();
    emit("                End Select");
    emit("            Next");
}

// The primary key as the reply has left it.
void WriteReturnedKeys(const ClassEmitter& emit);

} // namespace veldrane
