#include "datasource/jet/answer_format.h"
#include "datasource/jet/answer_reader.h"
#include "datasource/jet/jet_catalog.h"
#include "fuzz_input.h"
#include "support/scripted_programs.h"
#include "text/characters.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

// An input is what the reader of Jet files may say, whole, and once more as the records between the first line and the
// last.
namespace veldrane {
namespace {

using veldrane::testing::Require;
using veldrane::testing::ScriptedPrograms;

std::optional<JetAnswer> Read(std::string_view text)
{
    try {
        return ReadJetAnswer(text);
    } catch (const RuntimeError& error) {
        Require(error.Number == error_number::kInvalidCall, "an answer is refused as 5");
        Require(error.Description().starts_with("line "), "a refusal names the line");
        Require(text::IsWellFormed(error.Description()) && error.Description().find('\n') == std::string::npos,
                "a refusal repeats nothing of the answer");
        return std::nullopt;
    }
}

// Puts records together, as the reader of Jet files has to.
class Writer
{
  public:
    void Line(std::string_view word, const std::vector<std::string>& fields)
    {
        text_ += word;
        for (const std::string& field : fields)
            Append(field);
        text_ += '\n';
    }

    void Columns(const std::vector<CatalogField>& columns)
    {
        for (const CatalogField& column : columns) {
            CheckColumn(column);
            Line(jet_answer::kColumn,
                 {column.Name, std::to_string(column.Type), std::to_string(column.DefinedSize),
                  std::to_string(column.Attributes), Flag(column.IsAutoIncrement, jet_answer::kAuto)});
        }
    }

    void Table(const JetTable& table)
    {
        Line(jet_answer::kTable, {table.Name, table.Type});
        Columns(table.Columns);
        for (const CatalogIndex& index : table.Indexes) {
            Line(jet_answer::kIndex,
                 {index.Name, Flag(index.PrimaryKey, jet_answer::kPrimary), Flag(index.Unique, jet_answer::kUnique)});
            for (const std::string& column : index.Columns)
                Line(jet_answer::kIndexColumn, {column});
        }
    }

    void Query(const JetQuery& query)
    {
        const bool isView = query.Kind == JetQueryKind::View;
        Line(jet_answer::kQuery, {query.Name, std::string(isView ? jet_answer::kView : jet_answer::kProcedure)});
        Columns(query.Columns);
    }

    void Relationship(const JetRelationship& relationship)
    {
        Line(jet_answer::kRelationship, {relationship.Key.Name, relationship.Table, relationship.Key.RelatedTable});
        for (const CatalogKeyColumn& column : relationship.Key.Columns)
            Line(jet_answer::kRelationshipColumn, {column.Name, column.RelatedColumn});
    }

    [[nodiscard]] const std::string& Text() const { return text_; }

  private:
    static std::string Flag(bool isSet, std::string_view word) { return std::string(isSet ? word : jet_answer::kNot); }

    static void CheckColumn(const CatalogField& column)
    {
        Require(!column.Name.empty(), "a column has a name");
        Require(column.Type > 0 && column.Type <= 205, "a column has a type");
        Require(column.DefinedSize >= 0, "a size is not negative");
        Require((column.Attributes & ~96) == 0, "attributes tell of Null alone");
    }

    void Append(const std::string& field)
    {
        text_ += '\t';
        for (const char c : field)
            switch (c) {
            case '\t':
                text_ += "\\t";
                break;
            case '\n':
                text_ += "\\n";
                break;
            case '\r':
                text_ += "\\r";
                break;
            case '\\':
                text_ += "\\\\";
                break;
            default:
                text_ += c;
            }
    }

    std::string text_;
};

std::string Written(const JetAnswer& answer)
{
    Writer writer;
    writer.Line(jet_answer::kFirstLine, {});
    if (const auto* refusal = std::get_if<JetRefusal>(&answer)) {
        writer.Line(jet_answer::kRefused, {refusal->Reason, refusal->Words});
    } else {
        const auto& database = std::get<JetDatabase>(answer);
        for (const JetTable& table : database.Tables)
            writer.Table(table);
        for (const JetQuery& query : database.Queries)
            writer.Query(query);
        for (const JetRelationship& relationship : database.Relationships)
            writer.Relationship(relationship);
    }
    writer.Line(jet_answer::kEnd, {});
    return writer.Text();
}

std::ptrdiff_t LinesOf(std::string_view text)
{
    return std::count(text.begin(), text.end(), '\n');
}

template <class Question>
void CheckKnown(Question&& question, bool mayFail)
{
    try {
        question();
    } catch (const DataSourceError& error) {
        Require(mayFail && error.Number == data_source_error::kFailed, "a table that is listed is known");
    }
}

void CheckCatalog(std::string_view text)
{
    ScriptedPrograms programs;
    programs.Outcome.Output = text;
    const auto file = std::make_shared<JetFile>(programs, JetReaderOptions{}, JetLogon{});
    JetCatalog catalog(file);
    for (const CatalogTable& table : catalog.Tables()) {
        Require(table.Type != jet_answer::kLinkedTable, "no linked table is shown");
        CheckKnown([&] { static_cast<void>(catalog.Columns(table.Name)); }, true);
        CheckKnown([&] { static_cast<void>(catalog.Fields("SELECT * FROM [" + table.Name + "] WHERE 1=0")); }, true);
        CheckKnown([&] { static_cast<void>(catalog.Indexes(table.Name)); }, false);
        CheckKnown([&] { static_cast<void>(catalog.Keys(table.Name)); }, false);
    }
}

void Check(std::string_view text)
{
    const std::optional<JetAnswer> answer = Read(text);
    if (!answer)
        return;
    const std::string written = Written(*answer);
    const std::optional<JetAnswer> again = Read(written);
    Require(again.has_value(), "an answer can be written anew");
    Require(Written(*again) == written, "an answer that is written anew says the same");
    Require(LinesOf(written) == LinesOf(text), "no record is lost or made");
    Require(!Read(text.substr(0, text.size() - 1)), "an answer is read only when it is whole");
    if (std::holds_alternative<JetDatabase>(*answer))
        CheckCatalog(text);
}

} // namespace
} // namespace veldrane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace veldrane;
    const std::string_view text = testing::TextOf(data, size);
    Check(text);
    Check(std::string(jet_answer::kFirstLine).append("\n").append(text).append(jet_answer::kEnd).append("\n"));
    return 0;
}
