#include "editors/sample_format.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <vector>

namespace veldrane {
namespace {

struct Moment
{
    std::optional<std::chrono::year_month_day> Day;
    std::optional<std::chrono::seconds> Time;
};

constexpr auto kMonths =
    std::to_array<std::string_view>({"January", "February", "March", "April", "May", "June", "July", "August",
                                     "September", "October", "November", "December"});
constexpr auto kWeekdays =
    std::to_array<std::string_view>({"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});

// The day that a time without one falls on.
constexpr std::chrono::year_month_day kDayZero{std::chrono::year(1899), std::chrono::month(12), std::chrono::day(30)};

constexpr std::size_t kShortName = 3;

std::optional<unsigned> Number(std::string_view digits)
{
    unsigned number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

// The numbers between the separators; none if one of the pieces is no number, or there are not as many as asked for.
std::optional<std::vector<unsigned>> Numbers(std::string_view text, std::string_view separator, std::size_t least)
{
    constexpr std::size_t kMost = 3;
    std::vector<unsigned> numbers;
    for (const std::string_view piece : text::Split(text, separator))
        if (const auto number = Number(piece))
            numbers.push_back(*number);
        else
            return std::nullopt;
    if (numbers.size() < least || numbers.size() > kMost)
        return std::nullopt;
    return numbers;
}

std::optional<std::chrono::year_month_day> ParseDay(std::string_view text)
{
    constexpr unsigned kLastYear = 9999;
    constexpr unsigned kFirstYear = 100;
    const bool isIso = text.find('-') != std::string_view::npos;
    const auto numbers = Numbers(text, isIso ? "-" : "/", 3);
    if (!numbers)
        return std::nullopt;
    const unsigned year = numbers->at(isIso ? 0 : 2);
    const std::chrono::year_month_day day{std::chrono::year(static_cast<int>(std::min(year, kLastYear))),
                                          std::chrono::month(numbers->at(isIso ? 1 : 0)),
                                          std::chrono::day(numbers->at(isIso ? 2 : 1))};
    return day.ok() && year >= kFirstYear && year <= kLastYear ? std::optional(day) : std::nullopt;
}

std::optional<std::chrono::seconds> ParseTime(std::string_view text, std::string_view half)
{
    const auto numbers = Numbers(text, ":", 2);
    if (!numbers)
        return std::nullopt;
    unsigned hour = numbers->at(0);
    const unsigned minute = numbers->at(1);
    const unsigned second = numbers->size() > 2 ? numbers->at(2) : 0;
    const bool isTwelve = !half.empty();
    if (minute > 59 || second > 59 || hour > (isTwelve ? 12U : 23U) || (isTwelve && hour == 0))
        return std::nullopt;
    if (isTwelve)
        hour = hour % 12 + (text::EqualFolded(half, "PM") ? 12 : 0);
    return std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
}

bool IsHalf(std::string_view word)
{
    return text::EqualFolded(word, "AM") || text::EqualFolded(word, "PM");
}

std::optional<Moment> Parse(std::string_view text)
{
    std::vector<std::string_view> words = text::Split(text::Trim(text), " ");
    std::erase(words, "");
    std::string_view half;
    if (words.size() > 1 && IsHalf(words.back())) {
        half = words.back();
        words.pop_back();
    }
    if (words.empty() || words.size() > 2)
        return std::nullopt;
    Moment moment;
    moment.Day = ParseDay(words.front());
    if (words.size() == 2 || !moment.Day)
        moment.Time = ParseTime(words.back(), half);
    const bool whole = words.size() == 2 ? moment.Day && moment.Time : moment.Day || moment.Time;
    return whole && (half.empty() || moment.Time) ? std::optional(moment) : std::nullopt;
}

std::string Padded(unsigned number, std::size_t size)
{
    std::string digits = std::to_string(number);
    return digits.size() < size ? std::string(size - digits.size(), '0') + digits : digits;
}

// A run of one letter of the pattern, or none where it is not known.
class Runs
{
  public:
    Runs(const Moment& moment, bool twelve)
        : day_(moment.Day.value_or(kDayZero)), time_(moment.Time.value_or(std::chrono::seconds(0))), twelve_(twelve)
    {}

    [[nodiscard]] bool IsMorning() const { return time_.hours().count() < 12; }

    [[nodiscard]] std::optional<std::string> Written(char letter, std::size_t size, bool behindHours) const
    {
        switch (letter) {
        case 'd':
            return Day(size);
        case 'm':
            return behindHours ? TwoDigits(static_cast<unsigned>(time_.minutes().count()), size) : Month(size);
        case 'y':
            return Year(size);
        case 'h':
            return TwoDigits(Hour(), size);
        case 'n':
            return TwoDigits(static_cast<unsigned>(time_.minutes().count()), size);
        case 's':
            return TwoDigits(static_cast<unsigned>(time_.seconds().count()), size);
        default:
            return std::nullopt;
        }
    }

  private:
    static std::optional<std::string> TwoDigits(unsigned number, std::size_t size)
    {
        return size <= 2 ? std::optional(Padded(number, size)) : std::nullopt;
    }

    static std::optional<std::string> Name(std::string_view name, std::size_t size)
    {
        if (size > 4)
            return std::nullopt;
        return std::string(size == 3 ? name.substr(0, kShortName) : name);
    }

    [[nodiscard]] std::optional<std::string> Day(std::size_t size) const
    {
        const std::chrono::weekday weekday{std::chrono::sys_days(day_)};
        return size <= 2 ? TwoDigits(static_cast<unsigned>(day_.day()), size)
                         : Name(kWeekdays.at(weekday.c_encoding()), size);
    }

    [[nodiscard]] std::optional<std::string> Month(std::size_t size) const
    {
        const auto month = static_cast<unsigned>(day_.month());
        return size <= 2 ? TwoDigits(month, size) : Name(kMonths.at(month - 1), size);
    }

    [[nodiscard]] std::optional<std::string> Year(std::size_t size) const
    {
        const auto year = static_cast<unsigned>(static_cast<int>(day_.year()));
        if (size == 2)
            return Padded(year % 100, 2);
        return size == 4 ? std::optional(std::to_string(year)) : std::nullopt;
    }

    [[nodiscard]] unsigned Hour() const
    {
        const auto hour = static_cast<unsigned>(time_.hours().count());
        return twelve_ ? (hour + 11) % 12 + 1 : hour;
    }

    std::chrono::year_month_day day_;
    std::chrono::hh_mm_ss<std::chrono::seconds> time_;
    bool twelve_;
};

constexpr std::string_view kHalves = "AM/PM";
constexpr std::string_view kPlain = "/-:., ";
constexpr std::string_view kLetters = "dmyhns";

std::optional<std::string> ByPattern(const Moment& moment, std::string_view format)
{
    const Runs runs(moment, format.find(kHalves) != std::string_view::npos);
    std::string written;
    char before = 0; // the latest letter
    for (std::size_t at = 0; at < format.size();) {
        const char c = format[at];
        if (format.substr(at).starts_with(kHalves)) {
            written += runs.IsMorning() ? "AM" : "PM";
            at += kHalves.size();
        } else if (kPlain.find(c) != std::string_view::npos) {
            written += c;
            ++at;
        } else {
            const std::size_t end = std::min(format.find_first_not_of(c, at), format.size());
            const auto run = runs.Written(c, end - at, before == 'h');
            if (!run)
                return std::nullopt;
            written += *run;
            before = c;
            at = end;
        }
    }
    return written;
}

struct NamedFormat
{
    std::string_view Name;
    std::string_view Pattern;
};

constexpr auto kNamedFormats = std::to_array<NamedFormat>({
    {"General Date", "m/d/yyyy h:nn:ss AM/PM"},
    {"Long Date", "dddd, mmmm d, yyyy"},
    {"Medium Date", "dd-mmm-yy"},
    {"Short Date", "m/d/yyyy"},
    {"Long Time", "h:nn:ss AM/PM"},
    {"Medium Time", "hh:nn AM/PM"},
    {"Short Time", "hh:nn"},
});

// The general format shows what the moment has.
std::string_view PatternOf(std::string_view format, const Moment& moment)
{
    if (text::EqualFolded(format, "General Date") && !moment.Time)
        return PatternOf("Short Date", moment);
    if (text::EqualFolded(format, "General Date") && !moment.Day)
        return PatternOf("Long Time", moment);
    const auto* const row = std::find_if(kNamedFormats.begin(), kNamedFormats.end(),
                                         [&](const NamedFormat& each) { return text::EqualFolded(each.Name, format); });
    return row == kNamedFormats.end() ? format : row->Pattern;
}

} // namespace

std::optional<std::string> FormattedDate(std::string_view text, std::string_view format)
{
    const std::optional<Moment> moment = Parse(text);
    if (!moment || format.find_first_of(kLetters) == std::string_view::npos)
        return std::nullopt;
    return ByPattern(*moment, PatternOf(format, *moment));
}

} // namespace veldrane
