#pragma once

#include "generator/outputs.h"
#include "model/class.h"
#include "preview/preview.h"

#include <string_view>

// The lines that are generated for one member, for a dialog that shows them while the member is changed. No box is
// shown; where a writer fails, the lines are those that it gave before.
namespace veldrane {

// Of a method or an event of the class. Writing may change the class, as it does when files are written: `owner` is a
// copy that nothing else is done with.
[[nodiscard]] TTCOutputs MethodPreview(const PreviewSource& source, KZMClass& owner, const TTCMethod& method);
[[nodiscard]] TTCOutputs EventPreview(const PreviewSource& source, KZMClass& owner, const ttcEvent& event);

// Of a property of `owner`, which is such a copy too, and of the fields that its lookup brings in.
[[nodiscard]] TTCOutputs PropertyPreview(const PreviewSource& source, KZMClass& owner, TTCProperty& property);

// Of the function that calls the procedure.
[[nodiscard]] TTCOutputs ProcedurePreview(const PreviewSource& source, const KZMClass& owner, const SP& procedure);

// Of a built-in member, as the class has it or would take it; nothing where it can't have it. Where the row
// identifier is for the person to choose, it is the primary key.
[[nodiscard]] TTCOutputs BuiltInMethodPreview(const PreviewSource& source, const KZMClass& owner,
                                              std::string_view name);
[[nodiscard]] TTCOutputs BuiltInEventPreview(const PreviewSource& source, const KZMClass& owner, std::string_view name);
[[nodiscard]] TTCOutputs BuiltInPropertyPreview(const PreviewSource& source, const KZMClass& owner,
                                                std::string_view name);

} // namespace veldrane
