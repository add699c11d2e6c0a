#include "generator/methods/stored_fields.h"

namespace veldrane {
namespace {

struct AssignmentScope : PropertyScope
{
    std::string Indent;
};

} // namespace

template <>
inline constexpr auto Vocabulary<AssignmentScope> = JoinVocabularies(std::to_array<Placeholder<AssignmentScope>>({
                                                                         {"Indent", [](std::string& line, const AssignmentScope& s) { line += s.Indent; }},
                                                                         {"Dest", [](std::string& line, const AssignmentScope& s) { AppendColumnReference(line, s.Property.FieldName); }},
                                                                         {"V",
                                                                          [](std::string& line, const AssignmentScope& s) {
                                                                              AppendVariablePrefix(line, s.Project, s.Property.DataType);
                                                                              line += s.Property.PropertyName;
                                                                          }},
                                                                     }),
                                                                     InheritedVocabulary<AssignmentScope, PropertyScope>());

namespace {

using AssignmentEmitter = Emitter<AssignmentScope>;
using AssignmentLine = TemplateLine<AssignmentScope>;

constexpr std::string_view kLevel = "    ";

// An assignment without its indentation, which stands behind the test whether the value was changed where there is one.
void WriteAssignment(const AssignmentEmitter& emit, const AssignmentLine& assignment)
{
    std::string line = emit.Text("{Indent}");
    if (IsTracked(emit.Scope()))
        line += emit.Text("If {m:Boolean}z{PropertyName} Then ");
    emit.Lines().Add(line + emit.Text(assignment, Quotes::Convert));
}

void WriteVariantBlock(const AssignmentEmitter& emit)
{
    emit("{Indent}If IsObject({V}) Then");
    emit("{Indent}    {Dest} = IIF({V} Is Nothing, Null, {V})", LineClass::Code, Quotes::Convert);
    emit("{Indent}Else");
    emit("{Indent}    {Dest} = IIF({V} = ``, Null, {V})");
    emit("{Indent}End If");
}

void WriteVariant(const AssignmentEmitter& emit)
{
    if (!IsTracked(emit.Scope())) {
        WriteVariantBlock(emit);
        return;
    }
    emit("{Indent}If {m:Boolean}z{PropertyName} Then");
    AssignmentScope inner = emit.Scope();
    inner.Indent += kLevel;
    WriteVariantBlock(emit.About(inner));
    emit("{Indent}End If");
}

void WriteObject(const AssignmentEmitter& emit, AssignmentIn routine)
{
    // The blank before the comma stands in Update's tested form alone: on purpose.
    if (routine == AssignmentIn::Update && IsTracked(emit.Scope()))
        WriteAssignment(emit, "{Dest} = IIF({V} Is Nothing , Null, {V})");
    else
        WriteAssignment(emit, "{Dest} = IIF({V} Is Nothing, Null, {V})");
}

void WriteJetText(const AssignmentEmitter& emit)
{
    // The blanks before the comment differ with the way to name a field: on purpose.
    if (NeedsBrackets(emit.Scope().Property.FieldName))
        WriteAssignment(emit, "{Dest} = IIF({V} = ``, ``, {V})    'Workaround for Bug");
    else
        WriteAssignment(emit, "{Dest} = IIF({V} = ``, ``, {V})     'Workaround for Bug");
}

void WriteField(const AssignmentEmitter& emit, AssignmentIn routine)
{
    const TTCProperty& property = emit.Scope().Property;
    const std::string_view empty = DefaultValueForType(property.DataType, false);
    if (empty == "Null" && routine == AssignmentIn::Update && property.AllowPropertyToBeNull)
        WriteAssignment(emit, "{Dest} = IIF(IsNull({V}), Null, {V})");
    else if (empty == "Null")
        WriteVariant(emit);
    else if (empty == kObjectMark)
        WriteObject(emit, routine);
    else if (property.DataType == "String" && StoresInJet(emit.Scope().Project))
        WriteJetText(emit);
    else
        WriteAssignment(emit, "{Dest} = {V}");
}

bool HasTextField(const KZMClass& owner)
{
    for (const TTCProperty& property : owner.TTCProperties)
        if (IsStored(property) && property.DataType == "String")
            return true;
    return false;
}

} // namespace

bool IsStored(const TTCProperty& property)
{
    return !property.FieldName.empty() && property.AddToClass;
}

bool IsTracked(const PropertyScope& scope)
{
    return scope.Project.TrackPropertyChanges && scope.Property.PropertyLetSet;
}

bool RunsTransaction(const ClassScope& scope)
{
    return IsTopLevel(scope.Class) && scope.Project.UseTransactions;
}

bool StoresInJet(const TTCProject& project)
{
    return project.ConnectionString().find("Microsoft.Jet.OLEDB.") != std::string::npos;
}

void WriteJetComment(const ClassEmitter& emit)
{
    if (!StoresInJet(emit.Scope().Project) || !HasTextField(emit.Scope().Class))
        return;
    emit("        'There is a bug in ADO with Microsoft.Jet.OLEDB, can't assign a variable with a `` value to an ADO field.");
    emit("        'This only applies to string variables. The IIF Statement is a workaround. See KB Article Q228935");
}

void WriteAssignments(const ClassEmitter& emit, AssignmentIn routine)
{
    ForEachStoredProperty(emit, [&](const PropertyEmitter& property) {
        if (property.Scope().Property.FieldIsIdentityCol)
            return;
        const AssignmentScope scope{property.Scope(), routine == AssignmentIn::Add ? "        " : "            "};
        WriteField(emit.About(scope), routine);
    });
}

void WriteHandedDownKeys(const ChildEmitter& emit, const ColumnIndex& columns, const TemplateLine<HandedDownScope>& line)
{
    const KZMClass& child = emit.Scope().C;
    const ColumnIndex childColumns(child);
    for (const TTCRelationship& relationship : child.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns) {
            TTCProperty* property = columns.PropertyOn(column.JoinColumnName);
            const TTCProperty* childProperty = childColumns.PropertyOn(column.ColumnName);
            // A key of the parent to its child stands among the relationships the other way round.
            if (property == nullptr && childProperty == nullptr)
                continue;
            if (property == nullptr || childProperty == nullptr)
                throw DatasourceChanged();
            const PropertyScope about{emit.Scope(), *property};
            const HandedDownScope scope{about, child, *childProperty};
            emit.About(scope)(line);
        }
}

void WriteDatasourceWarning(const ClassEmitter& emit)
{
    emit.Scope().Asking.Tell(
        "Datasource Error",
        "An error occurred while generating your code. The error is due to a change in the underlying datasource tables. You will need to verify your datasource against this project definition.");
    emit("!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!", LineClass::Alert);
    emit("THERE WAS AN ERROR GENERATING CODE DUE TO A CHANGE IN THE UNDERLYING DATASOURCE TABLES. YOU WILL NEED TO VERIFY YOUR DATASOURCE AGAINST THIS PROJECT DEFINITION.", LineClass::Alert);
}

} // namespace veldrane
