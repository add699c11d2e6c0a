#include "datasource/jet/answer_reader.h"

#include "datasource/ado_types.h"
#include "datasource/jet/answer_format.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::string Answer(const std::string& records)
{
    return "veldrane-jet 1\n" + records + "end\n";
}

JetDatabase DatabaseIn(const std::string& records)
{
    return std::get<JetDatabase>(ReadJetAnswer(Answer(records)));
}

// What is said of a text that is no answer, "" of one that is.
std::string ComplaintOf(const std::string& text)
{
    try {
        static_cast<void>(ReadJetAnswer(text));
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, error_number::kInvalidCall);
        return error.Description();
    }
    return "";
}

const std::string kOrders = "table\tOrders\tTABLE\n"
                            "column\tID\t3\t4\t0\tauto\n"
                            "column\tCustomer\t202\t50\t96\t-\n"
                            "index\tPrimaryKey\tprimary\tunique\n"
                            "index column\tID\n"
                            "index\tByCustomer\t-\t-\n"
                            "index column\tCustomer\n"
                            "index column\tID\n";

TEST(JetAnswer, OfAnEmptyFileHoldsNothing)
{
    const JetDatabase database = DatabaseIn("");
    EXPECT_THAT(database.Tables, IsEmpty());
    EXPECT_THAT(database.Queries, IsEmpty());
    EXPECT_THAT(database.Relationships, IsEmpty());
}

TEST(JetAnswer, TellsTablesWithColumnsAndIndexes)
{
    const JetDatabase database = DatabaseIn(kOrders + "table\tMSysACEs\tSYSTEM TABLE\n");
    ASSERT_THAT(database.Tables, SizeIs(2));
    const JetTable& orders = database.Tables[0];
    EXPECT_EQ(orders.Name, "Orders");
    EXPECT_EQ(orders.Type, "TABLE");
    ASSERT_THAT(orders.Columns, SizeIs(2));
    EXPECT_EQ(orders.Columns[0].Name, "ID");
    EXPECT_EQ(orders.Columns[0].Type, adInteger);
    EXPECT_EQ(orders.Columns[0].DefinedSize, 4);
    EXPECT_EQ(orders.Columns[0].Attributes, 0);
    EXPECT_TRUE(orders.Columns[0].IsAutoIncrement);
    EXPECT_EQ(orders.Columns[1].Attributes, field_attribute::kIsNullable | field_attribute::kMayBeNull);
    EXPECT_FALSE(orders.Columns[1].IsAutoIncrement);
    ASSERT_THAT(orders.Indexes, SizeIs(2));
    EXPECT_EQ(orders.Indexes[0].Name, "PrimaryKey");
    EXPECT_TRUE(orders.Indexes[0].PrimaryKey);
    EXPECT_TRUE(orders.Indexes[0].Unique);
    EXPECT_FALSE(orders.Indexes[1].PrimaryKey);
    EXPECT_THAT(orders.Indexes[1].Columns, ElementsAre("Customer", "ID"));
    EXPECT_EQ(database.Tables[1].Type, "SYSTEM TABLE");
    EXPECT_THAT(database.Tables[1].Columns, IsEmpty());
}

TEST(JetAnswer, TellsQueriesWithTheirColumns)
{
    const JetDatabase database = DatabaseIn("query\tOpen\tview\n"
                                            "column\tCustomer\t202\t50\t96\t-\n"
                                            "query\tPurge\tprocedure\n");
    ASSERT_THAT(database.Queries, SizeIs(2));
    EXPECT_EQ(database.Queries[0].Name, "Open");
    EXPECT_EQ(database.Queries[0].Kind, JetQueryKind::View);
    ASSERT_THAT(database.Queries[0].Columns, SizeIs(1));
    EXPECT_EQ(database.Queries[1].Kind, JetQueryKind::Procedure);
}

