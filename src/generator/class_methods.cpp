#include "generator/argument_list.h"
#include "generator/writers.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

struct MethodScope : ClassScope
{
    const TTCMethod& Method;
};

} // namespace

template <>
inline constexpr auto Vocabulary<MethodScope> = std::to_array<Placeholder<MethodScope>>({
    {"Scope", [](std::string& line, const MethodScope& s) { line += s.Method.Scope; }},
    {"MethodName", [](std::string& line, const MethodScope& s) { line += s.Method.MethodName; }},
    {"Arguments", [](std::string& line, const MethodScope& s) { line += FormatArguments(s.Method.Arguments); }},
    {"ReturnDataType", [](std::string& line, const MethodScope& s) { line += s.Method.ReturnDataType; }},
});

namespace {

// A generated object clears itself at both ends of its life.
void WriteCallOfClear(const ClassEmitter& emit)
{
    const auto clear = emit.Scope().Class.TTCMethods.Item("Clear");
    if (clear != nullptr && clear->PlusMethod)
        emit("    Clear");
}

void WriteInitialize(const ClassEmitter& emit)
{
    emit("Private Sub Class_Initialize()", LineClass::HeadSub);
    ForEachChild(emit, [](const ChildEmitter& child) { child("    Set {m:Collection}{C.CollectionName} = New {C.CollectionName}"); });
    if (HasProperty(emit.Scope(), "FormatProperties"))
        emit("    {m:Boolean}FormatProperties = {True}");
    WriteCallOfClear(emit);
    emit("End Sub", LineClass::Head);
}

void WriteTerminate(const ClassEmitter& emit)
{
    emit("Private Sub Class_Terminate()", LineClass::HeadSub);
    ForEachChild(emit, [](const ChildEmitter& child) { child("    Set {m:Collection}{C.CollectionName} = Nothing"); });
    WriteCallOfClear(emit);
    emit("End Sub", LineClass::Head);
}

// A built-in method that calls the generated Clear, and what is said when that had to be added.
struct CallerOfClear
{
    std::string_view MethodName;
    std::string_view Message;
};

constexpr auto kCallersOfClear = std::to_array<CallerOfClear>({
    {"Delete", "The Delete Method requires the clear method which was not included in the class definition. It has been added."},
    {"Retrieve", "The Retrieve Method requires the clear method which was not included in the class definition. It has been added."},
});

// A Clear that is added stands behind all methods, so the walk over them reaches and writes it again: on purpose.
void EnsureClear(const ClassEmitter& emit, std::string_view methodName)
{
    const auto caller = std::find_if(kCallersOfClear.begin(), kCallersOfClear.end(), [&](const CallerOfClear& row) { return row.MethodName == methodName; });
    TTCMethods& methods = emit.Scope().Class.TTCMethods;
    if (caller == kCallersOfClear.end() || methods.Contains("Clear"))
        return;
    emit.Scope().ErrorText += caller->Message;
    methods.Add("Clear", true, KZMArguments{}, "", "Public", false, "Clear");
    WriteClearMethod(emit);
}

struct BuiltInMethod
{
    std::string_view MethodName;
    void (*Write)(const ClassEmitter& emit);
};

constexpr auto kBuiltInMethods = std::to_array<BuiltInMethod>({
    {"Clear", WriteClearMethod},
    {"Clone", WriteCloneMethod},
});

void WriteBuiltInMethod(const ClassEmitter& emit, std::string_view methodName)
{
    EnsureClear(emit, methodName);
    const auto known = std::find_if(kBuiltInMethods.begin(), kBuiltInMethods.end(), [&](const BuiltInMethod& row) { return row.MethodName == methodName; });
    if (known != kBuiltInMethods.end())
        known->Write(emit);
}

// The empty routine of a method of the user's.
void WriteStub(const ClassEmitter& emit, const TTCMethod& method)
{
    const MethodScope scope{emit.Scope(), method};
    const Emitter<MethodScope> stub = emit.About(scope);
    const bool isSub = method.ReturnDataType.empty();
    if (isSub)
        stub("{Scope} Sub {MethodName}({Arguments})", LineClass::Head, Quotes::Convert);
    else
        stub("{Scope} Function {MethodName}({Arguments}) as {ReturnDataType}", LineClass::Head, Quotes::Convert);
    if (method.DefaultMethod)
        stub("Attribute {MethodName}.VB_UserMemId = 0", LineClass::Hidden);
    if (isSub)
        stub("End Sub", LineClass::Head);
    else
        stub("End Function", LineClass::Head);
}

void WriteMethod(const ClassEmitter& emit, const TTCMethod& method)
{
    if (method.PlusMethod)
        WriteBuiltInMethod(emit, method.MethodName);
    else if (!method.MethodIsSP)
        WriteStub(emit, method);
}

} // namespace

TTCOutputs WriteClassMethods(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    if (scope.Classes.Count() > 0) {
        WriteInitialize(emit);
        WriteTerminate(emit);
    }
    for (std::size_t position = 1; position <= scope.Class.TTCMethods.Count(); ++position) {
        const auto method = scope.Class.TTCMethods.Item(position);
        WriteMethod(emit, *method);
    }
    return lines;
}

} // namespace veldrane
