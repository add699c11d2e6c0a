#include "editors/member_preview.h"

#include "datasource/builtin_members.h"
#include "generator/property_routines.h"
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

class UnheardMessages : public Messages
{
  public:
    Answer Ask(const Question& question) override { return question.Default; }
};

// Calls `write` with the lines to write into, and the class that they are about.
template <class Write>
TTCOutputs Written(const PreviewSource& source, KZMClass& owner, Write&& write)
{
    const GenerationSettings& settings = source.Generation.Settings;
    TTCOutputs lines(settings.Colors);
    UnheardMessages asking;
    UnheardErrors errors;
    std::string errorText;
    const ChildIndex children(source.Classes);
    const GenerationContext context{{source.Project, settings}, source.Classes, children, asking, errorText};
    const ClassScope scope{context, owner};
    Guarded(errors, "Preview", "DisplayPreview", [&] { write(lines, scope); });
    return lines;
}

// A copy of the class that `accept` has given a built-in member.
template <class Accept>
std::shared_ptr<KZMClass> CopyWith(const KZMClass& owner, const text::CodePage& codePage, Accept&& accept)
{
    std::shared_ptr<KZMClass> copy = WorkingCopy(owner);
    UnheardMessages asking;
    UnheardErrors errors;
    ClassEdit edit{.Class = *copy, .Messages = asking, .Errors = errors, .CodePage = codePage};
    accept(edit);
    return copy;
}

} // namespace

TTCOutputs MethodPreview(const PreviewSource& source, KZMClass& owner, const TTCMethod& method)
{
    return Written(source, owner, [&](TTCOutputs& lines, const ClassScope& scope) {
        WriteMethod(ClassEmitter(lines, scope), method);
    });
}

TTCOutputs EventPreview(const PreviewSource& source, KZMClass& owner, const ttcEvent& event)
{
    return Written(source, owner,
                   [&](TTCOutputs& lines, const ClassScope& scope) { WriteEvent(ClassEmitter(lines, scope), event); });
}

TTCOutputs ProcedurePreview(const PreviewSource& source, const KZMClass& owner, const SP& procedure)
{
    const auto copy = WorkingCopy(owner);
    return Written(source, *copy, [&](TTCOutputs& lines, const ClassScope& scope) {
        VBSourceCode(ClassEmitter(lines, scope), procedure);
    });
}

TTCOutputs PropertyPreview(const PreviewSource& source, KZMClass& owner, TTCProperty& property)
{
    return Written(source, owner, [&](TTCOutputs& lines, const ClassScope& classScope) {
        const PropertyScope scope{classScope, property};
        DefaultMark mark;
        WriteProperty(PropertyEmitter(lines, scope), mark);
    });
}

TTCOutputs BuiltInPropertyPreview(const PreviewSource& source, const KZMClass& owner, std::string_view name)
{
    const auto copy = CopyWith(owner, source.Generation.Settings.CodePage,
                               [&](ClassEdit& edit) { AcceptBuiltInProperties(edit, {std::string(name)}); });
    const auto property = copy->TTCProperties.Item(name);
    if (!property || !property->PlusProperty)
        return TTCOutputs(source.Generation.Settings.Colors);
    return PropertyPreview(source, *copy, *property);
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
