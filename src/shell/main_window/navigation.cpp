#include "shell/main_window/navigation.h"

#include "text/strings.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace veldrane {
namespace {

struct Declaration
{
    std::string_view Words; // in front of the name
    std::string_view Icon;  // unless the row has one of its own
    std::string_view Remark;
};

constexpr auto kDeclarations = std::to_array<Declaration>({
    {"Property Get ", "Property", " (Get)"},
    {"Property Let ", "Property", " (Let)"},
    {"Property Set ", "Property", " (Set)"},
    {"Sub ", "Sub", ""},
    {"Function ", "Function", ""},
    {"Event ", "Event", ""},
});

constexpr auto kScopes = std::to_array<std::string_view>({"Public ", "Private ", "Friend "});

std::string_view WithoutScope(std::string_view line)
{
    for (const std::string_view scope : kScopes)
        if (line.starts_with(scope))
            return line.substr(scope.size());
    return line;
}

std::optional<NavigationRow> MemberOf(const TTCOutput& line, std::size_t row)
{
    // The first line of a long declaration is indented as its other lines are.
    const std::string_view rest = WithoutScope(line.Bold ? text::TrimLeft(line.LineText) : line.LineText);
    const auto* const declaration = std::find_if(kDeclarations.begin(), kDeclarations.end(),
                                                 [&](const Declaration& each) { return rest.starts_with(each.Words); });
    if (declaration == kDeclarations.end())
        return std::nullopt;
    const std::size_t bracket = rest.find('(');
    if (bracket == std::string_view::npos)
        return std::nullopt;
    const std::size_t start = declaration->Words.size();
    return NavigationRow{.Caption = std::string(rest.substr(start, bracket - start)) + std::string(declaration->Remark),
                         .Icon = line.Icon.empty() ? std::string(declaration->Icon) : line.Icon,
                         .Row = row};
}

// The other lines of a long declaration look as its first one does, but they are indented.
bool IsHeading(const TTCOutput& line)
{
    return line.Bold && !line.Icon.empty() && !line.LineText.starts_with(' ');
}

} // namespace

std::vector<NavigationRow> NavigationRows(std::span<const TTCOutputs> blocks)
{
    std::vector<NavigationRow> rows;
    std::size_t row = 0;
    for (const TTCOutputs& block : blocks)
        for (const TTCOutput& line : block) {
            if (auto member = MemberOf(line, row))
                rows.push_back(*std::move(member));
            else if (IsHeading(line))
                rows.push_back({.Caption = std::string(text::Trim(line.LineText)), .Icon = line.Icon, .Row = row});
            ++row;
        }
    return rows;
}

} // namespace veldrane