TEST(JetAnswer, TellsRelationshipsWithTheirColumns)
{
    const JetDatabase database = DatabaseIn("relationship\tLinesOrders\tLines\tOrders\n"
                                            "relationship column\tOrderID\tID\n"
                                            "relationship column\tYear\tYear\n");
    ASSERT_THAT(database.Relationships, SizeIs(1));
    const JetRelationship& relationship = database.Relationships[0];
    EXPECT_EQ(relationship.Table, "Lines");
    EXPECT_EQ(relationship.Key.Name, "LinesOrders");
    EXPECT_EQ(relationship.Key.Type, catalog_key_type::kForeign);
    EXPECT_EQ(relationship.Key.RelatedTable, "Orders");
    ASSERT_THAT(relationship.Key.Columns, SizeIs(2));
    EXPECT_EQ(relationship.Key.Columns[0].Name, "OrderID");
    EXPECT_EQ(relationship.Key.Columns[0].RelatedColumn, "ID");
}

TEST(JetAnswer, TakesNamesWithTabsAndLineBreaks)
{
    EXPECT_EQ(DatabaseIn("table\ta\\tb\\nc\\rd\\\\e\tTABLE\n").Tables.at(0).Name, "a\tb\nc\rd\\e");
    EXPECT_EQ(DatabaseIn("table\tGröße 表\tTABLE\n").Tables.at(0).Name, "Größe 表");
}

TEST(JetAnswer, TellsWhyAFileIsNotRead)
{
    const auto refusal = std::get<JetRefusal>(ReadJetAnswer(Answer("refused\tdamaged\tpage 7 is beyond the end\n")));
    EXPECT_EQ(refusal.Reason, "damaged");
    EXPECT_EQ(refusal.Words, "page 7 is beyond the end");
    EXPECT_EQ(std::get<JetRefusal>(ReadJetAnswer(Answer("refused\tpassword\t\n"))).Words, "");
}

TEST(JetAnswer, HasToBeWhole)
{
    const std::string whole = Answer(kOrders + "query\tOpen\tview\nrelationship\ta\tb\tc\n");
    EXPECT_EQ(ComplaintOf(whole), "");
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_NE(ComplaintOf(whole.substr(0, size)), "") << size;
    EXPECT_EQ(ComplaintOf(""), "line 0: no end");
    EXPECT_EQ(ComplaintOf(whole + "end\n"), "line 13: something behind the end");
    EXPECT_EQ(ComplaintOf(whole.substr(0, whole.size() - 1)), "line 12: a line without an end");
}

TEST(JetAnswer, BeginsWithItsVersion)
{
    EXPECT_EQ(ComplaintOf("veldrane-jet 2\nend\n"), "line 1: not the first line of an answer");
    EXPECT_EQ(ComplaintOf("\nend\n"), "line 1: not the first line of an answer");
    EXPECT_EQ(ComplaintOf("end\n"), "line 1: not the first line of an answer");
}

struct Nonsense
{
    const char* Records;
    const char* Complaint;
};

