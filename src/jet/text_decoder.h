#pragma once

#include "jet/header_page.h"
#include "text/code_page.h"

#include <string>
#include <string_view>

namespace veldrane::jet {

// Makes UTF-8 of a file's text. Jet 3 holds it in the code page of the file, Jet 4 in UTF-16, which values may have in
// a shorter form. Halves of a character become U+FFFD.
class TextDecoder
{
  public:
    // A code page that the system has no single-byte converter for counts as 1252.
    TextDecoder(Version version, int codePage);

    // A name as table definitions and properties hold it.
    [[nodiscard]] std::string Name(std::string_view bytes) const;

    // The value of a text or memo column.
    [[nodiscard]] std::string Value(std::string_view bytes) const;

  private:
    Version version_;
    text::CodePage codePage_;
};

} // namespace veldrane::jet
