#include "report.h"

#include <algorithm>
#include <cmath>
#include <iomanip>

namespace veldrane::bench {
namespace {

constexpr int kWhatWidth = 52;
constexpr int kFigureWidth = 10;
constexpr int kUnitWidth = 18;

std::ostream& Cell(std::ostream& out, double value)
{
    return out << std::right << std::setw(kFigureWidth) << value;
}

std::ostream& RowStart(std::ostream& out, const Bound& bound)
{
    return out << std::left << std::setw(kWhatWidth) << bound.What << std::setw(kUnitWidth) << bound.Unit
               << std::setprecision(3);
}

bool Holds(const Bound& bound, double measured, double limit)
{
    return bound.Side == Better::Lower ? measured <= limit : measured >= limit;
}

std::string_view VerdictOn(const Bound& bound, double measured)
{
    if (Holds(bound, measured, bound.Aim))
        return "OK, aim met";
    return Holds(bound, measured, bound.Must) ? "OK" : "MISSED";
}

} // namespace

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double GrowthExponent(double smallSize, double smallTime, double largeSize, double largeTime)
{
    return std::log(largeTime / smallTime) / std::log(largeSize / smallSize);
}

bool PrintVerdicts(std::ostream& out, const Figures& figures)
{
    out << std::left << std::setw(kWhatWidth) << "what" << std::setw(kUnitWidth) << "unit" << std::right
        << std::setw(kFigureWidth) << "measured" << std::setw(kFigureWidth) << "must" << std::setw(kFigureWidth)
        << "aim" << '\n';
    bool allHold = true;
    for (const Bound& bound : kBounds) {
        const auto figure = figures.find(bound.Of);
        RowStart(out, bound);
        if (figure == figures.end()) {
            out << "not measured\n";
            continue;
        }
        const double measured = figure->second;
        Cell(out, measured);
        Cell(out, bound.Must);
        Cell(out, bound.Aim) << "  " << VerdictOn(bound, measured) << '\n';
        allHold = allHold && Holds(bound, measured, bound.Must);
    }
    return allHold;
}

bool PrintFigures(std::ostream& out, const Figures& figures)
{
    out << "Only a trial: small sizes stand for those that are named, and nothing is judged.\n";
    bool allThere = true;
    for (const Bound& bound : kBounds) {
        const auto figure = figures.find(bound.Of);
        const bool isNumber = figure != figures.end() && std::isfinite(figure->second);
        RowStart(out, bound);
        if (isNumber)
            Cell(out, figure->second) << '\n';
        else
            out << "missing\n";
        allThere = allThere && isNumber && (bound.Unit == "exponent" || figure->second > 0);
    }
    return allThere;
}

} // namespace veldrane::bench
