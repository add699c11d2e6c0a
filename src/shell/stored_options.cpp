#include "shell/stored_options.h"

#include "text/conversion.h"
#include "text/runtime_error.h"
#include "text/strings.h"

namespace veldrane {
namespace {

std::int32_t NumberWithin(const NumberRange& range, std::string_view value)
{
    const std::int32_t number = text::ToLong(value);
    if (number < range.Lowest || number > range.Highest)
        throw RuntimeError(error_number::kOverflow, "Settings", "The number is out of range.");
    return number;
}

} // namespace

template <class Value, class Convert>
Value StoredOptions::Converted(std::string_view name, Value whenUnset, const std::string& complaint,
                               Convert convert) const
{
    const std::string value = registry_.GetKeyValue(settings_section::kOptions, name);
    if (text::Trim(value).empty())
        return whenUnset;
    try {
        return convert(value);
    } catch (const RuntimeError&) {
        messages_.Tell("Settings",
                       "The setting " + std::string(name) + " in the section Options is '" + value + "', which is " +
                           complaint + ". The default is used.",
                       MessageIcon::Warning);
        return whenUnset;
    }
}

std::string StoredOptions::Text(std::string_view name, std::string_view whenUnset) const
{
    const std::string value = registry_.GetKeyValue(settings_section::kOptions, name);
    const std::string_view text = text::Trim(value);
    return std::string(text.empty() ? whenUnset : text);
}

Color StoredOptions::ColorOf(std::string_view name, Color whenUnset) const
{
    return Converted(name, whenUnset, "no colour: a 32-bit number, red in the low byte", text::ToLong);
}

std::int32_t StoredOptions::Number(std::string_view name, const NumberRange& range, std::int32_t whenUnset) const
{
    const std::string complaint = "no " + std::string(range.What) + ": a number from " + std::to_string(range.Lowest) +
                                  " to " + std::to_string(range.Highest);
    return Converted(name, whenUnset, complaint, [&](std::string_view value) { return NumberWithin(range, value); });
}

bool StoredOptions::Flag(std::string_view name, bool whenUnset) const
{
    return Converted(name, whenUnset, "neither True nor False", text::ToBoolean);
}

} // namespace veldrane
