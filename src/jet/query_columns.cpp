#include "jet/query_columns.h"

#include "datasource/jet/answer_format.h"
#include "jet/column_reference.h"
#include "jet/column_types.h"
#include "jet/refusal.h"
#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace veldrane::jet {
namespace {

// The attributes of the parts of a query that count here.
constexpr int kKind = 1;      // Flag
constexpr int kParameter = 2; // Name1
constexpr int kOptions = 3;   // Flag
constexpr int kSource = 5;    // Name1: a table or query; Name2: its name in this one; Expression: where else it is
constexpr int kOutput = 6;    // Expression; Name1: its name

constexpr int kNoKind = 0;
constexpr int kSelect = 1;
constexpr int kUnion = 9;
constexpr int kOther = 10;

// The kinds by bits 4 to 7 of the object's flags: a crosstab, delete, update, append, make-table, definition and
// pass-through query stand between these two; behind them a pass-through query that gives no rows. The engine's
// reference has a compound query, a procedure and an action at the places from 10 on, and not what their parts say.
constexpr std::array kKinds{kSelect, 6, 5, 4, 3, 2, 7, 8, kUnion, 8, kOther, kNoKind, kNoKind, kNoKind, kOther, kOther};

constexpr int kAllColumns = 0x01; // of the options: behind the outputs, all columns of all sources

// The engine's own limits for what a query gives, and for queries that stand on one another.
constexpr std::size_t kColumnsAtMost = 255;
constexpr int kLevelsAtMost = 50;

constexpr std::size_t kFirstExpression = 1000;

using Parts = std::vector<QueryPart>;
using KnownColumns = std::optional<std::vector<Column>>;

bool IsOfKind(int told, int kind)
{
    return kind == kOther ? told < kSelect || told > kUnion : told == kind;
}

// The flags tell it even where the parts are lost.
int KindOf(const Object& query, const Parts& parts)
{
    const int kind = kKinds[query.Flags >> 4U & 0x0FU];
    if (kind == kNoKind)
        throw Damaged("a query is of no known kind");
    if (std::any_of(parts.begin(), parts.end(),
                    [&](const QueryPart& part) { return part.Attribute == kKind && !IsOfKind(part.Flag, kind); }))
        throw Damaged("a query is of two kinds");
    return kind;
}

bool HasParameters(const Parts& parts)
{
    return std::any_of(parts.begin(), parts.end(), [](const QueryPart& part) { return part.Attribute == kParameter; });
}

bool IsView(const Object& query, const Parts& parts)
{
    const int kind = KindOf(query, parts);
    return (kind == kSelect || kind == kUnion) && !HasParameters(parts);
}

struct Source
{
    std::string Name;
    KnownColumns Columns;
};

struct Output
{
    Column Described;
    std::string Source; // which tells it from others of its name; "" if it has a name of its own
};

// The outputs of one select query, from its parts and what its sources give.
class Outputs
{
  public:
    explicit Outputs(std::vector<Source> sources) : sources_(std::move(sources)) {}

    void Add(const QueryPart& part)
    {
        const auto reference = ReadColumnReference(part.Expression);
        if (reference && reference->AllColumns)
            AddAll(reference->Source);
        else
            AddOne(part, reference);
    }

    // All columns of one source, or of every one if no name is given.
    void AddAll(std::string_view name = {})
    {
        bool isFound = false;
        for (const Source& source : sources_) {
            if (!name.empty() && !text::EqualFolded(source.Name, name))
                continue;
            isFound = true;
            isKnown_ = isKnown_ && source.Columns.has_value();
            for (const Column& column : source.Columns.value_or(std::vector<Column>()))
                Append({.Described = column, .Source = source.Name});
        }
        isKnown_ = isKnown_ && isFound;
    }

    [[nodiscard]] KnownColumns Columns() const
    {
        if (!isKnown_)
            return std::nullopt;
        std::map<std::string, int> uses;
        for (const Output& output : outputs_)
            ++uses[text::Fold(output.Described.Name)];
        std::vector<Column> columns;
        for (const Output& output : outputs_) {
            columns.push_back(output.Described);
            if (output.Source.empty() || uses[text::Fold(output.Described.Name)] == 1)
                continue;
            columns.back().Name = output.Source + "." + output.Described.Name;
            if (columns.back().Name.size() > jet_answer::kMostNameBytes)
                return std::nullopt;
        }
        return columns;
    }

  private:
    void Append(Output output)
    {
        isKnown_ = isKnown_ && outputs_.size() < kColumnsAtMost;
        if (isKnown_)
            outputs_.push_back(std::move(output));
    }

    void AddOne(const QueryPart& part, const std::optional<ColumnReference>& reference)
    {
        auto output = reference ? Find(*reference) : std::nullopt;
        if (!output)
            output =
                Output{.Described = DescribeExpression("Expr" + std::to_string(kFirstExpression + outputs_.size()))};
        if (!part.Name1.empty())
            *output = {.Described = Named(output->Described, part.Name1)};
        Append(std::move(*output));
    }

    static Column Named(Column column, const std::string& name)
    {
        column.Name = name;
        return column;
    }

