#pragma once

#include "generator/generation_fixture.h"
#include "preview/preview.h"

namespace veldrane::testing {

// The lines as expectations show them: class, the name of the small picture if there is one, `|text|`.
[[nodiscard]] std::string PreviewLines(const TTCOutputs& lines);

// A project with file prefixes, and the preview of its nodes.
class PreviewTest : public GenerationTest
{
  protected:
    PreviewTest()
    {
        project.ClassPrefix = "c";
        project.ModulePrefix = "m";
    }

    [[nodiscard]] std::vector<TTCOutputs> Blocks(NodeType type, KZMClass* item = nullptr)
    {
        const auto text = PreviewOf({.Type = type, .Class = item}, {project, classes, generation, errors});
        EXPECT_TRUE(text.has_value());
        EXPECT_TRUE(text->Whole);
        return text->Blocks;
    }

    // The first block: what stands before the text of a file, or all of a view that shows no file.
    [[nodiscard]] std::string Heading(NodeType type, KZMClass* item = nullptr) { return PreviewLines(Blocks(type, item).at(0)); }
};

} // namespace veldrane::testing
