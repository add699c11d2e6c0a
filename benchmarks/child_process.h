#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace veldrane::bench {

// What one process took.
struct ProcessCost
{
    double Seconds = 0; // of wall time, its start included
    double PeakMiB = 0; // the most memory that it held at once
};

// Where a process reads from and where its output goes.
struct ProcessFiles
{
    std::filesystem::path Input = "/dev/null";
    std::filesystem::path Output; // standard output and standard error
};

// Runs a command to its end. Throws std::runtime_error with what the command printed if it can't be started or exits
// with anything but 0.
//
// The system counts the memory of the starting process among that of the new one, so measure memory while this process
// is small.
ProcessCost RunProcess(const std::vector<std::string>& command, const ProcessFiles& files);

} // namespace veldrane::bench
