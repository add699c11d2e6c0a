#include "jet/properties.h"

#include "jet/bytes.h"

#include <vector>

// A property block is a mark of four bytes and chunks behind it:
//
//   chunk       size with these 6 bytes (4), kind (2), content
//   kind 0x80   the names of all properties: length (2), name, ...
//   kind 0 to 2 the values of one object: size of its header (4), length of its name (2), name; values
//   value       size (2), flag (1), type (1), which name (2), length (2), bytes
namespace veldrane::jet {
namespace {

constexpr std::size_t kMark = 4;
constexpr std::size_t kChunkHeader = 6;
constexpr std::uint16_t kNames = 0x80;
constexpr std::uint16_t kLastObject = 2;
constexpr std::size_t kObjectHeader = 6;
constexpr std::size_t kValueHeader = 8;

std::vector<std::string> ReadNames(const Bytes& content, const TextDecoder& text)
{
    std::vector<std::string> names;
    for (std::size_t at = 0; at < content.Size();) {
        const std::size_t size = content.U16(at);
        names.push_back(text.Name(content.Slice(at + 2, size)));
        at += 2 + size;
    }
    return names;
}

bool IsRequired(const Bytes& content, std::size_t firstValue, const std::vector<std::string>& names)
{
    bool isRequired = false;
    for (std::size_t at = firstValue; at < content.Size();) {
        const std::size_t size = content.U16(at);
        const std::size_t name = content.U16(at + 4);
        const std::size_t length = content.U16(at + 6);
        if (size < kValueHeader + length || name >= names.size())
            throw Damaged("a table's properties contradict themselves");
        const Bytes value(content.Slice(at + kValueHeader, length));
        if (names[name] == "Required" && length > 0)
            isRequired = value.U8(0) != 0;
        at += size;
    }
    return isRequired;
}

} // namespace

std::set<std::string> RequiredColumns(std::string_view block, const TextDecoder& text)
{
    std::set<std::string> required;
    std::vector<std::string> names;
    const Bytes bytes(block);
    for (std::size_t at = block.empty() ? 0 : kMark; at < bytes.Size();) {
        const std::size_t size = bytes.U32(at);
        if (size < kChunkHeader)
            throw Damaged("a table's properties have no end");
        const std::uint16_t kind = bytes.U16(at + 4);
        const Bytes content(Bytes(bytes.Slice(at, size)).Slice(kChunkHeader, size - kChunkHeader));
        if (kind == kNames)
            names = ReadNames(content, text);
        else if (kind <= kLastObject && IsRequired(content, content.U32(0), names))
            required.insert(text.Name(content.Slice(kObjectHeader, content.U16(kObjectHeader - 2))));
        at += size;
    }
    return required;
}

} // namespace veldrane::jet
