#pragma once

#include "generator/line_class.h"
#include "ports/messages.h"
#include "ports/settings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace veldrane {

// The numbers that an option may have, and what they are.
struct NumberRange
{
    std::string_view What; // "font size"
    std::int32_t Lowest;
    std::int32_t Highest;
};

// Reads values of the section Options that are more than a text. An absent or blank value gives the default, and so
// does one that is not of its kind, which is told under the title "Settings".
class StoredOptions
{
  public:
    // Both must outlive the reader.
    StoredOptions(const RegistryAccess& registry, Messages& messages) : registry_(registry), messages_(messages) {}

    // Without blanks at its ends.
    [[nodiscard]] std::string Text(std::string_view name, std::string_view whenUnset) const;

    // A decimal number of 32 bits.
    [[nodiscard]] Color ColorOf(std::string_view name, Color whenUnset) const;

    [[nodiscard]] std::int32_t Number(std::string_view name, const NumberRange& range, std::int32_t whenUnset) const;

    // "True" or "False".
    [[nodiscard]] bool Flag(std::string_view name, bool whenUnset) const;

  private:
    template <class Value, class Convert>
    [[nodiscard]] Value Converted(std::string_view name, Value whenUnset, const std::string& complaint,
                                  Convert convert) const;

    const RegistryAccess& registry_;
    Messages& messages_;
};

} // namespace veldrane
