#include "editors/member_preview.h"

#include "datasource/builtin_members.h"
#include "editors/told_text.h"
#include "generator/writers.h"
#include "model/working_copy.h"

#include <memory>
#include <string>

namespace veldrane {
namespace {

// What fails here fails, and is reported, where the class is generated or its preview is shown.
class UnheardErrors : public ErrorReport
{
  public:
    void ReportError(const RuntimeError& /*error*/, const ErrorPlace& /*place*/) override {}
};

// Calls `write` with an emitter about the class.
template <class Write>
TTCOutputs Written(const PreviewSource& source, KZMClass& owner, Write&& write)
{
    const GenerationSettings& settings = source.Generation.Settings;
    TTCOutputs lines(settings.Colors);
    HeardMessages asking;
    UnheardErrors errors;
    std::string errorText;
    const ChildIndex children(source.Classes);
    const GenerationContext context{{source.Project, settings}, source.Classes, children, asking, errorText};
    const ClassScope scope{context, owner};
    Guarded(errors, "Preview", "DisplayPreview", [&] { write(ClassEmitter(lines, scope)); });
    return lines;
}

// A copy of the class that `accept` has given a built-in member.
template <class Accept>
std::shared_ptr<KZMClass> CopyWith(const KZMClass& owner, const text::CodePage& codePage, Accept&& accept)
{
    std::shared_ptr<KZMClass> copy = WorkingCopy(owner);
    HeardMessages asking;
    UnheardErrors errors;
    ClassEdit edit{.Class = *copy, .Messages = asking, .Errors = errors, .CodePage = codePage};
    accept(edit);
    return copy;
}

} // namespace

TTCOutputs MethodPreview(const PreviewSource& source, KZMClass& owner, const TTCMethod& method)
{
    return Written(source, owner, [&](const ClassEmitter& emit) { WriteMethod(emit, method); });
}

TTCOutputs EventPreview(const PreviewSource& source, KZMClass& owner, const ttcEvent& event)
{
    return Written(source, owner, [&](const ClassEmitter& emit) { WriteEvent(emit, event); });
}

TTCOutputs ProcedurePreview(const PreviewSource& source, const KZMClass& owner, const SP& procedure)
{
    const auto copy = WorkingCopy(owner);
    return Written(source, *copy, [&](const ClassEmitter& emit) { VBSourceCode(emit, procedure); });
}

TTCOutputs BuiltInMethodPreview(const PreviewSource& source, const KZMClass& owner, std::string_view name)
{
    const auto copy = CopyWith(owner, source.Generation.Settings.CodePage,
                               [&](ClassEdit& edit) { AcceptBuiltInMethods(edit, {std::string(name)}); });
    const auto method = copy->TTCMethods.Item(name);
    if (!method || !method->PlusMethod)
        return TTCOutputs(source.Generation.Settings.Colors);
    return MethodPreview(source, *copy, *method);
}

TTCOutputs BuiltInEventPreview(const PreviewSource& source, const KZMClass& owner, std::string_view name)
{
    const auto copy = CopyWith(owner, source.Generation.Settings.CodePage,
                               [&](ClassEdit& edit) { AcceptBuiltInEvents(edit, {std::string(name)}); });
    const auto event = copy->TTCEvents.Item(name);
    if (!event || !event->PlusEvent)
        return TTCOutputs(source.Generation.Settings.Colors);
    return EventPreview(source, *copy, *event);
}

} // namespace veldrane
