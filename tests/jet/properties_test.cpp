#include "definition_bytes.h"

#include "jet/properties.h"
#include "jet/refusal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane::jet {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::LittleEndian;
using testing::NameBytes;

constexpr int kNames = 0x80;
constexpr int kOfTable = 0;
constexpr int kOfColumn = 1;
constexpr int kYesNo = 1;

std::string Chunk(int kind, const std::string& content)
{
    return LittleEndian(content.size() + 6, 4) + LittleEndian(static_cast<std::uint64_t>(kind), 2) + content;
}

std::string Names(Version version, const std::vector<std::string>& names)
{
    std::string content;
    for (const std::string& name : names) {
        const std::string bytes = NameBytes(version, name);
        content += LittleEndian(bytes.size(), 2) + bytes;
    }
    return Chunk(kNames, content);
}

std::string Value(int name, const std::string& bytes)
{
    return LittleEndian(bytes.size() + 8, 2) + LittleEndian(kYesNo, 2) +
           LittleEndian(static_cast<std::uint64_t>(name), 2) + LittleEndian(bytes.size(), 2) + bytes;
}

std::string Object(Version version, int kind, const std::string& name, const std::string& values)
{
    const std::string bytes = NameBytes(version, name);
    return Chunk(kind, LittleEndian(bytes.size() + 6, 4) + LittleEndian(bytes.size(), 2) + bytes + values);
}

const std::string kYes = "\xFF";
const std::string kNo(1, '\0');

TEST(Properties, TellWhichColumnsAreRequired)
{
    for (const Version version : {Version::Jet3, Version::Jet4}) {
        const std::string block =
            "MARK" + Names(version, {"Caption", "Required"}) + Object(version, kOfTable, "", Value(0, "About")) +
            Object(version, kOfColumn, "City", Value(0, "Town") + Value(1, kYes)) +
            Object(version, kOfColumn, "Zip", Value(1, kNo)) + Object(version, kOfColumn, "Street", Value(0, kYes)) +
            Object(version, kOfColumn, "Area", Value(1, kYes) + Value(0, "x"));
        EXPECT_THAT(RequiredColumns(block, TextDecoder(version, 1252)), ElementsAre("Area", "City"));
    }
}

TEST(Properties, ObjectsOfEachKindHaveTheirValues)
{
    for (const int kind : {0, 1, 2}) {
        const std::string block =
            "MARK" + Names(Version::Jet4, {"Required"}) + Object(Version::Jet4, kind, "City", Value(0, kYes));
        EXPECT_THAT(RequiredColumns(block, TextDecoder(Version::Jet4, 1252)), ElementsAre("City")) << kind;
    }
    const std::string block =
        "MARK" + Names(Version::Jet4, {"Required"}) + Object(Version::Jet4, 3, "City", Value(0, kYes));
    EXPECT_THAT(RequiredColumns(block, TextDecoder(Version::Jet4, 1252)), IsEmpty());
}

TEST(Properties, NoBlockTellsNothing)
{
    const TextDecoder text(Version::Jet4, 1252);
    EXPECT_THAT(RequiredColumns("", text), IsEmpty());
    EXPECT_THAT(RequiredColumns("MARK", text), IsEmpty());
}

TEST(Properties, AValueWithoutBytesIsNoYes)
{
    const std::string block =
        "MARK" + Names(Version::Jet4, {"Required"}) + Object(Version::Jet4, kOfColumn, "City", Value(0, ""));
    EXPECT_THAT(RequiredColumns(block, TextDecoder(Version::Jet4, 1252)), IsEmpty());
}

TEST(Properties, ChunksOfAnotherKindArePassedOver)
{
    const std::string block = "MARK" + Chunk(3, "whatever") + Names(Version::Jet4, {"Required"}) + Chunk(0x81, "") +
                              Object(Version::Jet4, kOfColumn, "City", Value(0, kYes));
    EXPECT_THAT(RequiredColumns(block, TextDecoder(Version::Jet4, 1252)), ElementsAre("City"));
}

TEST(Properties, SizesThatWouldNeverEndAreDamage)
{
    const TextDecoder text(Version::Jet4, 1252);
    const std::string names = "MARK" + Names(Version::Jet4, {"Required"});
    const std::string withoutSize = LittleEndian(0, 2) + Value(0, kYes).substr(2);
    const std::string tooShort = LittleEndian(8, 2) + Value(0, kYes).substr(2);
    for (const std::string& block :
         {"MARK" + LittleEndian(0, 4) + LittleEndian(kNames, 2), "MARK" + LittleEndian(5, 4) + LittleEndian(kNames, 2),
          names + Object(Version::Jet4, kOfColumn, "City", withoutSize),
          names + Object(Version::Jet4, kOfColumn, "City", tooShort),
          names + Object(Version::Jet4, kOfColumn, "City", Value(1, kYes))})
        EXPECT_THROW(static_cast<void>(RequiredColumns(block, text)), Refusal) << ::testing::PrintToString(block);
}

TEST(Properties, ABlockThatEndsEarlyNeverReadsBeyond)
{
    const TextDecoder text(Version::Jet4, 1252);
    const std::string block =
        "MARK" + Names(Version::Jet4, {"Required"}) + Object(Version::Jet4, kOfColumn, "City", Value(0, kYes));
    const std::size_t wholeChunk = 4 + Names(Version::Jet4, {"Required"}).size();
    for (std::size_t size = 5; size < block.size(); ++size) {
        if (size != wholeChunk) {
            EXPECT_THROW(static_cast<void>(RequiredColumns(block.substr(0, size), text)), Refusal) << size;
        }
    }
}

} // namespace
} // namespace veldrane::jet
