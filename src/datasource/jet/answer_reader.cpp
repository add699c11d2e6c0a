#include "datasource/jet/answer_reader.h"

#include "datasource/ado_types.h"
#include "datasource/jet/answer_format.h"
#include "text/characters.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>

namespace veldrane {
namespace {

using Fields = std::vector<std::string>; // behind the word of the record

constexpr std::array kTableTypes{jet_answer::kPlainTable, jet_answer::kSystemTable, jet_answer::kProgramTable,
                                 jet_answer::kLinkedTable};

constexpr std::array kReasons{jet_answer::kMissing,    jet_answer::kNotAFile, jet_answer::kUnreachable,
                              jet_answer::kUnreadable, jet_answer::kFailing,  jet_answer::kNotJet,
                              jet_answer::kAce,        jet_answer::kPassword, jet_answer::kCodePage,
                              jet_answer::kDamaged};

// Far more than thousands of tables take. A record costs many times its bytes here.
constexpr std::ptrdiff_t kMostRecords = 1000000;

// The types that columns of Jet files have.
constexpr std::array kColumnTypes{
    adSmallInt, adInteger, adSingle,  adDouble,   adCurrency,  adDate,         adBoolean,       adGUID,
    adBinary,   adWChar,   adNumeric, adVarWChar, adVarBinary, adLongVarWChar, adLongVarBinary, adUnsignedTinyInt};

constexpr std::int32_t kAnyAttributes = field_attribute::kIsNullable | field_attribute::kMayBeNull;

// Thrown without the line, which the reader of lines knows.
struct NoAnswer
{
    std::string Reason;
};

template <class Range, class Value>
bool Holds(const Range& range, const Value& value)
{
    return std::find(range.begin(), range.end(), value) != range.end();
}

char Unescaped(char c)
{
    switch (c) {
    case 't':
        return '\t';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case '\\':
        return '\\';
    default:
        throw NoAnswer{"a backslash with a letter that means nothing"};
    }
}

std::string TextOfField(std::string_view field)
{
    if (!text::IsWellFormed(field) || field.find('\0') != std::string_view::npos ||
        field.find('\r') != std::string_view::npos)
        throw NoAnswer{"a field that is no text"};
    std::string value;
    for (std::size_t at = 0; at < field.size(); ++at) {
        if (field[at] != '\\')
            value += field[at];
        else if (++at < field.size())
            value += Unescaped(field[at]);
        else
            throw NoAnswer{"a backslash at the end of a field"};
    }
    return value;
}

const std::string& NameOf(const std::string& field)
{
    if (field.empty() || field.size() > jet_answer::kMostNameBytes)
        throw NoAnswer{"a name that is empty or too long"};
    return field;
}

// None of the numbers is negative.
std::int32_t NumberOf(const std::string& field)
{
    std::int32_t number = -1;
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, number);
    if (error != std::errc() || stop != end || number < 0)
        throw NoAnswer{"a number that is none, or out of range"};
    return number;
}

bool FlagOf(const std::string& field, std::string_view word)
{
    if (field != word && field != jet_answer::kNot)
        throw NoAnswer{"neither \"" + std::string(word) + "\" nor \"-\""};
    return field == word;
}

CatalogField FieldOf(const Fields& fields)
{
    CatalogField column{.Name = NameOf(fields[0]),
                        .Type = NumberOf(fields[1]),
                        .DefinedSize = NumberOf(fields[2]),
                        .Attributes = NumberOf(fields[3]),
                        .IsAutoIncrement = FlagOf(fields[4], jet_answer::kAuto)};
    if (!Holds(kColumnTypes, column.Type))
        throw NoAnswer{"a type that no column has"};
    if ((column.Attributes & ~kAnyAttributes) != 0)
        throw NoAnswer{"attributes that no column has"};
    return column;
}

JetQueryKind KindOf(const std::string& field)
{
    if (field != jet_answer::kView && field != jet_answer::kProcedure)
        throw NoAnswer{"a query of another kind"};
    return field == jet_answer::kView ? JetQueryKind::View : JetQueryKind::Procedure;
}

// Takes record after record.
class AnswerReader
{
  public:
    void Take(std::string_view line);
    [[nodiscard]] bool AtEnd() const { return ended_; }
    [[nodiscard]] JetAnswer TakeAnswer();

  private:
    struct Kind
    {
        std::string_view Word;
        std::size_t FieldCount;
        void (AnswerReader::*Take)(const Fields& fields);
    };

    // Where records belong that follow; null where none of the kind may.
    struct Owner
    {
        std::vector<CatalogField>* Columns = nullptr;
        std::vector<CatalogIndex>* Indexes = nullptr;
        std::vector<std::string>* IndexColumns = nullptr;
        std::vector<CatalogKeyColumn>* KeyColumns = nullptr;
    };

    static const std::array<Kind, 9> kKinds;

    void TakeTable(const Fields& fields);
    void TakeColumn(const Fields& fields);
    void TakeIndex(const Fields& fields);
    void TakeIndexColumn(const Fields& fields);
    void TakeQuery(const Fields& fields);
    void TakeRelationship(const Fields& fields);
    void TakeRelationshipColumn(const Fields& fields);
    void TakeRefusal(const Fields& fields);
    void TakeEnd(const Fields& fields);

