#include "generator/argument_list.h"
#include "generator/writers.h"

#include <algorithm>
#include <array>

namespace veldrane {
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

// A writer that needs nothing of the method's own definition.
template <void (*Write)(const ClassEmitter&)>
void WriteOfClass(const MethodEmitter& emit)
{
    Write(emit);
}

// A child takes back what the component has returned, which its parent's Add has asked for.
void WriteAdd(const MethodEmitter& emit)
{
    WriteAddMethod(emit);
    if (emit.Scope().Project.MTSEnabled && !IsTopLevel(emit.Scope().Class))
        WriteStoreReturnValues(emit);
}

struct BuiltInMethod
{
    std::string_view MethodName;
    void (*Write)(const MethodEmitter& emit);
};

constexpr auto kBuiltInMethods = std::to_array<BuiltInMethod>({
    {"AddAttribute", WriteOfClass<WriteAddAttributeMethod>},
    {"AddElement", WriteOfClass<WriteAddElementMethod>},
    {"Add", WriteAdd},
    {"Update", WriteOfClass<WriteUpdateMethod>},
    {"Delete", WriteDeleteMethod},
    {"Retrieve", WriteRetrieveMethod},
    {"Clear", WriteOfClass<WriteClearMethod>},
    {"Clone", WriteOfClass<WriteCloneMethod>},
    {"RetrieveListToTreeView", WriteOfClass<WriteRetrieveListToTreeViewMethod>},
    {"RetrieveList", WriteOfClass<WriteRetrieveListMethod>},
    {"RetrieveIdentity", WriteOfClass<WriteRetrieveIdentityMethod>},
});

void WriteBuiltInMethod(const MethodEmitter& emit)
{
    const std::string& methodName = emit.Scope().Method.MethodName;
    const auto known = std::find_if(kBuiltInMethods.begin(), kBuiltInMethods.end(), [&](const BuiltInMethod& row) { return row.MethodName == methodName; });
    if (known == kBuiltInMethods.end())
        return;
    EnsureClear(emit, methodName);
    known->Write(emit);
}

// The empty routine of a method of the user's.
void WriteStub(const MethodEmitter& emit)
{
    const TTCMethod& method = emit.Scope().Method;
    const bool isSub = method.ReturnDataType.empty();
    if (isSub)
        emit("{Scope} Sub {MethodName}({Arguments})", LineClass::Head, Quotes::Convert);
    else
        emit("{Scope} Function {MethodName}({Arguments}) as {ReturnDataType}", LineClass::Head, Quotes::Convert);
    if (method.DefaultMethod)
        emit("Attribute {MethodName}.VB_UserMemId = 0", LineClass::Hidden);
    if (isSub)
        emit("End Sub", LineClass::Head);
    else
        emit("End Function", LineClass::Head);
}

} // namespace

void WriteMethod(const ClassEmitter& emit, const TTCMethod& method)
{
    if (!method.PlusMethod && method.MethodIsSP) {
        if (method.StoredProcedure != nullptr)
            VBSourceCode(emit, *method.StoredProcedure);
        return;
    }
    const std::string arguments = FormatArguments(method.Arguments);
    const MethodScope scope{emit.Scope(), method, arguments};
    if (method.PlusMethod)
        WriteBuiltInMethod(emit.About(scope));
    else
        WriteStub(emit.About(scope));
}

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
