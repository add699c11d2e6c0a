#pragma once

#include "generator/outputs.h"

#include <string>

namespace veldrane::testing {

// The name of the line class that a line looks like, with the default colours; "?" if it looks like none.
[[nodiscard]] std::string LineClassOf(const TTCOutput& line);

// The lines as the expectations of tests show them, each as `class|text|` with a line end behind it: the closing bar
// shows trailing blanks. A line end stands in front, so that an expectation can begin on a line of its own.
[[nodiscard]] std::string Lines(const TTCOutputs& lines);

} // namespace veldrane::testing