    JetDatabase database_;
    std::optional<JetRefusal> refusal_;
    Owner above_;
    bool begun_ = false;
    bool hasRecords_ = false;
    bool ended_ = false;
};

const std::array<AnswerReader::Kind, 9> AnswerReader::kKinds{
    Kind{jet_answer::kTable, 2, &AnswerReader::TakeTable},
    Kind{jet_answer::kColumn, 5, &AnswerReader::TakeColumn},
    Kind{jet_answer::kIndex, 3, &AnswerReader::TakeIndex},
    Kind{jet_answer::kIndexColumn, 1, &AnswerReader::TakeIndexColumn},
    Kind{jet_answer::kQuery, 2, &AnswerReader::TakeQuery},
    Kind{jet_answer::kRelationship, 3, &AnswerReader::TakeRelationship},
    Kind{jet_answer::kRelationshipColumn, 2, &AnswerReader::TakeRelationshipColumn},
    Kind{jet_answer::kRefused, 2, &AnswerReader::TakeRefusal},
    Kind{jet_answer::kEnd, 0, &AnswerReader::TakeEnd},
};

void AnswerReader::Take(std::string_view line)
{
    if (ended_)
        throw NoAnswer{"something behind the end"};
    if (!begun_) {
        begun_ = line == jet_answer::kFirstLine;
        if (!begun_)
            throw NoAnswer{"not the first line of an answer"};
        return;
    }
    Fields fields;
    for (const std::string_view field : text::Split(line, "\t"))
        fields.push_back(TextOfField(field));
    const std::string word = fields.front();
    fields.erase(fields.begin());
    const auto kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& each) { return each.Word == word; });
    if (kind == kKinds.end())
        throw NoAnswer{"a record of no known kind"};
    if (fields.size() != kind->FieldCount)
        throw NoAnswer{"a record with another number of fields"};
    if (refusal_ && kind->Word != jet_answer::kEnd)
        throw NoAnswer{"something behind a refusal"};
    (this->*kind->Take)(fields);
    hasRecords_ = true;
}

void AnswerReader::TakeTable(const Fields& fields)
{
    if (!Holds(kTableTypes, fields[1]))
        throw NoAnswer{"a table of another type"};
    JetTable& table = database_.Tables.emplace_back();
    table.Name = NameOf(fields[0]);
    table.Type = fields[1];
    above_ = {.Columns = &table.Columns, .Indexes = &table.Indexes};
}

void AnswerReader::TakeColumn(const Fields& fields)
{
    if (above_.Columns == nullptr)
        throw NoAnswer{"a column of nothing"};
    above_.Columns->push_back(FieldOf(fields));
}

void AnswerReader::TakeIndex(const Fields& fields)
{
    if (above_.Indexes == nullptr)
        throw NoAnswer{"an index of nothing"};
    CatalogIndex& index = above_.Indexes->emplace_back();
    index.Name = NameOf(fields[0]);
    index.PrimaryKey = FlagOf(fields[1], jet_answer::kPrimary);
    index.Unique = FlagOf(fields[2], jet_answer::kUnique);
    above_.IndexColumns = &index.Columns;
}

void AnswerReader::TakeIndexColumn(const Fields& fields)
{
    if (above_.IndexColumns == nullptr)
        throw NoAnswer{"a column of no index"};
    above_.IndexColumns->push_back(NameOf(fields[0]));
}

void AnswerReader::TakeQuery(const Fields& fields)
{
    JetQuery& query = database_.Queries.emplace_back();
    query.Name = NameOf(fields[0]);
    query.Kind = KindOf(fields[1]);
    above_ = {.Columns = &query.Columns};
}

void AnswerReader::TakeRelationship(const Fields& fields)
{
    JetRelationship& relationship = database_.Relationships.emplace_back();
    relationship.Key.Name = NameOf(fields[0]);
    relationship.Table = NameOf(fields[1]);
    relationship.Key.RelatedTable = NameOf(fields[2]);
    above_ = {.KeyColumns = &relationship.Key.Columns};
}

void AnswerReader::TakeRelationshipColumn(const Fields& fields)
{
    if (above_.KeyColumns == nullptr)
        throw NoAnswer{"a column of no relationship"};
    above_.KeyColumns->push_back({.Name = NameOf(fields[0]), .RelatedColumn = NameOf(fields[1])});
}

void AnswerReader::TakeRefusal(const Fields& fields)
{
    if (hasRecords_)
        throw NoAnswer{"a refusal behind something else"};
    if (!Holds(kReasons, fields[0]))
        throw NoAnswer{"a refusal for no known reason"};
    refusal_ = {.Reason = fields[0], .Words = fields[1]};
}

void AnswerReader::TakeEnd(const Fields&)
{
    ended_ = true;
}

JetAnswer AnswerReader::TakeAnswer()
{
    if (refusal_)
        return std::move(*refusal_);
    return std::move(database_);
}

} // namespace

JetAnswer ReadJetAnswer(std::string_view text)
{
    if (std::count(text.begin(), text.end(), '\n') > kMostRecords)
        return JetRefusal{.Reason = std::string(jet_answer::kDamaged), .Words = "it lists more than any file holds"};
    AnswerReader reader;
    std::size_t line = 0;
    try {
        while (!text.empty()) {
            ++line;
            const std::size_t end = text.find('\n');
            if (end == std::string_view::npos)
                throw NoAnswer{"a line without an end"};
            reader.Take(text.substr(0, end));
            text.remove_prefix(end + 1);
        }
        if (!reader.AtEnd())
            throw NoAnswer{"no end"};
    } catch (const NoAnswer& failure) {
        throw RuntimeError(error_number::kInvalidCall, "JetAnswer",
                           "line " + std::to_string(line) + ": " + failure.Reason);
    }
    return reader.TakeAnswer();
}

} // namespace veldrane
