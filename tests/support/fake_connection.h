#pragma once

#include "support/fake_catalog.h"

#include <memory>
#include <string>
#include <vector>

namespace veldrane::testing {

// An open connection to a catalog that is data: each catalog that it opens is a copy of `Content` as it is then.
class FakeConnection : public DataSourceConnection
{
  public:
    void Open(const std::string& connectionString) override { text_ = connectionString; }
    void Close() override { text_.clear(); }
    [[nodiscard]] bool IsOpen() const override { return !text_.empty(); }
    [[nodiscard]] const std::string& ConnectionString() const override { return text_; }
    [[nodiscard]] const std::vector<ADOError>& Errors() const override { return errors_; }

    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog() override
    {
        if (!IsOpen())
            throw DataSourceError(data_source_error::kNoOpenConnection, "FakeConnection", "nothing is open");
        if (!CatalogFailure.empty())
            throw DataSourceError(data_source_error::kFailed, "FakeConnection", CatalogFailure);
        return std::make_unique<FakeCatalog>(Content);
    }

    // Keeps the statement, or fails at it.
    void Execute(const std::string& statement) override
    {
        if (!IsOpen())
            throw DataSourceError(data_source_error::kNoOpenConnection, "FakeConnection", "nothing is open");
        if (Statements.size() == FailingStatement)
            throw DataSourceError(data_source_error::kFailed, "FakeConnection", "the statement is refused");
        Statements.push_back(statement);
    }

    FakeCatalog Content;
    std::vector<std::string> Statements;
    std::size_t FailingStatement = static_cast<std::size_t>(-1); // by its place
    std::string CatalogFailure;                                  // why no catalog can be opened; "" where one can

  private:
    std::string text_ = "DSN=x;";
    std::vector<ADOError> errors_;
};

} // namespace veldrane::testing
