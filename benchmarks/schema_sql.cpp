#include "schema_sql.h"

#include <array>
#include <string>
#include <string_view>

namespace veldrane::bench {
namespace {

struct DialectWords
{
    std::string_view ColumnType::*Type;
    char Quote;
    std::string_view Numbered; // all that is said of a primary key that the database numbers by itself
    std::string_view Opening;
    std::string_view Closing;
};

// In the order of the enumeration.
constexpr auto kDialects = std::to_array<DialectWords>({
    {&ColumnType::InSqlite, '"', "INTEGER PRIMARY KEY AUTOINCREMENT", "BEGIN;\n", "COMMIT;\n"},
    {&ColumnType::InPostgreSql, '"', "serial PRIMARY KEY", "", "VACUUM ANALYZE;\n"},
    {&ColumnType::InMariaDb, '`', "INT AUTO_INCREMENT PRIMARY KEY", "", ""},
});

class SqlWriter
{
  public:
    SqlWriter(std::ostream& out, Dialect dialect) : out_(out), words_(kDialects.at(static_cast<std::size_t>(dialect)))
    {}

    void Write(const std::vector<SchemaTable>& schema)
    {
        out_ << words_.Opening;
        for (const SchemaTable& table : schema)
            WriteTable(table);
        out_ << words_.Closing;
    }

  private:
    std::ostream& Name(const std::string& name) { return out_ << words_.Quote << name << words_.Quote; }

    void WriteNames(const std::vector<std::string>& names)
    {
        for (const std::string& name : names) {
            out_ << (&name == &names.front() ? "" : ", ");
            Name(name);
        }
    }

    void WriteColumn(const SchemaColumn& column, bool numbered)
    {
        Name(column.Name) << ' ';
        if (numbered)
            out_ << words_.Numbered;
        else
            out_ << column.Type->*words_.Type << (column.Nullable ? "" : " NOT NULL");
        if (!column.Default.empty())
            out_ << " DEFAULT '" << column.Default << '\'';
    }

    void WriteTable(const SchemaTable& table)
    {
        out_ << "CREATE TABLE ";
        Name(table.Name) << " (\n";
        for (const SchemaColumn& column : table.Columns) {
            const bool isFirst = &column == &table.Columns.front();
            out_ << (isFirst ? "    " : ",\n    ");
            WriteColumn(column, isFirst && table.IsNumbered());
        }
        if (!table.IsNumbered()) {
            out_ << ",\n    PRIMARY KEY (";
            WriteNames(table.PrimaryKey);
            out_ << ')';
        }
        for (const SchemaForeignKey& key : table.ForeignKeys)
            WriteForeignKey(key);
        out_ << "\n);\n";
    }

    void WriteForeignKey(const SchemaForeignKey& key)
    {
        out_ << ",\n    FOREIGN KEY (";
        WriteNames(key.Columns);
        out_ << ") REFERENCES ";
        Name(key.RelatedTable) << " (";
        WriteNames(key.RelatedColumns);
        out_ << ')';
    }

    std::ostream& out_;
    const DialectWords& words_;
};

} // namespace

void WriteSql(std::ostream& out, const std::vector<SchemaTable>& schema, Dialect dialect)
{
    SqlWriter(out, dialect).Write(schema);
}

} // namespace veldrane::bench
