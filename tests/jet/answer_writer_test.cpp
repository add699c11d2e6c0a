#include "jet/answer_writer.h"

#include <gtest/gtest.h>

namespace veldrane::jet {
namespace {

TEST(AnswerWriter, TellsEverythingARecordALine)
{
    const Database database{
        .Tables = {{.Name = "Orders",
                    .Type = "TABLE",
                    .Columns = {{.Name = "ID", .AdoType = 3, .DefinedSize = 4, .Attributes = 96, .AutoNumber = true},
                                {.Name = "City", .AdoType = 202, .DefinedSize = 50}},
                    .Indexes = {{.Name = "PrimaryKey", .Primary = true, .Unique = true, .Columns = {"ID", "City"}},
                                {.Name = "ByCity", .Columns = {"City"}}}},
                   {.Name = "Far", .Type = "LINK"}},
        .Queries = {{.Name = "Cities",
                     .Kind = QueryKind::View,
                     .Columns = {{.Name = "City", .AdoType = 202, .DefinedSize = 50}}},
                    {.Name = "Clean", .Kind = QueryKind::Procedure}},
        .Relationships = {{.Name = "R1",
                           .Table = "Orders",
                           .RelatedTable = "Towns",
                           .Columns = {{.Column = "City", .RelatedColumn = "Name"}}}}};
    EXPECT_EQ(AnswerOf(database), "veldrane-jet 1\n"
                                  "table\tOrders\tTABLE\n"
                                  "column\tID\t3\t4\t96\tauto\n"
                                  "column\tCity\t202\t50\t0\t-\n"
                                  "index\tPrimaryKey\tprimary\tunique\n"
                                  "index column\tID\n"
                                  "index column\tCity\n"
                                  "index\tByCity\t-\t-\n"
                                  "index column\tCity\n"
                                  "table\tFar\tLINK\n"
                                  "query\tCities\tview\n"
                                  "column\tCity\t202\t50\t0\t-\n"
                                  "query\tClean\tprocedure\n"
                                  "relationship\tR1\tOrders\tTowns\n"
                                  "relationship column\tCity\tName\n"
                                  "end\n");
}

TEST(AnswerWriter, NamesCantEndAFieldOrALine)
{
    const Database database{.Tables = {{.Name = "a\tb\nc\rd\\e", .Type = "TABLE"}}};
    EXPECT_EQ(AnswerOf(database), "veldrane-jet 1\n"
                                  "table\ta\\tb\\nc\\rd\\\\e\tTABLE\n"
                                  "end\n");
}

TEST(AnswerWriter, ANameThatIsNoneIsDamage)
{
    for (const std::string& name : {std::string(), std::string(1025, 'x'), std::string("a\0b", 3)})
        for (const Database& database :
             {Database{.Tables = {{.Name = name, .Type = "TABLE"}}},
              Database{.Tables = {{.Name = "T", .Type = "TABLE", .Columns = {{.Name = name}}}}},
              Database{.Tables = {{.Name = "T", .Type = "TABLE", .Indexes = {{.Name = name}}}}},
              Database{.Queries = {{.Name = name}}},
              Database{.Relationships = {{.Name = name, .Table = "T", .RelatedTable = "U"}}},
              Database{.Relationships = {{.Name = "R", .Table = "T", .RelatedTable = name}}}})
            EXPECT_THROW(static_cast<void>(AnswerOf(database)), Refusal) << name.size();
    EXPECT_NO_THROW(static_cast<void>(AnswerOf({.Queries = {{.Name = std::string(1024, 'x')}}})));
}

TEST(AnswerWriter, ARefusalStandsAlone)
{
    EXPECT_EQ(AnswerOf(Damaged("page 7\nis not there")), "veldrane-jet 1\n"
                                                         "refused\tdamaged\tpage 7\\nis not there\n"
                                                         "end\n");
    EXPECT_EQ(AnswerOf(Refusal(jet_answer::kAce)), "veldrane-jet 1\nrefused\tace\t\nend\n");
}

} // namespace
} // namespace veldrane::jet
