#pragma once

#include <string>
#include <string_view>

// How names and values stand in a settings file; see SettingsDocument.
namespace veldrane::settings_notation {

// The value that a text stands for. Every text stands for one: what is no quoted text and no number is itself.
[[nodiscard]] std::string ReadValue(std::string_view notation);

// A text that ReadValue reads back as the value, byte by byte, and that keeps to one line.
[[nodiscard]] std::string WriteValue(std::string_view value);

// The same for names, which end at the first "=" of a line and must not look like a comment or a section.
[[nodiscard]] std::string ReadName(std::string_view notation);
[[nodiscard]] std::string WriteName(std::string_view name);

// Whether the byte is an ASCII control character.
[[nodiscard]] bool IsControl(char byte);

// The text without blanks and tabs around it.
[[nodiscard]] std::string_view Stripped(std::string_view text);

} // namespace veldrane::settings_notation
