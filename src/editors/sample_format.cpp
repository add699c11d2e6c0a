#include "editors/sample_format.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

constexpr auto kTextFormats = std::to_array<std::string_view>(
    {">", "<", "@@@-@@-@@@@", "(@@@) @@@-@@@@", "&&&&&-&&&&", "@@@@@@@@@@", "!@@@@@@@@@@"});

constexpr auto kNumberFormats = std::to_array<std::string_view>(
    {"General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific", "Yes/No", "True/False", "On/Off", "0",
     "0.00", "#,##0", "#,##0.00", "#,##0.00;(#,##0.00)", "$#,##0.00;($#,##0.00)", "0%", "0.00%", "0.00E+00", "00000"});

constexpr auto kBooleanFormats = std::to_array<std::string_view>({"Yes/No", "True/False", "On/Off"});

constexpr auto kDateFormats = std::to_array<std::string_view>(
    {"General Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time", "Short Time", "m/d/yyyy",
     "mm/dd/yyyy", "dd/mm/yyyy", "yyyy-mm-dd", "dd-mmm-yyyy", "dddd, mmmm d, yyyy", "h:nn AM/PM", "hh:nn:ss",
     "yyyy-mm-dd hh:nn:ss"});

// A value of any type has but the formats that go by a name.
constexpr auto kVariantFormats = std::to_array<std::string_view>(
    {"General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific", "Yes/No", "True/False", "On/Off",
     "General Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time", "Short Time"});

struct FormatsOfType
{
    std::string_view DataType;
    std::span<const std::string_view> Formats;
};

constexpr auto kFormatsOfTypes = std::to_array<FormatsOfType>({
    {"String", kTextFormats},
    {"Byte", kNumberFormats},
    {"Integer", kNumberFormats},
    {"Long", kNumberFormats},
    {"Single", kNumberFormats},
    {"Double", kNumberFormats},
    {"Currency", kNumberFormats},
    {"Boolean", kBooleanFormats},
    {"Date", kDateFormats},
    {"Variant", kVariantFormats},
});

} // namespace

std::span<const std::string_view> SampleFormats(std::string_view dataType)
{
    const auto* const row = std::find_if(kFormatsOfTypes.begin(), kFormatsOfTypes.end(),
                                         [&](const FormatsOfType& each) { return each.DataType == dataType; });
    return row == kFormatsOfTypes.end() ? std::span<const std::string_view>() : row->Formats;
}

std::string FormattedSample(std::string_view text, std::string_view format)
{
    for (const auto formatted : {FormattedText, FormattedNumber, FormattedDate})
        if (auto sample = formatted(text, format))
            return *std::move(sample);
    return std::string(text);
}

} // namespace veldrane
