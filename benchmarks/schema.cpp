#include "schema.h"

#include "datasource/ado_types.h"

#include <array>
#include <cctype>
#include <initializer_list>
#include <random>

namespace veldrane::bench {
namespace {

constexpr std::size_t kColumns = 12;
constexpr std::size_t kCompositeKeyEvery = 10;

constexpr ColumnType kNumber{"INTEGER", "integer", "INT", adInteger, 4};
constexpr ColumnType kSmallNumber{"SMALLINT", "smallint", "SMALLINT", adSmallInt, 2};
constexpr ColumnType kAmount{"NUMERIC(10,2)", "numeric(10,2)", "DECIMAL(10,2)", adNumeric, 19};
constexpr ColumnType kMeasure{"DOUBLE", "double precision", "DOUBLE", adDouble, 8};
constexpr ColumnType kLabel{"VARCHAR(50)", "varchar(50)", "VARCHAR(50)", adVarChar, 50};
constexpr ColumnType kNote{"TEXT", "text", "TEXT", adLongVarChar, 65536};
constexpr ColumnType kDay{"DATE", "date", "DATE", adDBDate, 6};
constexpr ColumnType kMoment{"DATETIME", "timestamp", "DATETIME", adDBTimeStamp, 16};
constexpr ColumnType kFlag{"BOOLEAN", "boolean", "BOOLEAN", adBoolean, 2};

// Words are parted by blanks here; the style of a table decides what stands between them.
struct ColumnPattern
{
    std::string_view Words;
    const ColumnType* Type;
    bool Nullable;
    std::string_view Default{};
};

constexpr auto kPatterns = std::to_array<ColumnPattern>({
    {"display name", &kLabel, false},
    {"opened on", &kDay, false},
    {"balance", &kAmount, false, "0"},
    {"comment", &kNote, true},
    {"is closed", &kFlag, false, "0"},
    {"changed at", &kMoment, true},
    {"rank", &kSmallNumber, false, "0"},
    {"street", &kLabel, true},
    {"volume", &kMeasure, true},
    {"pieces", &kNumber, true},
    {"closed on", &kDay, true},
    {"surcharge", &kAmount, true},
    {"needs review", &kFlag, true},
    {"long text", &kNote, true},
    {"entered at", &kMoment, false},
    {"short code", &kLabel, true},
});

constexpr auto kSubjects = std::to_array<std::string_view>({
    "branch",      "driver",      "freight order", "warehouse bin", "route",         "tariff",      "tariff step",
    "consignment", "parcel",      "parcel event",  "vehicle",       "vehicle check", "fuel card",   "customs form",
    "claim",       "claim photo", "work shift",    "depot",         "loading ramp",  "return slip", "cash box",
    "carrier",     "zone",        "insurance",     "pallet",        "pallet type",   "time slot",   "signature",
});

enum class NameStyle
{
    Snake,
    Camel,
    Blanks,
};

std::string Styled(std::string_view words, NameStyle style)
{
    std::string name;
    bool starts = true;
    for (const char c : words) {
        if (c == ' ') {
            if (style != NameStyle::Camel)
                name += style == NameStyle::Snake ? '_' : ' ';
        } else {
            const bool capital = starts && style != NameStyle::Snake;
            name += capital ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        }
        starts = c == ' ';
    }
    return name;
}

std::string Joined(std::initializer_list<std::string_view> words, NameStyle style)
{
    std::string all;
    for (const std::string_view word : words)
        all.append(all.empty() ? "" : " ").append(word);
    return Styled(all, style);
}

class SchemaMaker
{
  public:
    std::vector<SchemaTable> Make(std::size_t tables)
    {
        for (std::size_t at = 0; at < tables; ++at)
            AddTable(at);
        return std::move(tables_);
    }

  private:
    // The engine gives the same numbers everywhere; the library's distributions do not.
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }

    void AddTable(std::size_t at)
    {
        const auto style = static_cast<NameStyle>(at % 3);
        const std::string_view subject = kSubjects[at % kSubjects.size()];
        SchemaTable table;
        table.Name = Joined({subject, std::to_string(at + 1)}, style);
        AddPrimaryKey(table, subject, style, at % kCompositeKeyEvery == kCompositeKeyEvery - 1);
        AddForeignKeys(table, style);
        FillUp(table, style);
        tables_.push_back(std::move(table));
    }

    static void AddPrimaryKey(SchemaTable& table, std::string_view subject, NameStyle style, bool composite)
    {
        if (composite)
            table.PrimaryKey = {Joined({subject, "set"}, style), Joined({subject, "line"}, style)};
        else
            table.PrimaryKey = {Joined({subject, "id"}, style)};
        for (const std::string& name : table.PrimaryKey)
            table.Columns.push_back({.Name = name, .Type = &kNumber});
    }

    void AddForeignKeys(SchemaTable& table, NameStyle style)
    {
        if (tables_.empty())
            return;
        const std::size_t wanted = 1 + Below(2);
        for (std::size_t key = 0; key < wanted; ++key)
            AddForeignKey(table, tables_[Below(tables_.size())], key == 0 ? "owner" : "other", style);
    }

    static void AddForeignKey(SchemaTable& table, const SchemaTable& related, std::string_view role, NameStyle style)
    {
        SchemaForeignKey key{.Columns = {}, .RelatedTable = related.Name, .RelatedColumns = related.PrimaryKey};
        for (std::size_t part = 0; part < related.PrimaryKey.size(); ++part) {
            key.Columns.push_back(Joined({role, part == 0 ? "key" : "line"}, style));
            table.Columns.push_back({.Name = key.Columns.back(), .Type = &kNumber, .Nullable = role == "other"});
        }
        table.ForeignKeys.push_back(std::move(key));
    }

    void FillUp(SchemaTable& table, NameStyle style)
    {
        for (std::size_t at = Below(kPatterns.size()); table.Columns.size() < kColumns; ++at) {
            const ColumnPattern& pattern = kPatterns[at % kPatterns.size()];
            table.Columns.push_back({.Name = Styled(pattern.Words, style),
                                     .Type = pattern.Type,
                                     .Nullable = pattern.Nullable,
                                     .Default = pattern.Default});
        }
    }

    std::mt19937 random_; // NOLINT(cert-msc51-cpp): the same tables every time
    std::vector<SchemaTable> tables_;
};

} // namespace

std::vector<SchemaTable> MakeSchema(std::size_t tables)
{
    return SchemaMaker().Make(tables);
}

SchemaTable MakeWideTable(std::size_t columns)
{
    SchemaTable table{.Name = "Wide", .Columns = {}, .PrimaryKey = {"Wide id"}, .ForeignKeys = {}};
    table.Columns.push_back({.Name = "Wide id", .Type = &kNumber});
    while (table.Columns.size() < columns) {
        const ColumnPattern& pattern = kPatterns[table.Columns.size() % kPatterns.size()];
        const std::string number = std::to_string(table.Columns.size());
        table.Columns.push_back({.Name = Joined({pattern.Words, number}, NameStyle::Blanks),
                                 .Type = pattern.Type,
                                 .Nullable = pattern.Nullable,
                                 .Default = pattern.Default});
    }
    return table;
}

} // namespace veldrane::bench
