#include "generator/methods/data_routine.h"

#include "generator/select_statement.h"
#include "text/characters.h"

namespace veldrane {
namespace {

// A statement that is longer, in characters, is spread over several lines.
constexpr std::size_t kLongestSelect = 425;

// AddSplitLine indents each piece itself.
constexpr std::size_t kIndent = 4;

} // namespace

void WriteTimingLine(const ClassEmitter& emit, const ClassLine& line)
{
    if (emit.Scope().Settings.DebugTiming)
        emit(line);
}

void WriteErrorVariables(const ClassEmitter& emit)
{
    emit("    Dim ErrorNumber as Long");
    emit("    Dim ErrorDescription as String");
}

void WriteChildVariables(const ClassEmitter& emit, const TemplateLine<ChildScope>& line)
{
    ForEachChild(emit, [&](const ChildEmitter& child) { child(line); });
}

void WriteSelectStatement(const ClassEmitter& emit, const TemplateLine<SelectScope>& line)
{
    const std::string select = BuildSelectStatement(emit.Scope());
    const SelectScope scope{emit.Scope(), select};
    std::string text = emit.About(scope).Text(line);
    if (text::Length(select) <= kLongestSelect)
        emit.Lines().Add(std::move(text));
    else
        AddSplitLine(std::string_view(text).substr(kIndent), emit.Lines(), LineClass::Code, emit.Scope().Asking);
}

void WriteConditionLine(const ClassEmitter& emit, const std::string& where, const TemplateLine<WhereScope>& line)
{
    const WhereScope scope{emit.Scope(), where};
    emit.About(scope)(line);
}

void WriteReadThroughComponent(const ClassEmitter& emit, const ClassLine& raise)
{
    emit("    Set ComponentServices = New CSProcess");
    emit("    Set adoRS = ComponentServices.Retrieve(gConnectionString, SQL, ErrorNumber, ErrorDescription)");
    emit("    Set ComponentServices = Nothing");
    emit("    If ErrorNumber <> 0 Then");
    emit(raise);
    emit("    End If");
}

void WritePushCopies(const ClassEmitter& emit, const TemplateLine<PropertyScope>& object, const TemplateLine<PropertyScope>& value)
{
    if (emit.Scope().Class.RetrieveByPrimaryKey)
        ForEachPrimaryKeyProperty(emit, [&](const PropertyEmitter& property) { property(IsObjectType(property.Scope().Property.DataType) ? object : value); });
}

} // namespace veldrane
