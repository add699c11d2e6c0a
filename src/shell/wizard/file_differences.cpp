#include "shell/wizard/file_differences.h"

#include "shell/wizard/common_lines.h"

#include <algorithm>
#include <array>
#include <dtl/dtl.hpp>

namespace veldrane {
namespace {

using Lines = std::vector<std::string>;

// Lines are compared with all others, so the work grows with their product.
constexpr std::size_t kMostCompared = 4000;

Lines Part(const Lines& lines, std::size_t begin, std::size_t end)
{
    const auto at = [&](std::size_t place) { return lines.begin() + static_cast<std::ptrdiff_t>(place); };
    return {at(begin), at(end)};
}

constexpr std::string_view kUsualEnd = "\r\n";

// Each with its end.
Lines LinesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::size_t length = end == std::string_view::npos ? text.size() : end + 1;
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

std::string_view EndOf(std::string_view line)
{
    if (line.ends_with(kUsualEnd))
        return kUsualEnd;
    return line.ends_with('\n') ? "\n" : "";
}

bool HasLineWithEnd(const Lines& lines, std::string_view end)
{
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) { return EndOf(line) == end; });
}

// Whether the ends of lines are a difference themselves: one text has some that the other has not.
bool DifferInEnds(const Lines& before, const Lines& after)
{
    constexpr std::array<std::string_view, 3> kEnds{kUsualEnd, "\n", ""};
    return !before.empty() && !after.empty() && std::any_of(kEnds.begin(), kEnds.end(), [&](std::string_view end) {
        return HasLineWithEnd(before, end) != HasLineWithEnd(after, end);
    });
}

std::string_view NameOfUnusualEnd(std::string_view end)
{
    if (end == kUsualEnd)
        return "";
    return end.empty() ? " [no line end]" : " [LF]";
}

class Comparison
{
  public:
    Comparison(const Lines& before, const Lines& after)
        : before_(before), after_(after), tellsEnds_(DifferInEnds(before, after))
    {}

    std::vector<DifferenceLine> Run()
    {
        const std::size_t common = std::min(before_.size(), after_.size());
        std::size_t head = 0;
        while (head < common && before_[head] == after_[head])
            ++head;
        std::size_t tail = 0;
        while (tail < common - head && before_[before_.size() - 1 - tail] == after_[after_.size() - 1 - tail])
            ++tail;
        AddSame(head);
        Compare(Part(before_, head, before_.size() - tail), Part(after_, head, after_.size() - tail));
        AddSame(tail);
        PutRemovedFirst();
        return std::move(found_);
    }

  private:
    static bool CanBeCompared(const Lines& before, const Lines& after)
    {
        return before.size() + after.size() <= kMostCompared;
    }

    void Compare(const Lines& before, const Lines& after)
    {
        if (CanBeCompared(before, after))
            return CompareAll(before, after);
        CommonLine last{0, 0}; // behind it, what is not yet compared
        for (const CommonLine& common : CommonUniqueLines(before, after)) {
            CompareAll(Part(before, last.Old, common.Old), Part(after, last.New, common.New));
            AddSame(1);
            last = {common.Old + 1, common.New + 1};
        }
        CompareAll(Part(before, last.Old, before.size()), Part(after, last.New, after.size()));
    }

    void CompareAll(const Lines& before, const Lines& after)
    {
        if (before.empty() || after.empty() || !CanBeCompared(before, after)) {
            for (const std::string& line : before)
                AddRemoved(line);
            for (const std::string& line : after)
                AddAdded(line);
            return;
        }
        dtl::Diff<std::string> difference(before, after);
        difference.compose();
        for (const auto& [line, information] : difference.getSes().getSequence()) {
            if (information.type == dtl::SES_DELETE)
                AddRemoved(line);
            else if (information.type == dtl::SES_ADD)
                AddAdded(line);
            else
                AddSame(1);
        }
    }

    void AddSame(std::size_t count)
    {
        for (; count > 0; --count) {
            ++old_;
            ++new_;
            found_.push_back({DifferenceKind::Same, old_, new_, Shown(before_[old_ - 1], false)});
        }
    }

    void AddRemoved(const std::string& line)
    {
        found_.push_back({DifferenceKind::Removed, ++old_, 0, Shown(line, tellsEnds_)});
    }
    void AddAdded(const std::string& line)
    {
        found_.push_back({DifferenceKind::Added, 0, ++new_, Shown(line, tellsEnds_)});
    }

    static std::string Shown(std::string_view line, bool tellsEnd)
    {
        const std::string_view end = EndOf(line);
        std::string shown(line.substr(0, line.size() - end.size()));
        return tellsEnd ? shown.append(NameOfUnusualEnd(end)) : shown;
    }

    void PutRemovedFirst()
    {
        const auto isSame = [](const DifferenceLine& line) { return line.Kind == DifferenceKind::Same; };
        for (auto at = found_.begin(); at != found_.end();) {
            at = std::find_if_not(at, found_.end(), isSame);
            const auto end = std::find_if(at, found_.end(), isSame);
            std::stable_partition(at, end,
                                  [](const DifferenceLine& line) { return line.Kind == DifferenceKind::Removed; });
            at = end;
        }
    }

    const Lines& before_;
    const Lines& after_;
    const bool tellsEnds_;
    std::vector<DifferenceLine> found_;
    std::size_t old_ = 0; // lines so far
    std::size_t new_ = 0;
};

} // namespace

std::vector<DifferenceLine> DifferencesOf(std::string_view oldText, std::string_view newText)
{
    const Lines before = LinesOf(oldText);
    const Lines after = LinesOf(newText);
    return Comparison(before, after).Run();
}

std::vector<DifferenceRow> SideBySide(const std::vector<DifferenceLine>& lines)
{
    std::vector<DifferenceRow> rows;
    for (std::size_t at = 0; at < lines.size();) {
        if (lines[at].Kind == DifferenceKind::Same) {
            rows.push_back({at, at});
            ++at;
            continue;
        }
        std::vector<std::size_t> removed;
        std::vector<std::size_t> added;
        for (; at < lines.size() && lines[at].Kind != DifferenceKind::Same; ++at)
            (lines[at].Kind == DifferenceKind::Removed ? removed : added).push_back(at);
        for (std::size_t row = 0; row < std::max(removed.size(), added.size()); ++row)
            rows.push_back({row < removed.size() ? std::optional(removed[row]) : std::nullopt,
                            row < added.size() ? std::optional(added[row]) : std::nullopt});
    }
    return rows;
}

} // namespace veldrane
