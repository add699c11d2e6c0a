#include "datasource/jet/answer_format.h"
#include "fuzz_input.h"
#include "jet/answer_writer.h"
#include "jet/bytes.h"
#include "jet/database_reader.h"
#include "jet/header_page.h"
#include "jet/refusal.h"
#include "text/characters.h"
#include "text/strings.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>

// An input is a file's beginning, and a small file too: a byte whose lowest bit is the version, then pages of 256
// bytes. The rows of the table that is defined on a page stand 16 pages behind it: how many cells a row has, then the
// cells, each with its length before it, 255 for null; a row that would begin with an empty cell is behind the last. A
// stored piece goes on to the end of its page.
namespace veldrane {
namespace {

using namespace jet_answer;
using veldrane::testing::Require;

constexpr std::size_t kPageSize = 256;
constexpr std::uint32_t kRowsBehind = 16;
constexpr std::uint8_t kNull = 255;

class SmallFile : public jet::JetFile
{
  public:
    explicit SmallFile(std::string_view input)
        : version_((input.empty() ? 0 : input[0] & 1) == 0 ? jet::Version::Jet3 : jet::Version::Jet4),
          text_(version_, 1252), pages_(input.substr(std::min<std::size_t>(1, input.size())))
    {}

    [[nodiscard]] jet::Version FileVersion() const override { return version_; }
    [[nodiscard]] const jet::TextDecoder& Text() const override { return text_; }

    [[nodiscard]] std::string Page(std::uint32_t number) override
    {
        const std::size_t at = number * kPageSize;
        if (at >= pages_.size())
            throw jet::Damaged("not there");
        return std::string(pages_.substr(at, kPageSize));
    }

    void ForEachRow(std::uint32_t definitionPage, const std::function<void(const jet::Cells&)>& take) override
    {
        const std::string page = Page(definitionPage + kRowsBehind);
        const std::size_t cellsOfARow = jet::Bytes(page).U8(0);
        jet::Cells cells;
        for (std::size_t at = 1; at < page.size() && (!cells.empty() || page[at] != '\0');) {
            cells.push_back(TakeCell(page, at));
            if (cells.size() < cellsOfARow)
                continue;
            take(cells);
            cells.clear();
        }
    }

    [[nodiscard]] std::string StoredPiece(std::uint32_t place) override
    {
        const std::string page = Page(place / 256);
        return page.substr(std::min<std::size_t>(place % 256, page.size()));
    }

  private:
    static std::optional<std::string_view> TakeCell(const std::string& page, std::size_t& at)
    {
        const std::uint8_t size = jet::Bytes(page).U8(at++);
        if (size == kNull)
            return std::nullopt;
        const std::string_view cell = jet::Bytes(page).Slice(at, size);
        at += size;
        return cell;
    }

    jet::Version version_;
    jet::TextDecoder text_;
    std::string_view pages_;
};

// The number of fields of each record, and the records that it may stand under.
struct RecordRule
{
    std::size_t Fields;
    std::string_view Under;
};

const std::map<std::string_view, RecordRule> kRecords{
    {kTable, {2, ""}},
    {kColumn, {5, "table query"}},
    {kIndex, {3, "table"}},
    {kIndexColumn, {1, "index"}},
    {kQuery, {2, ""}},
    {kRelationship, {3, ""}},
    {kRelationshipColumn, {2, "relationship"}},
};

void CheckAnswer(const std::string& answer)
{
    Require(text::IsWellFormed(answer), "an answer is UTF-8");
    const auto lines = text::Split(answer, "\n");
    Require(lines.size() >= 3 && lines.front() == kFirstLine && lines[lines.size() - 2] == kEnd && lines.back().empty(),
            "an answer is whole");
    std::string_view object;
    std::string_view part;
    for (auto line = lines.begin() + 1; line != lines.end() - 2; ++line) {
        const auto fields = text::Split(*line, "\t");
        const auto rule = kRecords.find(fields[0]);
        Require(rule != kRecords.end() && fields.size() == rule->second.Fields + 1, "a record has its fields");
        const std::string_view under = rule->second.Under;
        if (under.empty())
            object = fields[0];
        Require(under.empty() || under.find(object) != under.npos || under == part, "a record stands under its owner");
        part = fields[0] == kIndexColumn ? part : fields[0];
    }
}

void CheckColumns(const std::vector<jet::Column>& columns)
{
    Require(columns.size() <= 255, "nothing has more than 255 columns");
    for (const jet::Column& column : columns) {
        Require(column.DefinedSize >= 0 && column.AdoType > 0, "a column has a type and a size");
        Require(column.Attributes == 0 || column.Attributes == 96, "a column may be null or not");
    }
}

void CheckTable(const jet::Table& table)
{
    CheckColumns(table.Columns);
    for (const jet::Index& index : table.Indexes)
        for (const std::string& name : index.Columns)
            Require(std::any_of(table.Columns.begin(), table.Columns.end(),
                                [&](const jet::Column& column) { return column.Name == name; }),
                    "an index has columns of its table");
}

void CheckHeader(std::string_view input)
{
    try {
        const jet::HeaderPage header = jet::ReadHeaderPage(input);
        Require(input.size() >= jet::PageSize(header.FileVersion), "a header is a whole page");
        jet::CheckPassword(header, header.Password);
    } catch (const jet::Refusal& refusal) {
        Require(refusal.Reason() == kNotJet || refusal.Reason() == kAce || refusal.Reason() == kDamaged,
                "a header is refused for a reason of its own");
    }
}

void CheckFile(std::string_view input)
{
    try {
        SmallFile file(input);
        const jet::Database database = jet::ReadDatabase(file);
        std::for_each(database.Tables.begin(), database.Tables.end(), CheckTable);
        for (const jet::Query& query : database.Queries)
            CheckColumns(query.Columns);
        for (const jet::Relationship& relationship : database.Relationships)
            Require(!relationship.Columns.empty(), "a relationship has columns");
        CheckAnswer(jet::AnswerOf(database));
    } catch (const jet::Refusal& refusal) {
        Require(refusal.Reason() == kDamaged, "a file without a header is read or damaged");
    }
}

} // namespace
} // namespace veldrane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input = veldrane::testing::TextOf(data, size);
    veldrane::CheckHeader(input);
    veldrane::CheckFile(input);
    return 0;
}
