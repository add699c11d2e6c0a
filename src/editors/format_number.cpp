#include "editors/sample_format.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace veldrane {
namespace {

// A number digit by digit, so that it is rounded as it is written.
struct Decimal
{
    bool Negative = false;
    std::string Digits;    // without leading zeros
    std::size_t Whole = 0; // how many of the digits stand before the point; they are filled up with zeros to it
    std::size_t Zeros = 0; // how many zeros stand between the point and the digits
    [[nodiscard]] bool IsZero() const { return Digits.empty(); }
};

constexpr std::string_view kDigits = "0123456789";

std::optional<Decimal> Parse(std::string_view text)
{
    std::string typed = text::Without(text::Trim(text), ",");
    Decimal number;
    if (typed.starts_with('-') || typed.starts_with('+')) {
        number.Negative = typed.front() == '-';
        typed.erase(0, 1);
    }
    const std::size_t point = std::min(typed.find('.'), typed.size());
    const std::string whole = typed.substr(0, point);
    const std::string fraction = point < typed.size() ? typed.substr(point + 1) : "";
    if (whole.size() + fraction.size() == 0 || (whole + fraction).find_first_not_of(kDigits) != std::string::npos)
        return std::nullopt;
    const std::string all = whole + fraction;
    const std::size_t first = all.find_first_not_of('0');
    if (first == std::string::npos)
        return Decimal{};
    const std::size_t last = all.find_last_not_of('0');
    number.Digits = all.substr(first, last + 1 - first);
    number.Whole = first < whole.size() ? whole.size() - first : 0;
    number.Zeros = first > whole.size() ? first - whole.size() : 0;
    return number;
}

void MovePoint(Decimal& number, std::size_t places)
{
    const std::size_t zeros = std::min(number.Zeros, places);
    number.Zeros -= zeros;
    if (!number.IsZero())
        number.Whole += places - zeros;
}

// Rounds to so many digits behind the point, halves away from zero, and splits there.
struct Parts
{
    std::string Whole;    // "" for none
    std::string Fraction; // exactly as many digits as asked for
};

Parts Rounded(const Decimal& number, std::size_t decimals)
{
    std::string digits = std::string(number.Zeros, '0') + number.Digits;
    const std::size_t wanted = number.Whole + decimals;
    const bool up = digits.size() > wanted && digits[wanted] >= '5';
    digits.resize(wanted, '0');
    std::size_t whole = number.Whole;
    if (up) {
        const std::size_t carry = digits.find_last_not_of('9');
        const std::size_t at = carry == std::string::npos ? 0 : carry + 1;
        std::fill(digits.begin() + static_cast<std::ptrdiff_t>(at), digits.end(), '0');
        if (carry == std::string::npos) {
            digits.insert(0, "1");
            ++whole;
        } else {
            ++digits[carry];
        }
    }
    return {.Whole = digits.substr(0, whole), .Fraction = digits.substr(whole)};
}

struct NumberPattern
{
    std::string Before;
    std::size_t WholeZeros = 0;
    bool Grouped = false;
    bool Point = false;
    std::size_t Decimals = 0;
    std::size_t DecimalZeros = 0;
    std::size_t ExponentZeros = 0; // 0 for none
    std::string After;
};

constexpr std::string_view kPlaces = "0#.,";
constexpr std::string_view kPlain = "$()+-% ";

std::optional<NumberPattern> ParsePattern(std::string_view format)
{
    const std::size_t begin = format.find_first_of("0#.");
    if (begin == std::string_view::npos)
        return std::nullopt;
    const std::size_t end = std::min(format.find_first_not_of(kPlaces, begin), format.size());
    NumberPattern pattern{.Before = std::string(format.substr(0, begin)), .After = std::string(format.substr(end))};
    if (pattern.After.starts_with("E+0")) {
        const std::size_t zeros = std::min(pattern.After.find_first_not_of('0', 2), pattern.After.size()) - 2;
        pattern.ExponentZeros = zeros;
        pattern.After.erase(0, 2 + zeros);
    }
    if ((pattern.Before + pattern.After).find_first_not_of(kPlain) != std::string::npos)
        return std::nullopt;
    const std::string_view places = format.substr(begin, end - begin);
    const std::size_t point = std::min(places.find('.'), places.size());
    const std::string_view whole = places.substr(0, point);
    const std::string_view decimals = places.substr(std::min(point + 1, places.size()));
    if (decimals.find_first_not_of("0#") != std::string_view::npos || whole.ends_with(','))
        return std::nullopt;
    pattern.WholeZeros = static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '0'));
    pattern.Grouped = whole.find(',') != std::string_view::npos;
    pattern.Point = point < places.size();
    pattern.Decimals = decimals.size();
    pattern.DecimalZeros = decimals.rfind('0') == std::string_view::npos ? 0 : decimals.rfind('0') + 1;
    return pattern;
}

