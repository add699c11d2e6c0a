#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

// The format strings that Visual Basic's `Format` knows, as far as the Formatting tab offers and shows them.
namespace veldrane {

// What the boxes offer for a property of the type: the named formats that suit it, then usual patterns. Nothing for a
// type whose values are not formatted.
[[nodiscard]] std::span<const std::string_view> SampleFormats(std::string_view dataType);

// The text as generated code would show it on a machine that is set to the English of the United States.
//
// Given back as typed: with an empty format; a text that is no number or no date (yyyy-mm-dd or m/d/yyyy, with or
// without a time) under a format that wants one; and everything under a format with a part that is not known here.
// Known are the named formats and the patterns of numbers (0 # , . % E+, up to three sections), of dates (d m y h n s,
// AM/PM and the marks between them) and of texts (@ & < > !), with $ ( ) + - and blanks around them; not known are
// quoted and escaped text, quarters, weeks, days of the year, and letters of the machine's own settings.
[[nodiscard]] std::string FormattedSample(std::string_view text, std::string_view format);

// The same for one kind of format; none where the text or the format is not of the kind.
[[nodiscard]] std::optional<std::string> FormattedNumber(std::string_view text, std::string_view format);
[[nodiscard]] std::optional<std::string> FormattedDate(std::string_view text, std::string_view format);
[[nodiscard]] std::optional<std::string> FormattedText(std::string_view text, std::string_view format);

} // namespace veldrane
