// Kills the program at moments of chance while it works, and prints how often, in the midst of what, and what was lost.

#include "support/random_kills.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <iostream>
#include <random>

namespace {

using veldrane::testing::KillFigures;

void Print(const char* heading, const std::map<std::string, int>& counts)
{
    std::cout << heading;
    for (const auto& [name, count] : counts)
        std::cout << "  " << name << ' ' << count;
    std::cout << '\n';
}

void Print(const KillFigures& figures)
{
    std::cout << figures.Kills << " kills; work came back at the next start: " << figures.Recovered << '\n';
    Print("  while it did: ", figures.AtWork);
    Print("  latest call:  ", figures.AtCall);
    for (const std::string& loss : figures.Losses)
        std::cout << "  LOST: " << loss << '\n';
    std::cout << "  lost: " << figures.Losses.size() << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    try {
        CLI::App app("Kills programs at work at moments of chance. Exits with 1 if anything was lost.");
        veldrane::testing::KillPlan plan{.Kills = 500, .Seed = std::random_device()()};
        app.add_option("--kills", plan.Kills, "How many")->check(CLI::PositiveNumber)->capture_default_str();
        app.add_option("--seed", plan.Seed, "Of what happens when; a new one each time unless given");
        app.add_option("--below", plan.Below, "Where to work")->check(CLI::ExistingDirectory);
        CLI11_PARSE(app, argc, argv);
        std::cout << "seed " << plan.Seed << '\n';
        const KillFigures figures = KillAtRandom(plan);
        Print(figures);
        return figures.Losses.empty() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kill_probe: %s\n", error.what());
        return 1;
    }
}
