#pragma once

#include "bounds.h"

#include <map>
#include <ostream>
#include <vector>

namespace veldrane::bench {

using Figures = std::map<Measure, double>;

// The middle one; the mean of the middle two of an even number. There must be at least one.
[[nodiscard]] double Median(std::vector<double> values);

// The exponent e of time ~ size^e between two points.
[[nodiscard]] double GrowthExponent(double smallSize, double smallTime, double largeSize, double largeTime);

// Prints the table of bounds with what was measured. True if every bound that was measured holds.
[[nodiscard]] bool PrintVerdicts(std::ostream& out, const Figures& figures);

// Prints the figures without judging them. True if every one is there and is a number above zero; a growth may be any
// number, for small sizes lie within the noise.
[[nodiscard]] bool PrintFigures(std::ostream& out, const Figures& figures);

} // namespace veldrane::bench
