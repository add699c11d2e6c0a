#pragma once

#include "model/parameters.h"

#include <string>
#include <vector>

namespace veldrane {

// The text between the parentheses of a routine's or an event's first line: the parameters in the order of their
// `Index`; one whose index is not in 1 to their number is left out. Double quotes of default values stand as backticks:
// the line that takes the text converts its quotes.
[[nodiscard]] std::string FormatArguments(const KZMArguments& arguments);
[[nodiscard]] std::string FormatArguments(const TTCEventParameters& parameters);

// The arguments that this text is made of, in its order.
[[nodiscard]] std::vector<const TTCParameter*> ArgumentsInOrder(const KZMArguments& arguments);

} // namespace veldrane
