#include "definition_bytes.h"
#include "memory_jet_file.h"

#include "jet/definition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane::jet {
namespace {

using testing::DefinitionBytes;
using testing::DefinitionSpec;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MemoryJetFile;
using testing::SplitDefinition;

constexpr int kText = 10;
constexpr int kLong = 4;
constexpr int kOrdinary = 0;
constexpr int kPrimary = 1;
constexpr int kOfRelationship = 2;

class Definition : public ::testing::TestWithParam<Version>
{
  protected:
    [[nodiscard]] static TableDefinition Read(const std::string& definition)
    {
        MemoryJetFile file(GetParam());
        file.Pages[7] = definition;
        return ReadDefinition(file, 7);
    }

    [[nodiscard]] static TableDefinition Read(const DefinitionSpec& table)
    {
        return Read(DefinitionBytes(GetParam(), table));
    }

    [[nodiscard]] static TableDefinition ReadSplit(std::size_t size)
    {
        MemoryJetFile file(GetParam());
        std::tie(file.Pages[7], file.Pages[9]) = SplitDefinition(DefinitionBytes(GetParam(), kOrders), size, 9);
        return ReadDefinition(file, 7);
    }

    static std::string ReasonOf(const std::string& definition)
    {
        try {
            static_cast<void>(Read(definition));
        } catch (const Refusal& refusal) {
            return std::string(refusal.Reason());
        }
        return "read";
    }

