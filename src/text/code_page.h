#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace veldrane::text {

// A single-byte code page: what stands between the UTF-8 of the program and the bytes of the files that it writes.
//
// 1252 by default. The bytes that a code page leaves unassigned (0x81, 0x8D, 0x8F, 0x90 and 0x9D of 1252) stand for
// the control characters of the same number, as Windows has it, so every file survives being read and written.
class CodePage
{
  public:
    static constexpr int kDefaultNumber = 1252;

    // Throws RuntimeError (5) if the system's converter knows no single-byte code page of this number; the text names
    // the number.
    explicit CodePage(int number = kDefaultNumber);

    [[nodiscard]] int Number() const { return number_; }

    // The UTF-8 text of the bytes. Every byte has one.
    [[nodiscard]] std::string Decode(std::string_view bytes) const;

    // The same for a text that is not needed afterwards: where it is ASCII alone, no second one is made.
    [[nodiscard]] std::string DecodeInPlace(std::string bytes) const;

    struct Encoded
    {
        std::string Bytes;
        bool Lossy = false; // some character, or a byte that is none, had no place and became "?"
    };

    [[nodiscard]] Encoded Encode(std::string_view text) const;

    // The same for a text that is not needed afterwards.
    [[nodiscard]] Encoded EncodeInPlace(std::string text) const;

    // Whether every character has a place in the code page.
    [[nodiscard]] bool Holds(std::string_view text) const;

  private:
    // How much of the text's beginning is the same bytes in UTF-8 and in the code page.
    [[nodiscard]] std::size_t SameInBoth(std::string_view text) const;

    // The byte for a character, or for the one of `size` bytes that the text begins with; -1 if there is none.
    [[nodiscard]] int ByteOf(char32_t codePoint) const;
    [[nodiscard]] int ByteAt(std::string_view text, std::size_t size) const;

    int number_;
    bool holdsAscii_ = true;                                // every ASCII character stands at its own number
    std::vector<char32_t> characters_;                      // by byte
    std::vector<std::pair<char32_t, unsigned char>> bytes_; // sorted by character
};

} // namespace veldrane::text