std::string Grouped(std::string digits)
{
    for (std::size_t at = digits.size(); at > 3;)
        digits.insert(at -= 3, ",");
    return digits;
}

std::string Written(const Parts& parts, const NumberPattern& pattern)
{
    std::string whole = parts.Whole;
    if (whole.size() < pattern.WholeZeros)
        whole.insert(0, pattern.WholeZeros - whole.size(), '0');
    std::string fraction = parts.Fraction;
    while (fraction.size() > pattern.DecimalZeros && fraction.back() == '0')
        fraction.pop_back();
    return (pattern.Grouped ? Grouped(std::move(whole)) : whole) + (pattern.Point ? "." : "") + fraction;
}

// With the digits that the pattern has before its point, and the power of ten that this takes.
std::string Scientific(Decimal number, const NumberPattern& pattern)
{
    const std::size_t before = std::max<std::size_t>(pattern.WholeZeros, 1);
    std::ptrdiff_t exponent = 0;
    if (!number.IsZero()) {
        exponent = static_cast<std::ptrdiff_t>(number.Whole) - static_cast<std::ptrdiff_t>(number.Zeros + before);
        number.Whole = before;
        number.Zeros = 0;
    }
    Parts parts = Rounded(number, pattern.Decimals);
    if (parts.Whole.size() > before) {
        parts.Whole.pop_back();
        ++exponent;
    }
    std::string digits = std::to_string(exponent < 0 ? -exponent : exponent);
    if (digits.size() < pattern.ExponentZeros)
        digits.insert(0, pattern.ExponentZeros - digits.size(), '0');
    return Written(parts, pattern) + (exponent < 0 ? "E-" : "E+") + digits;
}

std::string Applied(Decimal number, const NumberPattern& pattern)
{
    const auto percents = std::count(pattern.After.begin(), pattern.After.end(), '%');
    MovePoint(number, 2 * static_cast<std::size_t>(percents));
    const std::string digits =
        pattern.ExponentZeros > 0 ? Scientific(number, pattern) : Written(Rounded(number, pattern.Decimals), pattern);
    return pattern.Before + digits + pattern.After;
}

// Sections: for all numbers or those above zero, for negative ones, and for zero. An empty one is the first again.
std::optional<std::string> BySections(const Decimal& number, std::string_view format)
{
    const std::vector<std::string_view> sections = text::Split(format, ";");
    if (sections.size() > 3)
        return std::nullopt;
    const std::size_t wanted = number.IsZero() ? 2 : (number.Negative ? 1 : 0);
    const bool isThere = wanted < sections.size() && !sections[wanted].empty();
    const auto pattern = ParsePattern(isThere ? sections[wanted] : sections.front());
    if (!pattern)
        return std::nullopt;
    const bool sign = number.Negative && !(isThere && wanted == 1);
    return (sign ? "-" : "") + Applied(number, *pattern);
}

struct NamedFormat
{
    std::string_view Name;
    std::string_view Pattern;
};

constexpr auto kNamedFormats = std::to_array<NamedFormat>({
    {"Currency", "$#,##0.00;($#,##0.00)"},
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
});

struct TwoWords
{
    std::string_view Name;
    std::string_view NotZero;
    std::string_view Zero;
};

constexpr auto kTwoWords = std::to_array<TwoWords>({
    {"Yes/No", "Yes", "No"},
    {"True/False", "True", "False"},
    {"On/Off", "On", "Off"},
});

template <class Rows>
auto Named(const Rows& rows, std::string_view name)
{
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const auto& each) { return text::EqualFolded(each.Name, name); });
    return row == rows.end() ? nullptr : &*row;
}

std::optional<Decimal> NumberOrBoolean(std::string_view text)
{
    if (text::EqualFolded(text::Trim(text), "True"))
        return Parse("-1");
    if (text::EqualFolded(text::Trim(text), "False"))
        return Parse("0");
    return Parse(text);
}

std::string General(const Decimal& number)
{
    const std::size_t decimals = number.Zeros + number.Digits.size() - std::min(number.Whole, number.Digits.size());
    const Parts parts = Rounded(number, decimals);
    const std::string fraction = parts.Fraction.empty() ? "" : "." + parts.Fraction;
    return (number.Negative ? "-" : "") + (parts.Whole.empty() ? "0" : parts.Whole) + fraction;
}

} // namespace

std::optional<std::string> FormattedNumber(std::string_view text, std::string_view format)
{
    const std::optional<Decimal> number = NumberOrBoolean(text);
    if (!number)
        return std::nullopt;
    if (text::EqualFolded(format, "General Number"))
        return General(*number);
    if (const TwoWords* words = Named(kTwoWords, format))
        return std::string(number->IsZero() ? words->Zero : words->NotZero);
    const NamedFormat* named = Named(kNamedFormats, format);
    return BySections(*number, named ? named->Pattern : format);
}

} // namespace veldrane
