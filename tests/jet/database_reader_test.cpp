#include "definition_bytes.h"
#include "memory_jet_file.h"

#include "jet/database_reader.h"
#include "jet/refusal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace veldrane::jet {
namespace {

using testing::DefinitionBytes;
using testing::DefinitionSpec;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::LittleEndian;
using testing::MemoryJetFile;
using ::testing::StartsWith;

constexpr std::uint32_t kObjects = 2;
constexpr std::uint32_t kQueries = 4;
constexpr std::uint32_t kRelationships = 5;
constexpr std::uint32_t kOrders = 20;
constexpr std::uint32_t kFlagSystem = 0x80000000;

std::string Number(std::uint32_t number)
{
    return LittleEndian(number, 4);
}

std::string Inline(const std::string& value)
{
    return Number(0x80000000 | static_cast<std::uint32_t>(value.size())) + Number(0) + Number(0) + value;
}

// The block that makes a column of a Jet 3 table required.
std::string RequiredBlock(const std::string& column)
{
    const std::string value =
        LittleEndian(9, 2) + LittleEndian(1, 2) + LittleEndian(0, 2) + LittleEndian(1, 2) + "\xFF";
    const std::string object =
        Number(static_cast<std::uint32_t>(column.size()) + 6) + LittleEndian(column.size(), 2) + column + value;
    return "KKD" + std::string(1, '\0') + Number(16) + LittleEndian(0x80, 2) + LittleEndian(8, 2) + "Required" +
           Number(static_cast<std::uint32_t>(object.size()) + 6) + LittleEndian(1, 2) + object;
}

class DatabaseReader : public ::testing::Test
{
  protected:
    DatabaseReader()
    {
        Define(kObjects, {"Id", "Name", "Type", "Flags", "LvProp"});
        Define(kQueries, {"ObjectId", "Attribute", "Order", "Name1", "Name2", "Expression", "Flag"});
        Define(kRelationships, {"szRelationship", "grbit", "icolumn", "szObject", "szColumn", "szReferencedObject",
                                "szReferencedColumn"});
        AddObject("MSysObjects", kObjects, 1, kFlagSystem);
        AddObject("MSysQueries", kQueries, 1, kFlagSystem);
        AddObject("MSysRelationships", kRelationships, 1, kFlagSystem);
    }

    void Define(std::uint32_t page, std::initializer_list<const char*> columns)
    {
        DefinitionSpec table;
        for (const char* column : columns)
            table.Columns.push_back(
                {.Name = column, .Type = 10, .Id = static_cast<int>(table.Columns.size()), .Size = 255});
        file_.Pages[page] = DefinitionBytes(Version::Jet3, table);
    }

    void AddObject(const std::string& name, std::uint32_t id, std::uint32_t type, std::uint32_t flags = 0,
                   const std::string& properties = "")
    {
        file_.Rows[kObjects].push_back({Number(id), name, LittleEndian(type, 2), Number(flags), Inline(properties)});
    }

    void AddOrders(const std::string& properties = "")
    {
        file_.Pages[kOrders] =
            DefinitionBytes(Version::Jet3, {.Columns = {{.Name = "City", .Type = 10, .Id = 4, .Size = 50},
                                                        {.Name = "ID", .Type = 4, .Id = 1, .Flags = 7, .Size = 4}},
                                            .StoredIndexes = {{.ColumnIds = {4, 1}, .Flags = 1}},
                                            .LogicalIndexes = {{.Name = "PrimaryKey", .Place = 0, .Type = 1}}});
        AddObject("Orders", kOrders, 1, 0, properties);
    }

    void AddRelationship(const std::string& name, std::uint32_t place, const std::string& column,
                         const std::string& related, std::uint32_t flags = 0, const std::string& table = "Orders",
                         const std::string& relatedTable = "Towns")
    {
        file_.Rows[kRelationships].push_back(
            {name, Number(flags), Number(place), table, column, relatedTable, related});
    }

    [[nodiscard]] Database Read() { return ReadDatabase(file_); }

    [[nodiscard]] std::string Complaint()
    {
        try {
            static_cast<void>(Read());
        } catch (const Refusal& refusal) {
            return refusal.what();
        }
        return "";
    }

