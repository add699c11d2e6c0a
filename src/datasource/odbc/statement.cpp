#include "datasource/odbc/statement.h"

#include "datasource/odbc/utf16.h"
#include "text/characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>
#include <utility>

namespace veldrane {
namespace {

// A catalog holds fewer; a server that goes on would fill the memory within its time.
constexpr std::uint64_t kMostRows = 1'000'000;

// A name in the form that the driver wants, alive for one call.
class NarrowArgument
{
  public:
    explicit NarrowArgument(const OdbcName& name) : text_(name) {}

    std::tuple<SQLCHAR*, SQLSMALLINT> Pass()
    {
        return {text_ ? reinterpret_cast<SQLCHAR*>(text_->data()) : nullptr, static_cast<SQLSMALLINT>(SQL_NTS)};
    }

  private:
    OdbcName text_;
};

class WideArgument
{
  public:
    explicit WideArgument(const OdbcName& name) : given_(name.has_value()), text_(ToUtf16(name.value_or(""))) {}

    std::tuple<SQLWCHAR*, SQLSMALLINT> Pass()
    {
        return {given_ ? reinterpret_cast<SQLWCHAR*>(text_.data()) : nullptr, static_cast<SQLSMALLINT>(SQL_NTS)};
    }

  private:
    bool given_;
    std::u16string text_;
};

template <class Argument, class Function, class... Names>
SQLRETURN Apply(Function function, SQLHSTMT statement, const Names&... names)
{
    const auto call = [&](auto... arguments) {
        return std::apply(function, std::tuple_cat(std::tuple(statement), arguments.Pass()...));
    };
    return call(Argument(names)...);
}

SQLSMALLINT TextType(CallWidth width)
{
    return width == CallWidth::Wide ? SQL_C_WCHAR : SQL_C_CHAR;
}

std::size_t UnitSize(CallWidth width)
{
    return width == CallWidth::Wide ? sizeof(char16_t) : 1;
}

bool IsAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

template <class Narrow, class Wide, class... Names>
void OdbcStatement::Call(Narrow narrow, Wide wide, const Names&... names)
{
    limit_ = session_.LimitStatement();
    session_.BeginCall();
    session_.Check(session_.IsWide() ? Apply<WideArgument>(wide, handle_.Get(), names...)
                                     : Apply<NarrowArgument>(narrow, handle_.Get(), names...),
                   handle_);
}

OdbcStatement::OdbcStatement(const OdbcSession& session) : session_(session)
{
    session.RequireOpen();
    handle_ = OdbcHandle(SQL_HANDLE_STMT, session.Handle());
    if (handle_.Get() == nullptr)
        throw DataSourceError(data_source_error::kNoOpenConnection, "ODBC", "The connection is lost.");
    if (session.Profile().LimitStatements != nullptr)
        return; // the whole session has the limit
    const auto seconds = static_cast<std::uintptr_t>(session.StatementTimeout().count());
    // Drivers that know no such limit say so, and go on without it.
    SQLSetStmtAttr(handle_.Get(), SQL_ATTR_QUERY_TIMEOUT,
                   reinterpret_cast<SQLPOINTER>(seconds), // NOLINT(performance-no-int-to-ptr)
                   0);
}

OdbcStatement::~OdbcStatement()
{
    session_.BeginFreeing();
}

void OdbcStatement::Execute(const std::string& statement)
{
    // Prepared, a statement on a missing table goes well on some drivers.
    Call(SQLExecDirect, SQLExecDirectW, OdbcName(statement));
}

void OdbcStatement::Tables(const OdbcName& catalog, const OdbcName& schema, const OdbcName& table)
{
    Call(SQLTables, SQLTablesW, catalog, schema, table, OdbcName());
}

void OdbcStatement::PrimaryKeys(const OdbcName& catalog, const OdbcName& schema, const OdbcName& table)
{
    Call(SQLPrimaryKeys, SQLPrimaryKeysW, catalog, schema, table);
}

void OdbcStatement::ForeignKeys(const OdbcName& catalog, const OdbcName& schema, const OdbcName& table)
{
    Call(SQLForeignKeys, SQLForeignKeysW, OdbcName(), OdbcName(), OdbcName(), catalog, schema, table);
}

void OdbcStatement::Procedures(const OdbcName& catalog, const OdbcName& schema)
{
    Call(SQLProcedures, SQLProceduresW, catalog, schema, OdbcName("%"));
}

void OdbcStatement::ProcedureColumns(const OdbcName& catalog, const OdbcName& schema)
{
    // Given a pattern for the columns, even one that everything matches, some drivers leave out return values or all.
    Call(SQLProcedureColumns, SQLProcedureColumnsW, catalog, schema, OdbcName("%"), OdbcName());
}

bool OdbcStatement::Fetch()
{
    if (!std::exchange(fetched_, true) && session_.ReadsBoundValuesAgain())
        Bind();
    session_.BeginCall();
    const SQLRETURN result = SQLFetch(handle_.Get());
    session_.Check(result, handle_);
    if (result == SQL_NO_DATA)
        return false;
    if (++rows_ > kMostRows)
        session_.GiveUp("The answer has more than " + std::to_string(kMostRows) + " rows.");
    session_.TellRows(rows_);
    return true;
}

// A call for each value costs more than all the rest of a large answer.
void OdbcStatement::Bind()
{
    SQLSMALLINT count = 0;
    session_.Check(SQLNumResultCols(handle_.Get(), &count), handle_);
    row_.resize(static_cast<std::size_t>(count));
    const SQLSMALLINT type = TextType(session_.Profile().ValueWidth);
    SQLUSMALLINT column = 0;
    for (BoundValue& value : row_)
        session_.Check(SQLBindCol(handle_.Get(), ++column, type, value.Units.data(),
                                  static_cast<SQLLEN>(sizeof(value.Units)), &value.Length),
                       handle_);
}

std::optional<std::string> OdbcStatement::Text(SQLUSMALLINT column)
{
    if (column > row_.size())
        return ReadInPieces(column);
    const BoundValue& value = row_[column - 1U];
    if (value.Length == SQL_NULL_DATA)
        return std::nullopt;
    const CallWidth width = session_.Profile().ValueWidth;
    const auto size = static_cast<std::size_t>(value.Length);
    if (value.Length == SQL_NO_TOTAL || size > sizeof(value.Units) - UnitSize(width))
        return ReadInPieces(column);
    if (width == CallWidth::Wide)
        return FromUtf16({value.Units.data(), size / sizeof(char16_t)});
    const std::string_view bytes(reinterpret_cast<const char*>(value.Units.data()), size);
    if (session_.IsWide() && !IsAscii(bytes))
        return ReadInPieces(column);
    return text::WellFormed(bytes);
}

// What is longer than the buffer comes with the next call. Each piece ends in a terminator of its own.
std::optional<std::string> OdbcStatement::ReadInPieces(SQLUSMALLINT column)
{
    const CallWidth width = session_.Profile().Width;
    std::array<char, 4096> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): the driver fills it
    const std::size_t room = buffer.size() - UnitSize(width);
    std::string bytes;
    for (SQLRETURN result = SQL_SUCCESS_WITH_INFO; result == SQL_SUCCESS_WITH_INFO;) {
        SQLLEN length = 0;
        result = SQLGetData(handle_.Get(), column, TextType(width), buffer.data(), static_cast<SQLLEN>(buffer.size()),
                            &length);
        session_.Check(result, handle_);
        if (result == SQL_NO_DATA)
            break;
        if (length == SQL_NULL_DATA)
            return std::nullopt;
        const bool whole = length != SQL_NO_TOTAL && static_cast<std::size_t>(length) <= room;
        bytes.append(buffer.data(), whole ? static_cast<std::size_t>(length) : room);
        if (whole)
            break;
    }
    if (width == CallWidth::Narrow)
        return text::WellFormed(bytes);
    std::u16string units(bytes.size() / sizeof(char16_t), u'\0');
    bytes.copy(reinterpret_cast<char*>(units.data()), units.size() * sizeof(char16_t));
    return FromUtf16(units);
}

long OdbcStatement::Number(SQLUSMALLINT column)
{
    const std::string digits = Text(column).value_or("");
    long number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

std::vector<OdbcColumn> OdbcStatement::Columns()
{
    SQLSMALLINT count = 0;
    session_.Check(SQLNumResultCols(handle_.Get(), &count), handle_);
    std::vector<OdbcColumn> columns;
    for (SQLSMALLINT number = 1; number <= count; ++number)
        columns.push_back(Column(static_cast<SQLUSMALLINT>(number)));
    return columns;
}

OdbcColumn OdbcStatement::Column(SQLUSMALLINT number)
{
    OdbcColumn column;
    SQLSMALLINT length = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
    if (session_.IsWide()) {
        std::array<char16_t, 1024> name{};
        session_.Check(SQLDescribeColW(handle_.Get(), number, reinterpret_cast<SQLWCHAR*>(name.data()),
                                       static_cast<SQLSMALLINT>(name.size()), &length, &column.SqlType, &size, &digits,
                                       &nullable),
                       handle_);
        column.Name = FromUtf16(name.data());
    } else {
        std::array<char, 1024> name{};
        session_.Check(SQLDescribeCol(handle_.Get(), number, reinterpret_cast<SQLCHAR*>(name.data()),
                                      static_cast<SQLSMALLINT>(name.size()), &length, &column.SqlType, &size, &digits,
                                      &nullable),
                       handle_);
        column.Name = text::WellFormed(name.data());
    }
    column.Size = size;
    // The description says "nullable" of every column on some drivers; the attribute knows better.
    column.Nullable = static_cast<SQLSMALLINT>(Attribute(number, SQL_DESC_NULLABLE).value_or(nullable));
    column.IsUnsigned = Attribute(number, SQL_DESC_UNSIGNED) == SQL_TRUE;
    column.IsAutoIncrement = Attribute(number, SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
    column.TypeName = TypeName(number);
    return column;
}

std::optional<SQLLEN> OdbcStatement::Attribute(SQLUSMALLINT number, SQLUSMALLINT what)
{
    SQLLEN value = 0;
    const SQLRETURN result = SQLColAttribute(handle_.Get(), number, what, nullptr, 0, nullptr, &value);
    return SQL_SUCCEEDED(result) ? std::optional(value) : std::nullopt;
}

std::string OdbcStatement::TypeName(SQLUSMALLINT number)
{
    SQLSMALLINT length = 0;
    if (session_.IsWide()) {
        std::array<char16_t, 256> name{};
        const auto bytes = static_cast<SQLSMALLINT>(sizeof(name) - sizeof(char16_t));
        const SQLRETURN result =
            SQLColAttributeW(handle_.Get(), number, SQL_DESC_TYPE_NAME, name.data(), bytes, &length, nullptr);
        return SQL_SUCCEEDED(result) ? FromUtf16(name.data()) : "";
    }
    std::array<char, 256> name{};
    const auto bytes = static_cast<SQLSMALLINT>(name.size() - 1);
    const SQLRETURN result =
        SQLColAttribute(handle_.Get(), number, SQL_DESC_TYPE_NAME, name.data(), bytes, &length, nullptr);
    return SQL_SUCCEEDED(result) ? text::WellFormed(name.data()) : "";
}

std::string PatternOf(std::string_view name, std::string_view escape)
{
    std::string pattern;
    for (const char c : name) {
        if (c == '_' || c == '%' || (escape.size() == 1 && c == escape.front()))
            pattern += escape;
        pattern.push_back(c);
    }
    return pattern;
}

} // namespace veldrane
