#include "shell/wizard/file_differences.h"

#include "text/strings.h"

#include <algorithm>
#include <dtl/dtl.hpp>

namespace veldrane {
namespace {

using Lines = std::vector<std::string>;

// Lines that differ at both ends of a text are compared with all others, so the work grows with their product.
constexpr std::size_t kMostCompared = 4000;

Lines LinesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

class Comparison
{
  public:
    Comparison(const Lines& before, const Lines& after) : before_(before), after_(after) {}

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
        Compare({before_.begin() + At(head), before_.end() - At(tail)},
                {after_.begin() + At(head), after_.end() - At(tail)});
        AddSame(tail);
        PutRemovedFirst();
        return std::move(found_);
    }

  private:
    static std::ptrdiff_t At(std::size_t place) { return static_cast<std::ptrdiff_t>(place); }

    void Compare(const Lines& before, const Lines& after)
    {
        if (before.empty() || after.empty() || before.size() + after.size() > kMostCompared) {
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
            found_.push_back({DifferenceKind::Same, old_, new_, before_[old_ - 1]});
        }
    }

    void AddRemoved(const std::string& line) { found_.push_back({DifferenceKind::Removed, ++old_, 0, line}); }
    void AddAdded(const std::string& line) { found_.push_back({DifferenceKind::Added, 0, ++new_, line}); }

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