    MemoryJetFile file_{Version::Jet3};
};

TEST_F(DatabaseReader, ReadsATableWithItsKey)
{
    AddOrders(RequiredBlock("City"));
    const Database database = Read();
    ASSERT_EQ(database.Tables.size(), 4U);
    const Table& orders = database.Tables[3];
    EXPECT_EQ(orders.Name, "Orders");
    EXPECT_EQ(orders.Type, "TABLE");
    ASSERT_EQ(orders.Columns.size(), 2U);
    EXPECT_EQ(orders.Columns[0].Name, "ID");
    EXPECT_TRUE(orders.Columns[0].AutoNumber);
    EXPECT_EQ(orders.Columns[0].Attributes, 96);
    EXPECT_EQ(orders.Columns[1].Name, "City");
    EXPECT_EQ(orders.Columns[1].Attributes, 0) << "required";
    ASSERT_EQ(orders.Indexes.size(), 1U);
    EXPECT_TRUE(orders.Indexes[0].Primary);
    EXPECT_THAT(orders.Indexes[0].Columns, ElementsAre("City", "ID"));
}

TEST_F(DatabaseReader, TellsTheTypesOfTables)
{
    AddOrders();
    AddObject("MSysAccessObjects", kOrders, 1, 2);
    AddObject("Hidden", kOrders, 1, 8);
    AddObject("FarByDriver", 900, 4);
    AddObject("Far", 901, 6, 0x200000);
    AddObject("Form1", 0x80000386, 0xFFFF8000U);
    std::vector<std::string> types;
    const Database database = Read();
    for (const Table& table : database.Tables)
        types.push_back(table.Name + " " + std::string(table.Type));
    EXPECT_THAT(types, ElementsAre("MSysObjects SYSTEM TABLE", "MSysQueries SYSTEM TABLE",
                                   "MSysRelationships SYSTEM TABLE", "Orders TABLE", "MSysAccessObjects ACCESS TABLE",
                                   "Hidden TABLE", "FarByDriver LINK", "Far LINK"));
}

// The flag is one that people may set of any table; nothing else tells a table of theirs from one of the engine's.
TEST_F(DatabaseReader, ATableThatSomebodyMarkedAsTheSystemsIsASystemTable)
{
    AddOrders();
    AddObject("Settings", kOrders, 1, kFlagSystem);
    AddObject("Secrets", kOrders, 1, kFlagSystem | 0x0A);
    const Database database = Read();
    ASSERT_EQ(database.Tables.size(), 6U);
    EXPECT_EQ(database.Tables[4].Type, "SYSTEM TABLE");
    EXPECT_EQ(database.Tables[5].Type, "SYSTEM TABLE");
    EXPECT_EQ(database.Tables[4].Columns.size(), 2U);
}

TEST_F(DatabaseReader, TheUpperByteOfAnIdIsNoPage)
{
    AddOrders();
    AddObject("Copy", 0x01000000 | kOrders, 1);
    EXPECT_EQ(Read().Tables.back().Columns.size(), 2U);
}

TEST_F(DatabaseReader, AnIndexOfAColumnThatIsGoneIsDamage)
{
    file_.Pages[kOrders] = DefinitionBytes(Version::Jet3, {.Columns = {{.Name = "ID", .Type = 4, .Id = 1, .Size = 4}},
                                                           .StoredIndexes = {{.ColumnIds = {2}}},
                                                           .LogicalIndexes = {{.Name = "I", .Place = 0}}});
    AddObject("Orders", kOrders, 1);
    EXPECT_THROW(static_cast<void>(Read()), Refusal);
}

TEST_F(DatabaseReader, ReadsRelationshipsColumnByColumn)
{
    AddRelationship("R1", 1, "Country", "Land");
    AddRelationship("R2", 0, "City", "Twin");
    AddRelationship("R1", 0, "City", "Name");
    const Database database = Read();
    ASSERT_EQ(database.Relationships.size(), 2U);
    const Relationship& second = database.Relationships[1];
    EXPECT_EQ(second.Name, "R1");
    EXPECT_EQ(second.Table, "Orders");
    EXPECT_EQ(second.RelatedTable, "Towns");
    ASSERT_EQ(second.Columns.size(), 2U);
    EXPECT_EQ(second.Columns[0].Column, "City");
    EXPECT_EQ(second.Columns[0].RelatedColumn, "Name");
    EXPECT_EQ(second.Columns[1].Column, "Country");
    EXPECT_EQ(second.Columns[1].RelatedColumn, "Land");
}

TEST_F(DatabaseReader, RelationshipsThatAreNotEnforcedOrTheEnginesOwnAreLeftOut)
{
    AddRelationship("Loose", 0, "City", "Name", 0x1102);
    AddRelationship("Own", 0, "GroupID", "Id", 0, "MSysNavPaneGroups", "MSysNavPaneObjectIDs");
    AddRelationship("Kept", 0, "City", "Name", 0x1101);
    const Database database = Read();
    ASSERT_EQ(database.Relationships.size(), 1U);
    EXPECT_EQ(database.Relationships[0].Name, "Kept");
}

TEST_F(DatabaseReader, ARelationshipWithOneOfTheEnginesTablesIsTold)
{
    AddRelationship("From", 0, "City", "Name", 0, "MSysteria");
    AddRelationship("To", 0, "City", "Name", 0, "Orders", "MSysteria");
    EXPECT_EQ(Read().Relationships.size(), 2U);
}

TEST_F(DatabaseReader, PartsOfAQueryComeInTheirOwnOrder)
{
    AddOrders();
    AddObject("Q", 0x80000001, 5);
    const auto addPart = [&](int attribute, std::uint32_t order, const std::optional<std::string>& table,
                             const std::string& expression) {
        const std::string bigEndian{'\0', '\0', static_cast<char>(order >> 8U), static_cast<char>(order & 0xFFU)};
        file_.Rows[kQueries].push_back({Number(0x80000001), std::string(1, static_cast<char>(attribute)), bigEndian,
                                        table, std::nullopt, Inline(expression), LittleEndian(0, 2)});
    };
    addPart(6, 256, std::nullopt, "Orders.ID");
    addPart(6, 2, std::nullopt, "City");
    addPart(5, 1, "Orders", "");
    const Database database = Read();
    ASSERT_EQ(database.Queries.size(), 1U);
    ASSERT_EQ(database.Queries[0].Columns.size(), 2U);
    EXPECT_EQ(database.Queries[0].Columns[0].Name, "City");
    EXPECT_EQ(database.Queries[0].Columns[1].Name, "ID");
}

TEST_F(DatabaseReader, APartOfAQueryThatIsOfNoKnownKindIsDamage)
{
    AddObject("Q", 0x80000001, 5);
    for (int attribute = 0; attribute < 256; ++attribute) {
        file_.Rows[kQueries] = {{Number(0x80000001), std::string(1, static_cast<char>(attribute)), std::nullopt,
                                 std::nullopt, std::nullopt, std::nullopt, LittleEndian(1, 2)}};
        const bool isKnown = attribute <= 11 || attribute == 255;
        EXPECT_EQ(Complaint(), isKnown ? "" : "a query has a part of no known kind") << attribute;
    }
    file_.Rows[kQueries][0][1] = LittleEndian(0xFFFF, 2);
    EXPECT_EQ(Complaint(), "a query has a part of no known kind");
}

TEST_F(DatabaseReader, AFileWithoutQueriesAndRelationshipsHasNone)
{
    const Database database = Read();
    EXPECT_THAT(database.Queries, IsEmpty());
    EXPECT_THAT(database.Relationships, IsEmpty());
}

TEST_F(DatabaseReader, AFileWhoseObjectsLackATableOfTheEnginesOwnIsDamaged)
{
    for (const std::size_t lost : {0U, 1U, 2U}) {
        const auto whole = file_.Rows[kObjects];
        file_.Rows[kObjects].erase(file_.Rows[kObjects].begin() + static_cast<std::ptrdiff_t>(lost));
        EXPECT_THAT(Complaint(), StartsWith("the list of objects lacks MSys")) << lost;
        file_.Rows[kObjects] = whole;
    }
}

TEST_F(DatabaseReader, AFileWhoseObjectsStandElsewhereIsDamaged)
{
    file_.Rows[kObjects].erase(file_.Rows[kObjects].begin());
    AddObject("MSysObjects", kQueries, 1, kFlagSystem);
    EXPECT_EQ(Complaint(), "the list of objects is not where it says it is");
}

TEST_F(DatabaseReader, ATableThatIsListedAsAnythingElseIsDamage)
{
    for (const std::uint32_t type : {0U, 3U, 5U, 9U, 0x4001U}) {
        const auto whole = file_.Rows[kObjects];
        AddObject("Orders", kOrders, type);
        EXPECT_EQ(Complaint(), "something is listed as what it is not") << type;
        file_.Rows[kObjects] = whole;
    }
}

TEST_F(DatabaseReader, AQueryThatIsListedAsAnythingElseIsDamage)
{
    for (const std::uint32_t type : {3U, 4U, 6U, 0xFFFF8005U}) {
        AddObject("Q", 0x80000001, type);
        file_.Rows[kQueries].push_back({Number(0x80000001), "\x06", std::nullopt, std::nullopt, std::nullopt,
                                        Inline("Orders.ID"), LittleEndian(0, 2)});
        EXPECT_EQ(Complaint(), "something is listed as what it is not") << type;
        file_.Rows[kObjects].pop_back();
        EXPECT_EQ(Complaint(), "") << "parts of a query that is gone";
        file_.Rows[kQueries].clear();
    }
}

TEST_F(DatabaseReader, AFileWithoutObjectsIsDamaged)
{
    file_.Pages.erase(kObjects);
    EXPECT_THROW(static_cast<void>(Read()), Refusal);
}

} // namespace
} // namespace veldrane::jet
