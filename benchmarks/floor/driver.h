#pragma once

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

// Plain use of a driver: columns are bound once, rows come one by one, values as text.
namespace veldrane::floor_probe {

// The most columns of a row that are read, and the longest value.
inline constexpr std::size_t kMostColumns = 6;
inline constexpr std::size_t kLongestValue = 256;

using Row = std::array<std::string, kMostColumns>;

// Throws std::runtime_error with what failed.
void Check(SQLRETURN result, std::string_view what);

class Connection
{
  public:
    explicit Connection(std::string connectionString);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    [[nodiscard]] SQLHDBC Handle() const { return connection_; }

  private:
    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
};

class Statement
{
  public:
    explicit Statement(const Connection& connection);
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement();

    [[nodiscard]] SQLHSTMT Handle() const { return statement_; }

    void Execute(std::string text);

    [[nodiscard]] SQLUSMALLINT CountColumns() const;

    // All rows, of each the columns at these 1-based places. What is NULL comes as "".
    [[nodiscard]] std::vector<Row> Rows(const std::vector<SQLUSMALLINT>& places);

  private:
    SQLHSTMT statement_ = nullptr;
};

} // namespace veldrane::floor_probe
