#pragma once

#include "jet/header_page.h"
#include "text/code_page.h"
#include "text/converter.h"

#include <optional>
#include <string>
#include <string_view>

namespace veldrane::jet {

// Makes UTF-8 of a file's text. Jet 3 holds it in the code page of the file, Jet 4 in UTF-16, which values may have in
// a shorter form. Halves of a character become U+FFFD, and so do bytes to which a code page with characters of two
// bytes gives no meaning.
class TextDecoder
{
  public:
    // `codePage` counts in Jet 3 alone. Throws Refusal(kCodePage) for one of those with characters of two bytes that
    // the system has no converter for. Any other that the system doesn't know counts as 1252.
    TextDecoder(Version version, int codePage);

    // A name as table definitions and properties hold it.
    [[nodiscard]] std::string Name(std::string_view bytes) const;

    // The value of a text or memo column.
    [[nodiscard]] std::string Value(std::string_view bytes) const;

  private:
    [[nodiscard]] std::string TwoByteText(std::string_view bytes) const;

    Version version_;
    std::optional<text::Converter> twoBytes_;
    std::optional<text::CodePage> oneByte_; // of Jet 3 there is this or the other one
};

} // namespace veldrane::jet
