#pragma once

#include "support/tds_contents.h"
#include "support/tds_types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane::testing {

// A failure in the server's words, under its published number.
struct TdsFailure
{
    std::int32_t Number = 0;
    std::string Words;
    std::uint8_t Severity = 16;
};

using TdsRow = std::vector<std::optional<std::string>>;

// Writes the tokens of an answer, for the version of the protocol that the caller speaks:
//
//   columns  81  count  { user type  flags  type  name }...
//   row      D1  { value }...
//   failure  AA  size  number  state  severity  words  server  procedure  line
//   end      FD  status  command  count
class TdsAnswer
{
  public:
    explicit TdsAnswer(std::uint32_t version) : version_(version) {}

    // Says that the login is accepted, and into which database it leads.
    void Welcome(const std::string& database);
    void ChangeDatabase(const std::string& database);
    void Columns(const std::vector<TdsColumn>& columns, const std::string& table = "");

    // Values are for columns of the types "sysname", "nvarchar", "varchar", "smallint" and "int".
    void Row(const std::vector<TdsColumn>& columns, const TdsRow& row);

    // Begins a row with one value, of a type with "(max)", whose length is not said before it ends; and goes on with
    // it.
    void BeginLongRow();
    void Piece(const std::string& text);
    void Fail(const TdsFailure& failure);

    // A failure behind which another follows.
    void Complain(const TdsFailure& failure);
    void End(std::uint16_t status = 0);
    void EndProcedure();

    [[nodiscard]] const std::string& Bytes() const { return bytes_; }

  private:
    [[nodiscard]] bool HasWideCounts() const { return version_ >= 0x72000000; }
    void Number(std::uint64_t value, std::size_t bytes);
    void Name(std::string_view name, std::size_t sizeOfCount);
    void Type(const TdsColumn& column, const std::string& table);
    void ClrType(const TdsDeclared& declared);
    void Value(const TdsColumn& column, const std::optional<std::string>& value);
    void Finish(std::uint8_t token, std::uint16_t status);

    std::uint32_t version_;
    std::string bytes_;
};

// A text as the protocol has it, two bytes a unit.
[[nodiscard]] std::string ToTdsText(std::string_view text);
[[nodiscard]] std::string FromTdsText(std::string_view bytes);

} // namespace veldrane::testing
