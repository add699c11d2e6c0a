#pragma once

#include "report.h"

#include <string>

namespace veldrane::bench {

// How long each part is measured, and how often.
struct PartOptions
{
    double SecondsEach = 1;
    int Repetitions = 5;
    bool Small = false;      // a tenth of the sizes that the bounds name
    std::string Names = "."; // a regular expression that chooses among the parts
};

// Measures the parts of the program in memory, by processor time: generating, reading and writing project files,
// previewing a class, each at two sizes. Figures are medians of the repetitions.
//
// Throws std::runtime_error if a part does not do its work.
void MeasureParts(const PartOptions& options, Figures& figures);

} // namespace veldrane::bench
