#include "generator/methods/data_routine.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

// The nodes of the tree: one for each row.
struct NodeScope : ClassScope
{
    const std::string& Columns;
    const std::string& F; // the field that a node is known by
    const std::string& Text;
};

constexpr std::string_view kSeparator = ", ";

void CutSeparator(std::string& list)
{
    if (list.ends_with(kSeparator))
        list.resize(list.size() - kSeparator.size());
}

// The columns of the primary key, if rows are found by it, each as `append` writes its name.
void AppendKeyColumns(std::string& list, const KZMClass& owner, void (*append)(std::string& text, std::string_view name))
{
    if (!owner.RetrieveByPrimaryKey)
        return;
    for (const TTCKey& key : owner.TTCKeys)
        if (key.KeyType == key_type::kPrimaryKey)
            for (const TTCColumn& column : key.TTCColumns) {
                append(list, column.ColumnName);
                list += kSeparator;
            }
}

} // namespace

template <>
inline constexpr auto Vocabulary<NodeScope> = JoinVocabularies(std::to_array<Placeholder<NodeScope>>({
                                                                   {"Columns", [](std::string& line, const NodeScope& s) { line += s.Columns; }},
                                                                   {"F", [](std::string& line, const NodeScope& s) { line += s.F; }},
                                                                   {"Text", [](std::string& line, const NodeScope& s) { line += s.Text; }},
                                                               }),
                                                               InheritedVocabulary<NodeScope, ClassScope>());

namespace {

// It reads through a connection of its own even where the component reads for all others: on purpose.
void WriteRoutine(const Emitter<NodeScope>& emit)
{
    // A Sub's icon, unlike every other built-in method's: on purpose.
    emit("Public Sub RetrieveListToTreeView(ByRef TreeViewControl as Object, Optional ByVal ParentNodeKey as String = ``)", LineClass::HeadSub);
    emit("    On Error Goto errRetrieveListToTree");
    emit("");
    emit("    Dim adoRS as New ADO{Ado}.Recordset");
    emit("    Dim SQL as String");
    emit("    Dim t as Object");
    emit("    Dim n as Object");
    emit("");
    emit("    Set t = TreeViewControl");
    emit("    SQL = `SELECT {Columns} FROM {Table}`");
    emit("    With adoRS");
    emit("    .Open SQL, adoCon, adOpenForwardOnly, adLockReadOnly");
    emit("    Do While Not .EOF");
    emit("        If ParentNodeKey = `` then");
    emit("            Set n = t.Nodes.Add(,, `:` & {F}, {Text})");
    emit("        Else");
    emit("            Set n = t.Nodes.Add(ParentNodeKey, 4, `:` & {F}, {Text})");
    emit("        End If");
    emit("        .MoveNext");
    emit("    Loop");
    emit("    .Close");
    emit("    End With");
    emit("    Exit Sub");
    emit("");
    emit("errRetrieveListToTree:");
    // The name of another routine: on purpose.
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Retrieve`, vbLogEventTypeWarning)");
    emit("End Sub", LineClass::Head);
}

} // namespace

void WriteRetrieveListToTreeViewMethod(const ClassEmitter& emit)
{
    const KZMClass& owner = emit.Scope().Class;
    const TTCProperty* identity = FirstIdentityProperty(owner);
    std::string columns;
    if (identity != nullptr) {
        AppendBracketed(columns, identity->FieldName);
        columns += kSeparator;
    }
    AppendKeyColumns(columns, owner, AppendBracketed);
    CutSeparator(columns);
    std::string field;
    AppendColumnReference(field, identity == nullptr ? std::string_view() : identity->FieldName);
    std::string text;
    AppendKeyColumns(text, owner, AppendColumnReference);
    CutSeparator(text);
    const NodeScope scope{emit.Scope(), columns, field, text};
    WriteRoutine(emit.About(scope));
}

} // namespace veldrane
