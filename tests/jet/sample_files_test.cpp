#include "veldrane_jet.h"

#include "support/child_process.h"
#include "support/random_numbers.h"
#include "support/sample_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <iostream>
#include <string>

namespace veldrane {
namespace {

using testing::ContentOf;
using ::testing::HasSubstr;
using testing::IsWhole;
using testing::RandomNumbers;
using testing::ReaderOutcome;
using testing::ReasonOf;
using testing::RunReader;
using testing::ScratchFolder;

// Jet files that do not come with the project.
class SampleJetFiles : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        if (folder_.empty())
            GTEST_SKIP() << testing::kNoSampleData;
    }

    [[nodiscard]] std::string Path(const std::string& name) const { return folder_ + name; }

    [[nodiscard]] std::string AnswerFor(const std::string& name, const std::string& password = "") const
    {
        const ReaderOutcome outcome = RunReader(Path(name), password);
        EXPECT_EQ(ReasonOf(outcome), "") << name;
        return outcome.Answer;
    }

    [[nodiscard]] std::string ReasonFor(const std::string& name, const std::string& password = "") const
    {
        return ReasonOf(RunReader(Path(name), password));
    }

  private:
    std::string folder_ = testing::SampleDataFolder("jet");
};

TEST_F(SampleJetFiles, AProtectedFileIsReadWithItsPasswordAlone)
{
    const std::string name = "indexTestV2003-password.mdb";
    for (const std::string wrong : {"", "geheim", "GEHEIM ß", "geheim ß\n", "geheim \xDF"})
        EXPECT_EQ(ReasonFor(name, wrong), "password") << wrong;
    EXPECT_EQ(ReasonFor(name, std::string(1U << 20U, 'x')), "password");
    EXPECT_EQ(AnswerFor(name, "geheim ß"), AnswerFor("indexTestV2003.mdb"));
}

TEST_F(SampleJetFiles, AnEncipheredFileIsReadAsAnyOther)
{
    EXPECT_EQ(AnswerFor("indexTestV2003-encoded.mdb"), AnswerFor("indexTestV2003.mdb", "whatever is given"));
}

TEST_F(SampleJetFiles, FilesOfTheLaterEngineAreRefusedAsSuch)
{
    EXPECT_EQ(ReasonFor("linkerTestV2007.accdb"), "ace");
    EXPECT_EQ(ReasonFor("unsupportedFieldsTestV2007.accdb"), "ace");
}

TEST_F(SampleJetFiles, FilesThatRunOtherReadersOutOfMemoryAreRefusedAsDamaged)
{
    EXPECT_EQ(ReasonFor("test2V1997-truncated.mdb"), "damaged");
    EXPECT_EQ(ReasonFor("test2V1997-damaged-hang.mdb"), "damaged");
}

TEST_F(SampleJetFiles, NoPrimaryKeyIsLostWhereIndexesWereDropped)
{
    const std::string answer = AnswerFor("testIndexPropertiesV2003.mdb");
    for (const char* table : {"TableIgnoreNulls1", "TableIgnoreNulls1_temp", "TableIgnoreNulls2",
                              "TableIgnoreNulls2_temp", "TableUnique1_temp", "TableUnique2_temp"}) {
        const std::size_t at = answer.find("table\t" + std::string(table) + "\tTABLE\n");
        ASSERT_NE(at, std::string::npos) << table;
        EXPECT_THAT(answer.substr(at, answer.find("\ntable\t", at) - at),
                    HasSubstr("index\tPrimaryKey\tprimary\tunique\nindex column\trow"))
            << table;
    }
}

TEST_F(SampleJetFiles, QueriesAreToldWithTheColumnsOfViews)
{
    for (const char* name : {"queryTestV1997.mdb", "queryTestV2003.mdb"}) {
        const std::string answer = AnswerFor(name);
        EXPECT_THAT(answer, HasSubstr("query\tSelectQuery\tview\n"
                                      "column\tTable1.col1\t202\t50\t96\t-\n"
                                      "column\tTable1.col2\t202\t50\t96\t-\n"
                                      "column\tTable1.col3\t202\t50\t96\t-\n"
                                      "column\tTable2.col1\t202\t50\t96\t-\n"
                                      "column\tTable2.col2\t202\t50\t96\t-\n"
                                      "column\tTable3.col3\t202\t50\t96\t-\nquery\t"))
            << name;
        EXPECT_THAT(answer, HasSubstr("query\tUnionQuery\tview\nquery\t")) << name;
        EXPECT_THAT(answer, HasSubstr("query\tPassthroughQuery\tprocedure\n")) << name;
    }
}

