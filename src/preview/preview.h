#pragma once

#include "generator/code_generation.h"
#include "ports/error_report.h"
#include "preview/tree_node.h"

#include <optional>
#include <vector>

namespace veldrane {

// What a preview is made from. All must outlive the call.
struct PreviewSource
{
    const TTCProject& Project;
    const KZMClasses& Classes;
    CodeGeneration& Generation; // of this project; its settings have the colours
    ErrorReport& Errors;
};

// What is shown for a node.
struct PreviewText
{
    std::vector<TTCOutputs> Blocks; // rendered one after the other: a heading, then what each writer gave
    bool Whole = true;              // false if a writer failed: `Blocks` holds what was made before
};

// What the preview shows for the node: a summary of the project or of some of its classes, what a required file is for,
// or the very lines that would be written into the node's file. Nothing for a node type that there is no view of, and
// for a class or a collection without its class: whatever is shown then stays. A writer's failure is reported. Writing
// text may change the classes, as it does when files are written.
[[nodiscard]] std::optional<PreviewText> PreviewOf(const PreviewNode& node, const PreviewSource& source);

} // namespace veldrane