const Nonsense kNonsense[] = {
    {"\n", "line 2: a record of no known kind"},
    {"trigger\tx\n", "line 2: a record of no known kind"},
    {"Table\tx\tTABLE\n", "line 2: a record of no known kind"},
    {"table\tx\n", "line 2: a record with another number of fields"},
    {"table\tx\tTABLE\t\n", "line 2: a record with another number of fields"},
    {"end\t\n", "line 2: a record with another number of fields"},
    {"table\tx\tVIEW\n", "line 2: a table of another type"},
    {"table\t\tTABLE\n", "line 2: a name that is empty or too long"},
    {"query\tx\tmacro\n", "line 2: a query of another kind"},
    {"column\tx\t3\t4\t0\t-\n", "line 2: a column of nothing"},
    {"index\tx\t-\t-\n", "line 2: an index of nothing"},
    {"query\tx\tview\nindex\tx\t-\t-\n", "line 3: an index of nothing"},
    {"table\tx\tTABLE\nindex column\tx\n", "line 3: a column of no index"},
    {"table\tx\tTABLE\nindex\ty\t-\t-\ntable\tz\tTABLE\nindex column\tx\n", "line 5: a column of no index"},
    {"table\tx\tTABLE\nrelationship column\tx\ty\n", "line 3: a column of no relationship"},
    {"relationship\tx\ty\tz\ncolumn\tx\t3\t4\t0\t-\n", "line 3: a column of nothing"},
    {"table\tx\tTABLE\nindex\ty\tunique\t-\n", "line 3: neither \"primary\" nor \"-\""},
    {"table\tx\tTABLE\nindex\ty\t-\tprimary\n", "line 3: neither \"unique\" nor \"-\""},
    {"table\tx\tTABLE\ncolumn\ty\t3\t4\t0\t\n", "line 3: neither \"auto\" nor \"-\""},
    {"table\tx\tTABLE\ncolumn\ty\t20\t4\t0\t-\n", "line 3: a type that no column has"},
    {"table\tx\tTABLE\ncolumn\ty\t0\t4\t0\t-\n", "line 3: a type that no column has"},
    {"table\tx\tTABLE\ncolumn\ty\t3\t-1\t0\t-\n", "line 3: a number that is none, or out of range"},
    {"table\tx\tTABLE\ncolumn\ty\t3\t2147483648\t0\t-\n", "line 3: a number that is none, or out of range"},
    {"table\tx\tTABLE\ncolumn\ty\t3\t4 \t0\t-\n", "line 3: a number that is none, or out of range"},
    {"table\tx\tTABLE\ncolumn\ty\t3\t\t0\t-\n", "line 3: a number that is none, or out of range"},
    {"table\tx\tTABLE\ncolumn\ty\t3\t0x4\t0\t-\n", "line 3: a number that is none, or out of range"},
    {"table\tx\tTABLE\ncolumn\ty\t3\t4\t1\t-\n", "line 3: attributes that no column has"},
    {"table\tx\tTABLE\ncolumn\ty\t3\t4\t128\t-\n", "line 3: attributes that no column has"},
    {"table\tx\\y\tTABLE\n", "line 2: a backslash with a letter that means nothing"},
    {"table\tx\\\tTABLE\n", "line 2: a backslash at the end of a field"},
    {"table\tx\xFF\tTABLE\n", "line 2: a field that is no text"},
    {"table\tx\ry\tTABLE\n", "line 2: a field that is no text"},
    {"refused\tboredom\t\n", "line 2: a refusal for no known reason"},
    {"refused\tdamaged\t\nrefused\tdamaged\t\n", "line 3: something behind a refusal"},
    {"refused\tdamaged\t\ntable\tx\tTABLE\n", "line 3: something behind a refusal"},
    {"table\tx\tTABLE\nrefused\tdamaged\t\n", "line 3: a refusal behind something else"},
};

TEST(JetAnswer, RefusesWhatHasNotItsForm)
{
    for (const Nonsense& nonsense : kNonsense)
        EXPECT_EQ(ComplaintOf(Answer(nonsense.Records)), nonsense.Complaint) << nonsense.Records;
}

TEST(JetAnswer, RefusesNamesThatNoFileCanHold)
{
    EXPECT_EQ(ComplaintOf(Answer("table\t" + std::string(jet_answer::kMostNameBytes, 'x') + "\tTABLE\n")), "");
    EXPECT_EQ(ComplaintOf(Answer("table\t" + std::string(jet_answer::kMostNameBytes + 1, 'x') + "\tTABLE\n")),
              "line 2: a name that is empty or too long");
    EXPECT_EQ(ComplaintOf(Answer(std::string("table\tx\0y\tTABLE\n", 16))), "line 2: a field that is no text");
}

TEST(JetAnswer, OfMoreRecordsThanAnyFileHasIsOfADamagedOne)
{
    constexpr std::string_view kRecord = "query\tx\tview\n";
    std::string records;
    for (int i = 0; i < 1000000; ++i)
        records += kRecord;
    const auto refusal = std::get<JetRefusal>(ReadJetAnswer(Answer(records)));
    EXPECT_EQ(refusal.Reason, "damaged");
    EXPECT_EQ(refusal.Words, "it lists more than any file holds");
    EXPECT_EQ(ComplaintOf(std::string(1000000, '\n')), "line 1: not the first line of an answer");
}

TEST(JetAnswer, TakesTheLargestSizeOfAColumn)
{
    EXPECT_EQ(DatabaseIn("query\tx\tview\ncolumn\ty\t203\t2147483647\t96\t-\n").Queries[0].Columns[0].DefinedSize,
              2147483647);
}

} // namespace
} // namespace veldrane
