#include "text/conversion.h"

#include "text/case_folding.h"
#include "text/characters.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace veldrane::text {
namespace {

constexpr std::string_view kSource = "Conversion";
constexpr std::size_t kShownLength = 60;

std::string Shown(std::string_view text)
{
    const std::string_view shown = Left(text, kShownLength);
    return "'" + std::string(shown) + (shown.size() < text.size() ? "...'" : "'");
}

// A number of more digits than the type can hold is infinite, or 0 if they all stand behind the point.
double OutOfRange(std::string_view digits)
{
    const std::size_t first = digits.find_first_not_of("-0");
    const bool small = first == std::string_view::npos || digits[first] == '.';
    if (small)
        return 0;
    const double huge = std::numeric_limits<double>::infinity();
    return digits.starts_with('-') ? -huge : huge;
}

std::optional<double> Number(std::string_view text)
{
    text = Trim(text);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    // The names of the infinite and of no number are no numbers here.
    if (text.find_first_not_of("+-.0123456789") != std::string_view::npos)
        return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error == std::errc::invalid_argument || end != text.data() + text.size())
        return std::nullopt;
    return error == std::errc::result_out_of_range ? OutOfRange(text) : value;
}

template <class Integer>
Integer Rounded(std::string_view text)
{
    const std::optional<double> value = Number(text);
    if (!value)
        throw RuntimeError(error_number::kTypeMismatch, std::string(kSource),
                           "Type mismatch: " + Shown(text) + " is not a number.");
    const double rounded = std::nearbyint(*value);
    if (rounded < std::numeric_limits<Integer>::min() || rounded > std::numeric_limits<Integer>::max())
        throw RuntimeError(error_number::kOverflow, std::string(kSource),
                           "Overflow: " + Shown(text) + " is too large a number.");
    return static_cast<Integer>(rounded);
}

} // namespace

std::string_view TextOf(bool value)
{
    return value ? "True" : "False";
}

bool ToBoolean(std::string_view text)
{
    const std::string_view trimmed = Trim(text);
    if (EqualFolded(trimmed, "True"))
        return true;
    if (EqualFolded(trimmed, "False"))
        return false;
    if (const std::optional<double> value = Number(trimmed))
        return *value != 0;
    throw RuntimeError(error_number::kTypeMismatch, std::string(kSource),
                       "Type mismatch: " + Shown(text) + " is neither True nor False.");
}

std::int32_t ToLong(std::string_view text)
{
    return Rounded<std::int32_t>(text);
}

std::int16_t ToInteger(std::string_view text)
{
    return Rounded<std::int16_t>(text);
}

std::int32_t LeadingNumber(std::string_view text)
{
    std::string digits;
    for (const char c : text) {
        if (c == ' ')
            continue;
        const bool sign = digits.empty() && (c == '-' || c == '+');
        if (!sign && (c < '0' || c > '9'))
            break;
        digits.push_back(c);
    }
    if (const std::optional<double> value = Number(digits))
        return static_cast<std::int32_t>(std::clamp<double>(*value, std::numeric_limits<std::int32_t>::min(),
                                                            std::numeric_limits<std::int32_t>::max()));
    return 0;
}

} // namespace veldrane::text
