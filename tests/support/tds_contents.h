#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace veldrane::testing {

// What a stand-in for SQL Server holds: plain data that a test states.

enum class TdsNull
{
    Allowed,
    Refused,
    RefusedAndCounted, // an identity column
};

struct TdsColumn
{
    std::string Name;
    std::string Type; // as a definition has it: "nvarchar(40)", "decimal(10,2)", "varchar(max)"
    TdsNull Null = TdsNull::Allowed;
};

struct TdsPrimaryKey
{
    std::string Name;
    std::vector<std::string> Columns;
};

struct TdsForeignKey
{
    std::string Name;
    std::vector<std::string> Columns;
    std::string RelatedTable;
    std::vector<std::string> RelatedColumns;
    std::string RelatedOwner = "dbo";
};

struct TdsTable
{
    std::string Name;
    std::vector<TdsColumn> Columns{};
    std::optional<TdsPrimaryKey> PrimaryKey{};
    std::vector<TdsForeignKey> ForeignKeys{};
    std::string Owner = "dbo";
    std::string Type = "TABLE";
    bool IsForbidden = false; // the login sees it and may not read it
};

// Kinds of parameters, by the numbers that the catalog has for them.
enum class TdsParameterKind
{
    Input = 1,
    InputOutput = 2,
    ReturnValue = 5,
};

struct TdsParameter
{
    std::string Name;
    std::string Type;
    TdsParameterKind Kind = TdsParameterKind::Input;
};

struct TdsProcedure
{
    std::string Name; // with the number behind it: "GetOrders;1"
    std::vector<TdsParameter> Parameters{};
    std::string Owner = "dbo";
};

// What a server was told to do: batches that ask nothing. Written by the threads that serve.
class TdsBatches
{
  public:
    void Add(std::string batch)
    {
        const std::lock_guard lock(mutex_);
        batches_.push_back(std::move(batch));
    }

    [[nodiscard]] std::vector<std::string> All() const
    {
        const std::lock_guard lock(mutex_);
        return batches_;
    }

  private:
    mutable std::mutex mutex_;
    std::vector<std::string> batches_;
};

struct TdsContents
{
    std::string Database = "shop";
    std::string User = "ann";
    std::string Password = "secret";
    std::string Schema = "dbo"; // where the login's bare names are looked up first; "" for a server too old to say
    std::vector<TdsTable> Tables{};
    std::vector<TdsProcedure> Procedures{};
    std::shared_ptr<TdsBatches> CarriedOut{}; // kept there; nothing for nobody
};

} // namespace veldrane::testing
