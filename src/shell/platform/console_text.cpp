#include "shell/platform/console_text.h"

#include "text/characters.h"
#include "text/strings.h"

namespace veldrane {
namespace {

bool SteersTerminal(char32_t character)
{
    const bool c0 = character < 0x20 && character != U'\t' && character != U'\n';
    return c0 || (character >= 0x7F && character < 0xA0);
}

// Well-formed, lines ending in LF, without line breaks at either end.
std::string Plain(std::string_view text)
{
    const std::string lines = text::ReplaceAll(text::ReplaceAll(text::WellFormed(text), "\r\n", "\n"), "\r", "\n");
    std::string plain;
    for (std::size_t at = 0; at < lines.size(); at += text::CharacterSize(lines, at)) {
        if (SteersTerminal(text::CodePoint(lines, at)))
            plain += '?';
        else
            plain.append(lines, at, text::CharacterSize(lines, at));
    }
    plain.erase(plain.find_last_not_of('\n') + 1); // npos + 1 is 0: nothing but line breaks
    plain.erase(0, plain.find_first_not_of('\n'));
    return plain;
}

} // namespace

std::string ConsoleText(std::string_view text, std::string_view indent)
{
    const std::string plain = Plain(text);
    std::string shown;
    for (const std::string_view line : text::Split(plain, "\n")) {
        if (!shown.empty())
            shown += '\n';
        if (!shown.empty() && !line.empty())
            shown += indent;
        shown += line;
    }
    return shown;
}

std::string ConsoleLine(std::string_view text)
{
    const std::string plain = Plain(text);
    std::string shown;
    for (const std::string_view line : text::Split(plain, "\n")) {
        if (!shown.empty() && !line.empty() && !shown.ends_with(' '))
            shown += ' ';
        shown += line;
    }
    return shown;
}

} // namespace veldrane
