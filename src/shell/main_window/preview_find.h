#pragma once

#include "shell/main_window/preview_pane.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// Where a text was found: in one line, counted in bytes of its UTF-8.
struct PreviewMatch
{
    std::size_t Row;
    std::size_t Begin;
    std::size_t Size;

    friend bool operator==(const PreviewMatch&, const PreviewMatch&) = default;
};

// The search in a preview: every place of a text, letter case aside, and the one that a person stands on. When other
// lines are shown the text is searched in them; the pane's selected row is left alone then.
class PreviewFind
{
  public:
    // The pane must outlive the search.
    explicit PreviewFind(PreviewPane& pane);

    // What is searched from now on is typed letter by letter, each time from the row that is selected now.
    void Begin();

    // Searches for the text as it stands, and goes to the first place at or behind the row of the beginning, round the
    // end of the lines if need be. Whoever has selected another row or taken a step meanwhile begins there. An empty
    // text is found nowhere.
    void Find(std::string_view text);

    // Goes to the next or the former place and selects its row; behind the last comes the first, before the first the
    // last. Whoever has selected another row meanwhile goes on from there.
    void Next();
    void Previous();

    [[nodiscard]] const std::string& Text() const { return text_; }

    // All places, from the top; matches do not overlap.
    [[nodiscard]] const std::vector<PreviewMatch>& Matches() const { return matches_; }

    // Those in one line.
    [[nodiscard]] std::span<const PreviewMatch> MatchesIn(std::size_t row) const;

    // The place that a person stands on, as an index of Matches; nothing before the first step and without a match.
    [[nodiscard]] std::optional<std::size_t> Current() const { return current_; }

    // "3 of 17", "17 matches" before the first step, "Not found", or "" for an empty text.
    [[nodiscard]] std::string Status() const;

    Signal<> Changed; // the places, or where a person stands

  private:
    using Place = std::vector<PreviewMatch>::const_iterator;

    void SearchAll();
    void GoTo(std::size_t match);
    [[nodiscard]] Place FirstFrom(std::size_t row) const; // the first match in the row or behind it
    [[nodiscard]] bool StandsOnCurrent() const;
    void Step(std::size_t match);

    PreviewPane& pane_;
    std::string text_;
    std::vector<PreviewMatch> matches_;
    std::optional<std::size_t> current_;
    std::size_t begin_ = 0;               // a row
    std::optional<std::size_t> selected_; // the row that was selected when the search last was there
    Connection replaced_;
};

} // namespace veldrane
