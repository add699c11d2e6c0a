#pragma once

#include "support/disk_program.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace veldrane::testing {

struct KillPlan
{
    int Kills = 0;
    unsigned Seed = 0;                           // of the moments and of what the programs do
    std::filesystem::path Below = QuickFolder(); // where the folder that they work in is made
};

struct KillFigures
{
    int Kills = 0;
    int Recovered = 0;                 // programs whose work came back at the next start
    std::map<std::string, int> AtWork; // how many were killed while they did this
    std::map<std::string, int> AtCall; // how many had come to this system call
    std::vector<std::string> Losses;   // whatever was not as it should be, told in a line each
};

// Lets one program after the other save, save under another name, autosave, store settings and generate, in an order
// of chance and without a pause; kills each from outside at a moment of chance; and looks at what is left: each file is
// the old one or the new one, whole, no setting is lost, and the next start brings back what the latest autosave held
// and leaves no private file behind where it sweeps. Throws std::runtime_error if it can't work in the folder.
[[nodiscard]] KillFigures KillAtRandom(const KillPlan& plan);

} // namespace veldrane::testing
