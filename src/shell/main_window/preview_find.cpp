#include "shell/main_window/preview_find.h"

#include "text/case_folding.h"
#include "text/characters.h"

#include <algorithm>

namespace veldrane {
namespace {

// A folded letter may have another length than the one that it stands for, so the end is counted in characters.
std::size_t SizeOfMatch(std::string_view line, std::size_t begin, std::size_t characters)
{
    return text::Left(line.substr(begin), characters).size();
}

void AppendMatches(std::vector<PreviewMatch>& matches, std::size_t row, std::string_view line, std::string_view text)
{
    const std::size_t characters = text::Length(text);
    std::size_t begin = text::FindFolded(line, text);
    while (begin != std::string_view::npos) {
        const std::size_t size = SizeOfMatch(line, begin, characters);
        matches.push_back({.Row = row, .Begin = begin, .Size = size});
        begin = text::FindFolded(line, text, begin + size);
    }
}

} // namespace

PreviewFind::PreviewFind(PreviewPane& pane)
    : pane_(pane), replaced_(pane.Replaced.Connect([this] {
          Begin();
          SearchAll();
          Changed.Raise();
      }))
{}

void PreviewFind::Begin()
{
    selected_ = pane_.Selected();
    begin_ = selected_.value_or(0);
}

void PreviewFind::Find(std::string_view text)
{
    if (pane_.Selected() != selected_)
        Begin();
    text_ = text;
    SearchAll();
    if (matches_.empty()) {
        Changed.Raise();
        return;
    }
    const Place place = FirstFrom(begin_);
    GoTo(place == matches_.end() ? 0 : static_cast<std::size_t>(place - matches_.begin()));
}

void PreviewFind::Next()
{
    if (matches_.empty())
        return;
    if (StandsOnCurrent())
        return Step((*current_ + 1) % matches_.size());
    const Place place = FirstFrom(pane_.Selected().value_or(0));
    Step(place == matches_.end() ? 0 : static_cast<std::size_t>(place - matches_.begin()));
}

void PreviewFind::Previous()
{
    if (matches_.empty())
        return;
    const std::size_t from = StandsOnCurrent()
                                 ? *current_
                                 : static_cast<std::size_t>(FirstFrom(pane_.Selected().value_or(0)) - matches_.begin());
    Step(from == 0 ? matches_.size() - 1 : from - 1);
}

std::span<const PreviewMatch> PreviewFind::MatchesIn(std::size_t row) const
{
    return {FirstFrom(row), FirstFrom(row + 1)};
}

std::string PreviewFind::Status() const
{
    if (text_.empty())
        return {};
    if (matches_.empty())
        return "Not found";
    if (current_)
        return std::to_string(*current_ + 1) + " of " + std::to_string(matches_.size());
    return std::to_string(matches_.size()) + (matches_.size() == 1 ? " match" : " matches");
}

void PreviewFind::SearchAll()
{
    matches_.clear();
    current_.reset();
    if (text_.empty())
        return;
    for (std::size_t row = 0; row < pane_.Count(); ++row)
        AppendMatches(matches_, row, pane_.Row(row).LineText, text_);
}

void PreviewFind::GoTo(std::size_t match)
{
    current_ = match;
    selected_ = matches_[match].Row;
    pane_.Select(*selected_);
    Changed.Raise();
}

void PreviewFind::Step(std::size_t match)
{
    GoTo(match);
    Begin();
}

PreviewFind::Place PreviewFind::FirstFrom(std::size_t row) const
{
    return std::lower_bound(matches_.begin(), matches_.end(), row,
                            [](const PreviewMatch& match, std::size_t value) { return match.Row < value; });
}

bool PreviewFind::StandsOnCurrent() const
{
    return current_ && pane_.Selected() == matches_[*current_].Row;
}

} // namespace veldrane