    [[nodiscard]] std::optional<Output> Find(const ColumnReference& reference) const
    {
        for (const Source& source : sources_) {
            if (!source.Columns || (!reference.Source.empty() && !text::EqualFolded(source.Name, reference.Source)))
                continue;
            const auto found = std::find_if(source.Columns->begin(), source.Columns->end(), [&](const Column& column) {
                return text::EqualFolded(column.Name, reference.Name);
            });
            if (found != source.Columns->end())
                return Output{.Described = *found, .Source = source.Name};
        }
        return std::nullopt;
    }

    std::vector<Source> sources_;
    std::vector<Output> outputs_;
    bool isKnown_ = true;
};

// What the tables and queries of a file give.
class Givers
{
  public:
    using PartsById = std::map<std::int32_t, Parts>;

    Givers(const std::vector<Object>& objects, const PartsById& parts, const std::vector<Table>& tables) : parts_(parts)
    {
        for (const Table& table : tables)
            tables_.emplace(text::Fold(table.Name), &table);
        std::vector<const Object*> queries;
        for (const Object& object : objects)
            if (object.Type == kQueryObject) {
                queries_.emplace(text::Fold(object.Name), &object);
                queries.push_back(&object);
            }
        WorkOutAll(std::move(queries));
    }

    [[nodiscard]] const Parts& PartsOf(const Object& query) const
    {
        static const Parts kNone;
        const auto found = parts_.find(query.Id);
        return found == parts_.end() ? kNone : found->second;
    }

    [[nodiscard]] KnownColumns ColumnsOf(const Object& query) const
    {
        const auto known = known_.find(query.Id);
        return known == known_.end() ? std::nullopt : known->second;
    }

  private:
    // Level by level: each stands on tables and on the levels below it. What stands on itself is on no level.
    void WorkOutAll(std::vector<const Object*> left)
    {
        for (int level = 0; level < kLevelsAtMost && !left.empty(); ++level) {
            const auto ready = std::stable_partition(left.begin(), left.end(),
                                                     [&](const Object* query) { return !StandsOnKnown(*query); });
            for (auto query = ready; query != left.end(); ++query)
                known_.emplace((*query)->Id, WorkOut(**query));
            left.erase(ready, left.end());
        }
    }

    [[nodiscard]] bool StandsOnKnown(const Object& query) const
    {
        const Parts& parts = PartsOf(query);
        return std::all_of(parts.begin(), parts.end(), [&](const QueryPart& part) {
            const Object* below = part.Attribute == kSource ? QueryOf(part) : nullptr;
            return below == nullptr || known_.contains(below->Id);
        });
    }

    [[nodiscard]] KnownColumns WorkOut(const Object& query) const
    {
        const Parts& parts = PartsOf(query);
        if (!IsView(query, parts) || KindOf(query, parts) != kSelect)
            return std::nullopt;
        std::vector<Source> sources;
        for (const QueryPart& part : parts)
            if (part.Attribute == kSource)
                sources.push_back(
                    {.Name = part.Name2.empty() ? part.Name1 : part.Name2, .Columns = ColumnsOfSource(part)});
        Outputs outputs(std::move(sources));
        bool takesAll = false;
        for (const QueryPart& part : parts) {
            if (part.Attribute == kOutput)
                outputs.Add(part);
            takesAll = takesAll || (part.Attribute == kOptions && (part.Flag & kAllColumns) != 0);
        }
        if (takesAll)
            outputs.AddAll();
        return outputs.Columns();
    }

    [[nodiscard]] KnownColumns ColumnsOfSource(const QueryPart& source) const
    {
        if (const Table* table = TableOf(source))
            return table->Columns.empty() ? std::nullopt : KnownColumns(table->Columns);
        const Object* query = QueryOf(source);
        return query == nullptr ? std::nullopt : ColumnsOf(*query);
    }

    // What a source is, null if it is something else or lies in another file. A table is found before a query.
    [[nodiscard]] const Table* TableOf(const QueryPart& source) const
    {
        const auto table = tables_.find(text::Fold(source.Name1));
        return table == tables_.end() || !source.Expression.empty() ? nullptr : table->second;
    }

    [[nodiscard]] const Object* QueryOf(const QueryPart& source) const
    {
        const auto query = queries_.find(text::Fold(source.Name1));
        const bool isQuery = query != queries_.end() && source.Expression.empty() && TableOf(source) == nullptr;
        return isQuery ? query->second : nullptr;
    }

    const PartsById& parts_;
    std::map<std::string, const Table*> tables_;
    std::map<std::string, const Object*> queries_;
    std::map<std::int32_t, KnownColumns> known_;
};

} // namespace

std::vector<Query> DescribeQueries(const std::vector<Object>& objects,
                                   const std::map<std::int32_t, std::vector<QueryPart>>& parts,
                                   const std::vector<Table>& tables)
{
    const Givers givers(objects, parts, tables);
    std::vector<Query> queries;
    for (const Object& object : objects) {
        if (object.Type != kQueryObject || object.Name.starts_with('~'))
            continue;
        Query query{.Name = object.Name,
                    .Kind = IsView(object, givers.PartsOf(object)) ? QueryKind::View : QueryKind::Procedure};
        if (auto columns = givers.ColumnsOf(object))
            query.Columns = std::move(*columns);
        queries.push_back(std::move(query));
    }
    return queries;
}

} // namespace veldrane::jet