// The content with one bit of a byte turned.
std::string Flipped(std::string content, std::size_t at, int bit)
{
    content.at(at) = static_cast<char>(content.at(at) ^ (1 << bit));
    return content;
}

// A bit of the table that lists everything makes no file empty, nor one without queries or foreign keys.
TEST_F(SampleJetFiles, WithABitOfTheListOfObjectsFlippedTheyAreDamaged)
{
    struct Flip
    {
        const char* File;
        std::size_t At;
    };
    constexpr std::size_t kObjectsPage = std::size_t{2} * 4096;
    constexpr auto kFlips = std::to_array<Flip>({{"indexTestV2003.mdb", kObjectsPage + 0xF3},
                                                 {"indexTestV2003.mdb", kObjectsPage + 0x170},
                                                 {"indexTestV2003.mdb", kObjectsPage + 0x1A2},
                                                 {"queryTestV2003.mdb", 0xEDDB},
                                                 {"indexTestV2003.mdb", 0xED7A}});
    const ScratchFolder folder;
    for (const Flip& flip : kFlips) {
        const std::string content = Flipped(ContentOf(Path(flip.File)), flip.At, 0);
        EXPECT_EQ(ReasonOf(RunReader(folder.Write("flipped.mdb", content))), "damaged") << flip.File << " " << flip.At;
    }
}

// The first page of rows of the table that lists everything.
std::size_t PageOfObjects(const std::string& content, std::size_t pageSize)
{
    const std::string begin{'\1', '\1'};
    const std::string owner{'\2', '\0', '\0', '\0'};
    std::size_t at = 0;
    while (content.compare(at, 2, begin) != 0 || content.compare(at + 4, 4, owner) != 0)
        at += pageSize;
    return at;
}

TEST_F(SampleJetFiles, ARowThatStartsElsewhereIsDamage)
{
    struct Flip
    {
        const char* File;
        std::size_t At;
        int Bit;
    };
    constexpr std::size_t kObjectsOfJet3 = std::size_t{18} * 2048;
    constexpr std::size_t kPartsOfJet3 = std::size_t{35} * 2048;
    constexpr std::size_t kObjectsOfJet4 = std::size_t{14} * 4096;
    constexpr auto kFlips = std::to_array<Flip>({{"indexTestV1997.mdb", kObjectsOfJet3 + 0x34, 0},
                                                 {"indexTestV1997.mdb", kObjectsOfJet3 + 0x34, 4},
                                                 {"indexTestV1997.mdb", kObjectsOfJet3 + 0x44, 0},
                                                 {"queryTestV1997.mdb", kPartsOfJet3 + 0x1C, 4},
                                                 {"queryTestV1997.mdb", kPartsOfJet3 + 0x28, 5},
                                                 {"testIndexPropertiesV2003.mdb", kObjectsOfJet4 + 0x4A, 1}});
    const ScratchFolder folder;
    for (const Flip& flip : kFlips)
        EXPECT_THAT(
            RunReader(folder.Write("flipped.mdb", Flipped(ContentOf(Path(flip.File)), flip.At, flip.Bit))).Answer,
            HasSubstr("refused\tdamaged\t"))
            << flip.File << " " << flip.At << " " << flip.Bit;
}

// The bit makes a column of a view a part that no query has.
TEST_F(SampleJetFiles, APartOfAQueryThatIsOfNoKnownKindIsDamage)
{
    constexpr std::size_t kAttributeOfAColumn = std::size_t{35} * 2048 + 0x60C;
    const ScratchFolder folder;
    const std::string flipped = Flipped(ContentOf(Path("queryTestV1997.mdb")), kAttributeOfAColumn, 7);
    EXPECT_THAT(RunReader(folder.Write("flipped.mdb", flipped)).Answer,
                HasSubstr("refused\tdamaged\ta query has a part of no known kind\n"));
}

TEST_F(SampleJetFiles, NoBitOfThePlacesOfRowsLosesAnything)
{
    constexpr std::size_t kPlaces = std::size_t{18} * 2048 + 10;
    constexpr std::size_t kRows = 30;
    const ScratchFolder folder;
    const std::string whole = ContentOf(Path("indexTestV1997.mdb"));
    const std::string answer = AnswerFor("indexTestV1997.mdb");
    for (std::size_t bit = 0; bit < kRows * 16; ++bit) {
        const ReaderOutcome outcome =
            RunReader(folder.Write("flipped.mdb", Flipped(whole, kPlaces + bit / 8, static_cast<int>(bit % 8))));
        EXPECT_TRUE(outcome.Answer == answer || ReasonOf(outcome) == "damaged") << bit << " " << outcome.Code;
    }
}

