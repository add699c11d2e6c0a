#pragma once

#include "generator/outputs.h"
#include "model/parameters.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// The arguments of a method or an event while a dialog has them in hand.
namespace veldrane {

// In the order in which they are handed over.
using Arguments = std::vector<TTCParameter>;

// The lines that are generated for the member if these are its arguments.
using ArgumentsPreview = std::function<TTCOutputs(const Arguments& arguments)>;

// "Optional ", "ByVal ", the name, "()" for an array, " as " and the type.
[[nodiscard]] std::string ArgumentSignature(const TTCParameter& argument);

// Whether an argument behind the position is none that may be left out. The language wants those in front.
[[nodiscard]] bool HasRequiredAfter(const Arguments& arguments, std::size_t position);

// Whether one before the position may be left out.
[[nodiscard]] bool HasOptionalBefore(const Arguments& arguments, std::size_t position);

// Puts the arguments into the order of their `Index`; those whose index is not in 1 to their number stand behind the
// others.
void SortByIndex(Arguments& arguments);

// The arguments of a collection.
template <class Collection>
[[nodiscard]] Arguments ArgumentsOf(const Collection& collection)
{
    Arguments arguments(collection.begin(), collection.end());
    SortByIndex(arguments);
    return arguments;
}

// Replaces what the collection holds, each argument under its name and with its place as `Index`. Of two that share a
// name, which no dialog makes, the second has no key.
template <class Collection>
void StoreArguments(const Arguments& arguments, Collection& collection)
{
    collection.Clear();
    for (const TTCParameter& argument : arguments) {
        const auto stored = std::make_shared<TTCParameter>(argument);
        stored->Index = static_cast<std::int16_t>(collection.Count() + 1);
        if (!collection.AddExisting(stored, stored->VariableName))
            collection.AddExisting(stored, "");
    }
}

} // namespace veldrane
