#pragma once

#include "datasource/odbc/session.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// A column of an opened statement, in the driver's own words.
struct OdbcColumn
{
    std::string Name;
    SQLSMALLINT SqlType = 0;
    std::uint64_t Size = 0; // characters or digits
    SQLSMALLINT Nullable = SQL_NULLABLE_UNKNOWN;
    bool IsUnsigned = false;
    bool IsAutoIncrement = false;
    std::string TypeName;
};

// A name handed to a catalog function; none at all is not the same as an empty one.
using OdbcName = std::optional<std::string>;

// One statement and its rows, for as long as the session gives a statement. Every member throws DataSourceError with
// the driver's words.
class OdbcStatement
{
  public:
    // Throws kNoOpenConnection if the connection is closed or gives no statement.
    explicit OdbcStatement(const OdbcSession& session);
    OdbcStatement(const OdbcStatement&) = delete;
    OdbcStatement& operator=(const OdbcStatement&) = delete;
    ~OdbcStatement();

    void Execute(const std::string& statement);

    // The driver's catalog functions. Where the arguments are patterns, the caller has escaped what is not meant as
    // one (see PatternOf).
    void Tables(const OdbcName& catalog, const OdbcName& schema, const OdbcName& table);
    void PrimaryKeys(const OdbcName& catalog, const OdbcName& schema, const OdbcName& table);
    void ForeignKeys(const OdbcName& catalog, const OdbcName& schema, const OdbcName& table);
    void Procedures(const OdbcName& catalog, const OdbcName& schema);
    void ProcedureColumns(const OdbcName& catalog, const OdbcName& schema);

    // Goes to the next row and tells whoever watches the session; false behind the last. An answer of more than a
    // million rows is given up. Throws ReadingCancelled as well.
    [[nodiscard]] bool Fetch();

    // A value of the row by its 1-based place; none for NULL. Each is read once, from left to right.
    [[nodiscard]] std::optional<std::string> Text(SQLUSMALLINT column);

    // The same as a number, 0 for NULL.
    [[nodiscard]] long Number(SQLUSMALLINT column);

    [[nodiscard]] std::vector<OdbcColumn> Columns();

  private:
    template <class Narrow, class Wide, class... Arguments>
    void Call(Narrow narrow, Wide wide, const Arguments&... arguments);
    void Bind();
    [[nodiscard]] std::optional<std::string> ReadInPieces(SQLUSMALLINT column);
    [[nodiscard]] OdbcColumn Column(SQLUSMALLINT number);
    [[nodiscard]] std::string TypeName(SQLUSMALLINT number);
    [[nodiscard]] std::optional<SQLLEN> Attribute(SQLUSMALLINT number, SQLUSMALLINT what);

    // A value as the driver leaves it with each row; what is longer is asked for in pieces.
    struct BoundValue
    {
        std::array<char16_t, 128> Units{}; // or the bytes of a narrow one
        SQLLEN Length = 0;                 // in bytes
    };

    const OdbcSession& session_;
    std::vector<BoundValue> row_; // outlives the statement, which knows its addresses
    bool fetched_ = false;
    std::uint64_t rows_ = 0;
    // Outlives the handle: a driver that frees one may first read its answer to the end.
    std::unique_ptr<SocketWatch::Limit> limit_;
    OdbcHandle handle_;
};

// The name as a pattern that matches nothing else.
[[nodiscard]] std::string PatternOf(std::string_view name, std::string_view escape);

} // namespace veldrane