TEST_F(SampleJetFiles, ARowThatStandsAmongThePlacesOfRowsIsDamage)
{
    struct Layout
    {
        const char* File;
        std::size_t PageSize;
        std::size_t CountAt;
    };
    constexpr const char* kDisorder = "refused\tdamaged\ta row is in disorder\n";
    const ScratchFolder folder;
    for (const Layout& layout : {Layout{"indexTestV1997.mdb", 2048, 8}, Layout{"indexTestV2003.mdb", 4096, 12}}) {
        const std::string whole = ContentOf(Path(layout.File));
        const std::size_t countAt = PageOfObjects(whole, layout.PageSize) + layout.CountAt;
        std::string count = whole;
        count.replace(countAt, 2, "\xFF\x03");
        EXPECT_THAT(RunReader(folder.Write("count.mdb", count)).Answer, HasSubstr(kDisorder)) << layout.File;
        std::string start = whole;
        start.replace(countAt + 2, 2, std::string{static_cast<char>(layout.CountAt), '\0'});
        EXPECT_THAT(RunReader(folder.Write("start.mdb", start)).Answer, HasSubstr(kDisorder)) << layout.File;
    }
}

TEST_F(SampleJetFiles, NamesAreOfTheFilesCodePage)
{
    const std::string japanese = "\x93\xFA\x96{\x8C\xEA"; // as many bytes as the name in its place
    std::string content = ContentOf(Path("testV1997.mdb"));
    for (std::size_t at = 0; (at = content.find("Table1", at)) != std::string::npos;)
        content.replace(at, japanese.size(), japanese);
    constexpr std::size_t kCodePageAt = 0x3C; // where the file has it enciphered, as one byte after the other
    for (std::size_t i = 0; i < 2; ++i)
        content[kCodePageAt + i] = static_cast<char>(content[kCodePageAt + i] ^ ((1252 ^ 932) >> (8 * i) & 0xFF));
    const ScratchFolder folder;
    const ReaderOutcome outcome = RunReader(folder.Write("japanese.mdb", content));
    EXPECT_EQ(ReasonOf(outcome), "");
    EXPECT_THAT(outcome.Answer, HasSubstr("\ntable\t日本語\tTABLE\ncolumn\tA\t"));
}

TEST_F(SampleJetFiles, CutAnywhereTheyEndInAnAnswer)
{
    const ScratchFolder folder;
    const std::string whole = ContentOf(Path("queryTestV1997.mdb"));
    const std::string answer = AnswerFor("queryTestV1997.mdb");
    for (std::size_t size = 0; size < whole.size(); size += 1021) {
        const ReaderOutcome outcome = RunReader(folder.Write("cut.mdb", whole.substr(0, size)));
        EXPECT_EQ(outcome.Code, 0) << size;
        EXPECT_TRUE(IsWhole(outcome.Answer)) << size;
        EXPECT_TRUE(outcome.Answer == answer || !ReasonOf(outcome).empty()) << size << " loses something";
        if (size < 2048) {
            EXPECT_EQ(ReasonOf(outcome), size < 0x15 ? "not-jet" : "damaged") << size;
        }
    }
}

// The last page with rows of the list of objects, of which the cut leaves the places of the rows alone.
TEST_F(SampleJetFiles, APageThatIsNotWholeIsNotThere)
{
    constexpr std::size_t kLastObjects = std::size_t{45} * 2048;
    const ScratchFolder folder;
    const std::string whole = ContentOf(Path("queryTestV1997.mdb"));
    for (const std::size_t size : {kLastObjects, kLastObjects + 250, kLastObjects + 2047})
        EXPECT_THAT(RunReader(folder.Write("cut.mdb", whole.substr(0, size))).Answer,
                    HasSubstr("refused\tdamaged\tpage 45 is not there\n"))
            << size;
}

// The last page with properties of tables.
TEST_F(SampleJetFiles, ALongValueOnAPageThatIsNotWholeIsNotThere)
{
    constexpr std::size_t kLastProperties = std::size_t{68} * 4096;
    const ScratchFolder folder;
    const std::string whole = ContentOf(Path("indexTestV2003.mdb"));
    for (const std::size_t size : {kLastProperties, kLastProperties + 250, kLastProperties + 4095})
        EXPECT_THAT(RunReader(folder.Write("cut.mdb", whole.substr(0, size))).Answer,
                    HasSubstr("refused\tdamaged\tpage 68 is not there\n"))
            << size;
}

