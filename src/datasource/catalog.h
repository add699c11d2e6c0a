#pragma once

#include "datasource/data_source_error.h"
#include "model/stored_procedures.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// A table-like object: "TABLE", "VIEW", "SYSTEM TABLE", "SYSTEM VIEW" or a word of the data source's own.
struct CatalogTable
{
    std::string Name;
    std::string Type;
    std::size_t SchemaSize = 0; // bytes in front of the table's own name: its schema and the point behind that
    std::string WithSchema{};   // of a table that goes by its own name: the name with its schema, "" if it has none
};

// Bits of CatalogField::Attributes (the published ADO FieldAttributeEnum).
namespace field_attribute {
inline constexpr std::int32_t kIsNullable = 32;
inline constexpr std::int32_t kMayBeNull = 64;
} // namespace field_attribute

// A field of an opened table.
struct CatalogField
{
    std::string Name;
    std::int32_t Type = 0;        // ADO DataTypeEnum
    std::int32_t DefinedSize = 0; // characters for text, bytes otherwise
    std::int32_t Attributes = 0;
    bool IsAutoIncrement = false;
};

// A column of a table's definition.
struct CatalogColumn
{
    std::string Name;
    std::int32_t Type = 0; // ADO DataTypeEnum
};

struct CatalogIndex
{
    std::string Name;
    bool PrimaryKey = false;
    bool Unique = false;
    std::vector<std::string> Columns; // in the key's order
};

// Values of CatalogKey::Type (the published ADOX KeyTypeEnum).
namespace catalog_key_type {
inline constexpr std::int32_t kPrimary = 1;
inline constexpr std::int32_t kForeign = 2;
inline constexpr std::int32_t kUnique = 3;
} // namespace catalog_key_type

struct CatalogKeyColumn
{
    std::string Name;
    std::string RelatedColumn;
};

// A key of a table; foreign keys are those of the table itself.
struct CatalogKey
{
    std::string Name;
    std::int32_t Type = catalog_key_type::kForeign;
    std::string RelatedTable;
    std::vector<CatalogKeyColumn> Columns; // in the key's order
};

// A parameter of a stored procedure. One that the data source gives no name is called "RETURN_VALUE" if it is the
// return value, else "arg1", "arg2" and so on by its place. Its `DataType` is SQL Server's word for the type where it
// has one, for the rules know those words alone; `IsNullable` is set where the data source does not know.
struct CatalogParameter
{
    std::string ProcedureName;
    SPParameter Parameter;
};

// What a data source holds. A catalog lives for one operation: what it has read it keeps, so the answers of one object
// agree with each other, and a new object sees the data source as it is now. Names of tables are those that Tables()
// gives; others are looked up without regard to case where the data source does so.
//
// Every member throws ReadingCancelled where whoever watches the reading ends it; what was read by then is lost. Every
// member throws DataSourceError: kNotSupported where the data source can't answer such a question at all,
// kTableUnknown for a table that it does not have, kNoOpenConnection when the connection is gone.
class Catalog
{
  public:
    virtual ~Catalog() = default;

    // Every table-like object, in the data source's own order.
    [[nodiscard]] virtual const std::vector<CatalogTable>& Tables() = 0;

    // The fields that a statement of the form "SELECT * FROM name WHERE 1=0" opens, `name` plain or in brackets. No
    // row is read.
    [[nodiscard]] virtual std::vector<CatalogField> Fields(const std::string& statement) = 0;

    // The columns of a table's definition.
    [[nodiscard]] virtual std::vector<CatalogColumn> Columns(const std::string& table) = 0;

    // The indexes of a table; the primary key among them where there is one.
    [[nodiscard]] virtual std::vector<CatalogIndex> Indexes(const std::string& table) = 0;

    // The foreign keys of a table.
    [[nodiscard]] virtual std::vector<CatalogKey> Keys(const std::string& table) = 0;

    // Names of tables and views that are there and that the login may not read. They are not among the tables; to open
    // one throws kPermissionDenied. Empty where the data source keeps them from the login itself.
    [[nodiscard]] virtual std::vector<std::string> HiddenTables() { return {}; }

    // The names of the stored procedures. Overloaded ones share a name.
    [[nodiscard]] virtual std::vector<std::string> Procedures() = 0;

    // The parameters of all stored procedures, those of one procedure in their order. Of overloaded ones the first
    // alone has its parameters here.
    [[nodiscard]] virtual std::vector<CatalogParameter> ProcedureParameters() = 0;

    // Says that facts of many tables will be asked for, so that they are worth reading together.
    virtual void ExpectManyTables() {}
};

// The catalog of the data source. Throws DataSourceError kNoOpenConnection if there is none, as none is open.
[[nodiscard]] inline Catalog& OpenSource(Catalog* source)
{
    if (source == nullptr)
        throw DataSourceError(data_source_error::kNoOpenConnection, "Catalog", "No data source is open.");
    return *source;
}

// A connection to a data source. One is shared by everything that reads a catalog.
class DataSourceConnection
{
  public:
    virtual ~DataSourceConnection() = default;

    // Opens the data source, closing what was open before. Throws DataSourceError with the driver's own words; nothing
    // is open then.
    virtual void Open(const std::string& connectionString) = 0;

    // Closes the connection; harmless when nothing is open.
    virtual void Close() = 0;

    [[nodiscard]] virtual bool IsOpen() const = 0;

    // The text with which the connection was opened, "" when nothing is open.
    [[nodiscard]] virtual const std::string& ConnectionString() const = 0;

    // What the driver said about the latest failure.
    [[nodiscard]] virtual const std::vector<ADOError>& Errors() const = 0;

    // The catalog as it is now. Throws DataSourceError kNoOpenConnection when nothing is open.
    [[nodiscard]] virtual std::unique_ptr<Catalog> OpenCatalog() = 0;

    // Has the data source carry out one statement that changes it; rows that it answers with are dropped. Throws
    // DataSourceError with the driver's own words, kNoOpenConnection when nothing is open, kNotSupported where the data
    // source is only read.
    virtual void Execute(const std::string& statement) = 0;
};

} // namespace veldrane