    static inline const DefinitionSpec kOrders{
        .Rows = 12,
        .Columns = {{.Name = "City", .Type = kText, .Id = 3, .Flags = 2, .Size = 100},
                    {.Name = "OrderID", .Type = kLong, .Id = 0, .Flags = 7, .Size = 4},
                    {.Name = "Line", .Type = kLong, .Id = 1, .Flags = 3, .Size = 4}},
        .StoredIndexes = {{.ColumnIds = {3}}, {.ColumnIds = {1, 0}, .Flags = 1}},
        .LogicalIndexes = {{.Name = "ByCity", .Number = 0, .Place = 0, .Type = kOrdinary},
                           {.Name = "PrimaryKey", .Number = 4, .Place = 1, .Type = kPrimary},
                           {.Name = ".rB", .Number = 5, .Place = 0, .Type = kOfRelationship, .RelatedPage = 30},
                           {.Name = "AlsoByCity", .Number = 6, .Place = 0, .Type = kOrdinary}}};
};

std::vector<std::string> NamesOf(const TableDefinition& table)
{
    std::vector<std::string> names;
    for (const ColumnDefinition& column : table.Columns)
        names.push_back(column.Name);
    return names;
}

TEST_P(Definition, ColumnsComeInTheOrderOfTheirIds)
{
    const TableDefinition table = Read(kOrders);
    EXPECT_EQ(table.RowCount, 12U);
    EXPECT_THAT(NamesOf(table), ElementsAre("OrderID", "Line", "City"));
    EXPECT_EQ(table.Columns[2].Type, kText);
    EXPECT_EQ(table.Columns[2].Id, 3);
    EXPECT_EQ(table.Columns[2].Flags, 2);
    EXPECT_EQ(table.Columns[2].Size, 100U);
}

TEST_P(Definition, IndexesShareWhatIsStoredAndThoseOfRelationshipsAreLeftOut)
{
    const TableDefinition table = Read(kOrders);
    ASSERT_EQ(table.Indexes.size(), 3U);
    EXPECT_EQ(table.Indexes[0].Name, "ByCity");
    EXPECT_FALSE(table.Indexes[0].Primary);
    EXPECT_FALSE(table.Indexes[0].Unique);
    EXPECT_THAT(table.Indexes[0].ColumnIds, ElementsAre(3));
    EXPECT_EQ(table.Indexes[2].Name, "AlsoByCity");
    EXPECT_THAT(table.Indexes[2].ColumnIds, ElementsAre(3));
}

TEST_P(Definition, ThePrimaryKeyIsFoundThoughDroppedIndexesLeaveGapsInTheNumbers)
{
    const TableDefinition table = Read(kOrders);
    ASSERT_EQ(table.Indexes.size(), 3U);
    EXPECT_EQ(table.Indexes[1].Name, "PrimaryKey");
    EXPECT_TRUE(table.Indexes[1].Primary);
    EXPECT_TRUE(table.Indexes[1].Unique);
    EXPECT_THAT(table.Indexes[1].ColumnIds, ElementsAre(1, 0)) << "in the order of the key, not of the table";
}

TEST_P(Definition, ATableWithoutColumnsAndIndexesIsOne)
{
    const TableDefinition table = Read(DefinitionSpec{});
    EXPECT_THAT(table.Columns, IsEmpty());
    EXPECT_THAT(table.Indexes, IsEmpty());
}

TEST_P(Definition, PagesMayEndWithinAnything)
{
    const std::size_t size = DefinitionBytes(GetParam(), kOrders).size();
    for (std::size_t end = 8; end <= size; ++end) {
        SCOPED_TRACE(end);
        const TableDefinition table = ReadSplit(end);
        EXPECT_THAT(NamesOf(table), ElementsAre("OrderID", "Line", "City"));
        EXPECT_EQ(table.Indexes.size(), 3U);
    }
}

TEST_P(Definition, OneThatEndsEarlyIsDamaged)
{
    const std::string whole = DefinitionBytes(GetParam(), kOrders);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(ReasonOf(whole.substr(0, size)), "damaged") << size;
    EXPECT_EQ(ReasonOf(whole), "read");
}

TEST_P(Definition, AChainThatReturnsToItselfIsDamaged)
{
    MemoryJetFile file(GetParam());
    std::tie(file.Pages[7], file.Pages[9]) = SplitDefinition(DefinitionBytes(GetParam(), kOrders), 80, 9, 7);
    EXPECT_THROW(static_cast<void>(ReadDefinition(file, 7)), Refusal);
}

TEST_P(Definition, APageOfAnotherKindIsDamaged)
{
    std::string page = DefinitionBytes(GetParam(), kOrders);
    page[0] = 1;
    EXPECT_EQ(ReasonOf(page), "damaged");
}

TEST_P(Definition, MoreColumnsThanTheEngineAllowsAreDamage)
{
    DefinitionSpec table;
    for (int id = 0; id < 255; ++id)
        table.Columns.push_back({.Name = "C" + std::to_string(id), .Type = kLong, .Id = id, .Size = 4});
    EXPECT_EQ(Read(table).Columns.size(), 255U);
    table.Columns.push_back({.Name = "OneMore", .Type = kLong, .Id = 255, .Size = 4});
    EXPECT_EQ(ReasonOf(DefinitionBytes(GetParam(), table)), "damaged");
}

TEST_P(Definition, TwoColumnsOfOneIdAreDamage)
{
    EXPECT_THROW(static_cast<void>(Read({.Columns = {{.Name = "A", .Type = kLong, .Id = 1, .Size = 4},
                                                     {.Name = "B", .Type = kLong, .Id = 2, .Size = 4},
                                                     {.Name = "C", .Type = kLong, .Id = 1, .Size = 4}}})),
                 Refusal);
}

// The bytes with a number of two of them replaced, in the entry of one of the columns.
std::string WithNumber(std::string definition, std::size_t at, std::uint64_t number)
{
    testing::Put(definition, at, testing::LittleEndian(number, 2));
    return definition;
}

TEST_P(Definition, AColumnWithAnIdThatTheTableHasNotGivenIsDamage)
{
    const std::string whole = DefinitionBytes(GetParam(), kOrders);
    const std::size_t idsAt = GetParam() == Version::Jet3 ? 21 : 41;
    EXPECT_EQ(ReasonOf(WithNumber(whole, idsAt, 9)), "read") << "columns of higher ids were dropped";
    EXPECT_EQ(ReasonOf(WithNumber(whole, idsAt, 3)), "damaged");
}

TEST_P(Definition, ColumnsThatShareTheirPlaceInARowAreDamage)
{
    const DefinitionSpec table{.Columns = {{.Name = "A", .Type = kLong, .Id = 0, .Flags = 3, .Size = 4},
                                           {.Name = "B", .Type = kLong, .Id = 1, .Flags = 3, .Size = 4},
                                           {.Name = "YesNo", .Type = 1, .Id = 2, .Flags = 3, .Size = 1},
                                           {.Name = "C", .Type = kText, .Id = 3, .Flags = 2, .Size = 100},
                                           {.Name = "D", .Type = kText, .Id = 4, .Flags = 2, .Size = 100}}};
    const std::string whole = DefinitionBytes(GetParam(), table);
    const bool isJet3 = GetParam() == Version::Jet3;
    const auto entryAt = [&](std::size_t column) { return (isJet3 ? 43 : 63) + column * (isJet3 ? 18 : 25); };
    const auto offsetAt = [&](std::size_t column) { return entryAt(column) + (isJet3 ? 14 : 21); };
    const auto numberAt = [&](std::size_t column) { return entryAt(column) + (isJet3 ? 3 : 7); };
    EXPECT_EQ(ReasonOf(WithNumber(whole, offsetAt(1), 12)), "read") << "behind one that was dropped";
    EXPECT_EQ(ReasonOf(WithNumber(whole, offsetAt(1), 3)), "damaged");
    EXPECT_EQ(ReasonOf(WithNumber(whole, offsetAt(2), 0)), "read") << "stands nowhere";
    EXPECT_EQ(ReasonOf(WithNumber(whole, numberAt(4), 7)), "read");
    EXPECT_EQ(ReasonOf(WithNumber(whole, numberAt(4), 0)), "damaged");
}

TEST_P(Definition, AnIndexWithoutAPlaceIsDamaged)
{
    DefinitionSpec table = kOrders;
    for (const int place : {2, 1000, -1}) {
        table.LogicalIndexes[0].Place = place;
        EXPECT_EQ(ReasonOf(DefinitionBytes(GetParam(), table)), "damaged") << place;
    }
}

TEST_P(Definition, AnIndexOfARelationshipNeedsNoPlace)
{
    DefinitionSpec table = kOrders;
    table.LogicalIndexes[2].Place = -1;
    EXPECT_EQ(Read(table).Indexes.size(), 3U);
}

TEST_P(Definition, AnIndexOfATypeThatItIsNotIsDamaged)
{
    for (const int type : {kOfRelationship, 3, 0x81}) {
        DefinitionSpec table = kOrders;
        table.LogicalIndexes[1].Type = type;
        EXPECT_EQ(ReasonOf(DefinitionBytes(GetParam(), table)), "damaged") << type;
    }
    for (const int type : {kOrdinary, kPrimary}) {
        DefinitionSpec table = kOrders;
        table.LogicalIndexes[2].Type = type;
        EXPECT_EQ(ReasonOf(DefinitionBytes(GetParam(), table)), "damaged") << type;
    }
}

INSTANTIATE_TEST_SUITE_P(OfBothVersions, Definition, ::testing::Values(Version::Jet3, Version::Jet4),
                         [](const auto& version) { return version.param == Version::Jet3 ? "Jet3" : "Jet4"; });

} // namespace
} // namespace veldrane::jet