// Which pages are the list of objects', told by bits on a page of their own behind all others.
TEST_F(SampleJetFiles, TheMapOfATablesPagesMayStandOnAPageOfItsOwn)
{
    struct Map
    {
        const char* File;
        std::size_t PageSize;
        std::size_t At;
        std::size_t Size;
    };
    constexpr std::size_t kBitsOnPage = 4;
    const ScratchFolder folder;
    for (const Map& map : {Map{"indexTestV1997.mdb", 2048, 0x377B, 133}, Map{"indexTestV2003.mdb", 4096, 0x6FBB, 69}}) {
        std::string content = ContentOf(Path(map.File));
        const std::size_t pages = content.size() / map.PageSize;
        const std::string before = content.substr(map.At, map.Size);
        ASSERT_EQ(before.substr(0, 5), std::string(5, '\0')) << "bits that begin with page 0";
        content.replace(map.At, map.Size,
                        std::string{'\1', static_cast<char>(pages)} + std::string(map.Size - 2, '\0'));
        EXPECT_THAT(RunReader(folder.Write("map.mdb", content)).Answer,
                    HasSubstr("refused\tdamaged\tpage " + std::to_string(pages) + " is not there\n"))
            << map.File;
        std::string page{'\5', '\1'};
        page.resize(map.PageSize);
        page.replace(kBitsOnPage, map.Size - 5, before, 5, map.Size - 5);
        EXPECT_EQ(RunReader(folder.Write("map.mdb", content + page)).Answer, AnswerFor(map.File)) << map.File;
    }
}

// How readings of damaged files ended.
struct Ends
{
    int Answers = 0;
    int Refusals = 0;
    int Limits = 0;
    int Crashes = 0;
    int Others = 0; // what must not be: half an answer, a refusal that says nothing of damage

    void Count(const ReaderOutcome& outcome)
    {
        const std::string reason = ReasonOf(outcome);
        if (outcome.Code == testing::kKilled + SIGXCPU || outcome.Code == testing::kKilled + SIGKILL)
            ++Limits;
        else if (outcome.Code > testing::kKilled)
            ++Crashes;
        else if (reason.empty())
            ++Answers;
        else if (reason == "damaged" || reason == "password" || reason == "code-page") // that of the header's own bytes
            ++Refusals;
        else
            ++Others;
    }

    friend std::ostream& operator<<(std::ostream& out, const Ends& ends)
    {
        return out << ends.Answers << " answers, " << ends.Refusals << " refusals, " << ends.Limits << " at a limit, "
                   << ends.Crashes << " crashes of the reader, " << ends.Others << " others";
    }
};

// libmdb may fall over such a file; what counts is that it does so alone, at once and seldom.
TEST_F(SampleJetFiles, WithBitsFlippedTheyEndInAnAnswerOrAtALimit)
{
    constexpr auto kFiles = std::to_array<const char*>(
        {"indexTestV1997.mdb", "testIndexPropertiesV2003.mdb", "queryTestV2003.mdb", "testV1997.mdb"});
    constexpr auto kFlips = std::to_array<std::size_t>({1, 10, 100, 1000});
    constexpr int kVariants = 200;
    const ScratchFolder folder;
    RandomNumbers numbers(20);
    Ends ends;
    for (int variant = 0; variant < kVariants; ++variant) {
        std::string content = ContentOf(Path(numbers.Pick(kFiles)));
        for (std::size_t flips = numbers.Pick(kFlips); flips > 0; --flips) {
            char& byte = content[24 + numbers.Below(content.size() - 24)];
            byte = static_cast<char>(byte ^ (1 << numbers.Below(8)));
        }
        const ReaderOutcome outcome = RunReader(folder.Write("flipped.mdb", content));
        EXPECT_EQ(IsWhole(outcome.Answer), outcome.Code == 0) << variant;
        ends.Count(outcome);
    }
    std::cout << ends << '\n';
    EXPECT_EQ(ends.Others, 0) << ends;
    EXPECT_LE(ends.Limits + ends.Crashes, kVariants / 100) << ends;
    EXPECT_GT(ends.Answers, 0) << ends;
    EXPECT_GT(ends.Refusals, 0) << ends;
}

} // namespace
} // namespace veldrane
