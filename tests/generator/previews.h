#pragma once

#include "generator/code_generation.h"
#include "support/random_numbers.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace veldrane::testing {

// Asks for every text that can be shown of the project and of each of its classes, in an order of chance.
inline void PreviewEverything(CodeGeneration& generation, const KZMClasses& classes, RandomNumbers& random)
{
    std::vector<std::function<void()>> previews{
        [&] { std::ignore = generation.GenerateProjectFile(classes); }, [&] { std::ignore = generation.GenerateTestProjectFile(classes); },
        [&] { std::ignore = generation.GenerateTestProjectGroup(); },   [&] { std::ignore = generation.GenerateTestForm(classes); },
        [&] { std::ignore = generation.GenerateGlobalsBasFile(); },     [&] { std::ignore = generation.GenerateWrapperClass(classes); },
    };
    using ClassText = TTCOutputs (CodeGeneration::*)(KZMClass&, const KZMClasses&);
    for (KZMClass& owner : classes) {
        for (const ClassText write :
             {&CodeGeneration::WriteClassHeader, &CodeGeneration::WriteClassDeclarations, &CodeGeneration::WriteClassProperties, &CodeGeneration::WriteClassMethods,
              &CodeGeneration::WriteCollectionHeader, &CodeGeneration::WriteCollectionDeclarations, &CodeGeneration::WriteCollectionProperties, &CodeGeneration::WriteCollectionMethods})
            previews.emplace_back([&generation, &owner, &classes, write] { std::ignore = (generation.*write)(owner, classes); });
        previews.emplace_back([&generation, &owner, &classes] { std::ignore = generation.GeneratedClassModuleText(owner, classes); });
    }
    for (std::size_t left = previews.size(); left > 1; --left)
        std::swap(previews[left - 1], previews[random.Below(left)]);
    for (const auto& preview : previews)
        preview();
}

} // namespace veldrane::testing
