#pragma once

#include "generator/scopes.h"
#include "preview/preview.h"

// The views: each appends the blocks of one kind of node.
namespace veldrane {

// What a view shows, and where.
struct View
{
    const PreviewSource& Source;
    const PreviewNode& Node;
    std::vector<TTCOutputs>& Blocks;

    [[nodiscard]] ProjectScope Scope() const { return {Source.Project, Source.Generation.Settings}; }

    // An empty block behind the others. The reference holds until the next one is added.
    [[nodiscard]] TTCOutputs& AddBlock() const { return Blocks.emplace_back(Source.Generation.Settings.Colors); }
};

void ShowProjectSummary(const View& view);
void ShowClassGroup(const View& view);

// For nodes that have a class.
void ShowClass(const View& view);
void ShowCollection(const View& view);

void ShowRequiredFiles(const View& view);
void ShowRequiredModules(const View& view);
void ShowRequiredClasses(const View& view);
void ShowRequiredProjects(const View& view);

// A file of the project that is no class module.
void ShowProjectPart(const View& view);

} // namespace veldrane
