#include "shell/project_properties/logging_table_script.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

TEST(LoggingTableScript, IsWholeForItsTable)
{
    EXPECT_EQ(LoggingTableScript("Journal"),
              "CREATE TABLE [dbo].[Journal] (\r\n"
              "\t[IDTransaction] [int] IDENTITY (1, 1) NOT NULL ,\r\n"
              "\t[TransactionXML] [text] NOT NULL ,\r\n"
              "\t[RecordedOn] [datetime] NOT NULL ,\r\n"
              "\t[ByUser] [varchar] (20) NULL ,\r\n"
              "\t[Complete] [tinyint] NOT NULL ,\r\n"
              "\t[ErrorText] [text] NULL\r\n"
              ") ON [PRIMARY] TEXTIMAGE_ON [PRIMARY]\r\n"
              "GO\r\n"
              "\r\n"
              "ALTER TABLE [dbo].[Journal] WITH NOCHECK ADD\r\n"
              "\tCONSTRAINT [DF_Journal_TransactionXML] DEFAULT ('<Empty>') FOR [TransactionXML],\r\n"
              "\tCONSTRAINT [DF_Journal_RecordedOn] DEFAULT (getdate()) FOR [RecordedOn],\r\n"
              "\tCONSTRAINT [DF_Journal_Complete] DEFAULT (0) FOR [Complete],\r\n"
              "\tCONSTRAINT [IX_JournalID] UNIQUE  NONCLUSTERED\r\n"
              "\t(\r\n"
              "\t\t[IDTransaction]\r\n"
              "\t)  ON [PRIMARY]\r\n"
              "GO\r\n"
              "\r\n"
              "CREATE  INDEX [IX_JournalRecordedOn] ON [dbo].[Journal]([RecordedOn]) ON [PRIMARY]\r\n"
              "GO\r\n");
}

TEST(LoggingTableScript, IsCutAtItsLinesGo)
{
    const auto batches = Batches(LoggingTableScript("Journal"));
    ASSERT_EQ(batches.size(), 3U);
    EXPECT_THAT(batches[0], StartsWith("CREATE TABLE [dbo].[Journal]"));
    EXPECT_THAT(batches[1], StartsWith("ALTER TABLE"));
    EXPECT_THAT(batches[2], StartsWith("CREATE  INDEX"));
    for (const std::string& batch : batches)
        EXPECT_THAT(batch, Not(HasSubstr("GO\r\n")));
}

TEST(LoggingTableScript, KeepsWhatOnlyBeginsAsTheWordThatDividesIt)
{
    EXPECT_THAT(Batches("GOTO x\r\nGO\r\n\r\nGO\r\nlast"), ElementsAre("GOTO x\r\n", "last\r\n"));
    EXPECT_THAT(Batches(""), IsEmpty());
    EXPECT_THAT(Batches("GO\r\n"), IsEmpty());
}

} // namespace
} // namespace veldrane
