#include "definition_bytes.h"
#include "memory_jet_file.h"

#include "jet/record.h"
#include "jet/refusal.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace veldrane::jet {
namespace {

using namespace std::string_literals;
using testing::DefinitionBytes;
using testing::DefinitionSpec;
using testing::LittleEndian;
using testing::MemoryJetFile;

constexpr std::uint32_t kPage = 5;
constexpr std::uint32_t kHere = 0x80000000;
constexpr std::uint32_t kOnePiece = 0x40000000;

std::string Place(std::uint32_t length, std::uint32_t place)
{
    return LittleEndian(length, 4) + LittleEndian(place, 4) + LittleEndian(0, 4);
}

class RecordTest : public ::testing::Test
{
  protected:
    RecordTest()
    {
        DefinitionSpec table{.Rows = 1};
        for (const char* name : {"A", "B"})
            table.Columns.push_back({.Name = name, .Type = 4, .Id = static_cast<int>(table.Columns.size())});
        file_.Pages[kPage] = DefinitionBytes(Version::Jet4, table);
    }

    // Looks at a row of these values.
    void Look(const MemoryJetFile::Row& row, const std::function<void(const Record&)>& look)
    {
        file_.Rows[kPage] = {row};
        ForEachRecord(file_, kPage, look);
    }

    std::string LongBinary(const std::string& cell)
    {
        std::string value;
        Look({cell, std::nullopt}, [&](const Record& record) { value = record.LongBinary("A"); });
        return value;
    }

    MemoryJetFile file_{Version::Jet4};
};

TEST_F(RecordTest, NumbersHaveTheSizeOfTheirColumn)
{
    const auto numberOf = [&](const std::optional<std::string>& cell) {
        std::int32_t number = 99;
        Look({cell, "x"}, [&](const Record& record) { number = record.Number("A"); });
        return number;
    };
    EXPECT_EQ(numberOf("\xFF"), 255);
    EXPECT_EQ(numberOf("\xFF\xFF"), -1);
    EXPECT_EQ(numberOf("\x08\0\0\x80"s), -2147483640);
    EXPECT_EQ(numberOf(std::nullopt), 0);
    EXPECT_THROW(numberOf("abc"), Refusal);
}

TEST_F(RecordTest, NullTextIsEmpty)
{
    Look({std::nullopt, "a\0b\0"s}, [](const Record& record) {
        EXPECT_EQ(record.Text("A"), "");
        EXPECT_EQ(record.Memo("A"), "");
        EXPECT_EQ(record.Text("B"), "ab");
        EXPECT_EQ(record.Binary("B"), "a\0b\0"s);
    });
}

TEST_F(RecordTest, AColumnThatIsMissingIsDamage)
{
    Look({"", ""}, [](const Record& record) { EXPECT_THROW(static_cast<void>(record.Text("C")), Refusal); });
    Look({""}, [](const Record& record) { EXPECT_THROW(static_cast<void>(record.Text("B")), Refusal); });
}

TEST_F(RecordTest, RowsThatAreMissingAreDamage)
{
    EXPECT_THROW(ForEachRecord(file_, kPage, [](const Record&) {}), Refusal);
    file_.Rows[kPage] = {{"", ""}, {"", ""}};
    int count = 0;
    ForEachRecord(file_, kPage, [&](const Record&) { ++count; });
    EXPECT_EQ(count, 2) << "a row too many tells no less";
}

TEST_F(RecordTest, ALongValueStandsInItsRow)
{
    EXPECT_EQ(LongBinary(Place(kHere | 3, 0) + "abc"), "abc");
    EXPECT_EQ(LongBinary(Place(kHere, 0)), "");
    EXPECT_THROW(LongBinary(Place(kHere | 4, 0) + "abc"), Refusal);
}

TEST_F(RecordTest, ALongValueIsAPieceElsewhere)
{
    file_.Pieces[0x901] = "abcdef";
    EXPECT_EQ(LongBinary(Place(kOnePiece | 6, 0x901)), "abcdef");
    EXPECT_THROW(LongBinary(Place(kOnePiece | 7, 0x901)), Refusal);
    EXPECT_THROW(LongBinary(Place(kOnePiece | 6, 0x902)), Refusal);
}

TEST_F(RecordTest, ALongValueIsManyPieces)
{
    file_.Pieces[0x901] = LittleEndian(0xA02, 4) + "abc";
    file_.Pieces[0xA02] = LittleEndian(0, 4) + "def";
    EXPECT_EQ(LongBinary(Place(6, 0x901)), "abcdef");
    EXPECT_EQ(LongBinary(Place(5, 0x901)), "abcde");
    EXPECT_THROW(LongBinary(Place(7, 0x901)), Refusal);
}

TEST_F(RecordTest, PiecesThatNeverEndAreDamage)
{
    file_.Pieces[0x901] = LittleEndian(0x901, 4);
    EXPECT_THROW(LongBinary(Place(6, 0x901)), Refusal) << "an empty piece";
    file_.Pieces[0x901] += "abc";
    EXPECT_EQ(LongBinary(Place(6, 0x901)), "abcabc") << "no further than the length";
}

TEST_F(RecordTest, APlaceThatEndsEarlyIsDamage)
{
    for (std::size_t size = 1; size < 8; ++size)
        EXPECT_THROW(LongBinary(Place(6, 0x901).substr(0, size)), Refusal) << size;
}

TEST_F(RecordTest, AMemoMayHaveTheShorterForm)
{
    Look({Place(kHere | 4, 0) + "\xFF\xFEgo", std::nullopt},
         [](const Record& record) { EXPECT_EQ(record.Memo("A"), "go"); });
}

} // namespace
} // namespace veldrane::jet
