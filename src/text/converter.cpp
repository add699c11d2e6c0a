#include "text/converter.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <iconv.h>

namespace veldrane::text {
namespace {

// POSIX says that iconv_open answers this value on failure.
const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)

// Converts to the end or as far as it goes. Without a source it gives what was held back: of some code pages a letter
// is, because a mark may follow that joins it.
void Append(std::string& text, iconv_t converter, char** source, std::size_t* left)
{
    std::array<char, 1024> buffer{};
    bool goesOn = true;
    while (goesOn) {
        char* target = buffer.data();
        std::size_t space = buffer.size();
        const bool stops = iconv(converter, source, left, &target, &space) == static_cast<std::size_t>(-1);
        goesOn = stops && errno == E2BIG;
        text.append(buffer.data(), target);
    }
}

} // namespace

Converter::Converter(int codePage) : handle_(iconv_open("UTF-8", ("CP" + std::to_string(codePage)).c_str())) {}

Converter::~Converter()
{
    if (IsThere())
        iconv_close(handle_);
}

bool Converter::IsThere() const
{
    return handle_ != kNoConverter;
}

std::string Converter::Convert(std::string_view& bytes) const
{
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char* source = const_cast<char*>(bytes.data()); // which iconv does not write to
    std::size_t left = bytes.size();
    std::string text;
    Append(text, handle_, &source, &left);
    Append(text, handle_, nullptr, nullptr);
    bytes.remove_prefix(bytes.size() - left);
    return text;
}

} // namespace veldrane::text
