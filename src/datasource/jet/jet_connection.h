#pragma once

#include "datasource/catalog.h"
#include "datasource/jet/jet_file.h"

#include <memory>
#include <string>
#include <vector>

namespace veldrane {

// A connection to a Jet file. The file is read whole when it is opened, to see that it can be, and anew for each
// catalog; in between it is closed, and nobody is kept from writing to it.
class JetConnection : public DataSourceConnection
{
  public:
    // `programs` outlives this.
    JetConnection(ProgramRunner& programs, JetReaderOptions options);

    // Throws DataSourceError kFailed with a sentence that names the file and the way out, see JetFile.
    void Open(const std::string& connectionString) override;

    // Catalogs that were opened over the connection fail from then on.
    void Close() override;

    [[nodiscard]] bool IsOpen() const override { return file_ != nullptr; }
    [[nodiscard]] const std::string& ConnectionString() const override { return connectionString_; }

    // Always empty: what was wrong is told by the failure itself.
    [[nodiscard]] const std::vector<ADOError>& Errors() const override { return errors_; }

    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog() override;

    // Always throws kNotSupported.
    void Execute(const std::string& statement) override;

  private:
    ProgramRunner& programs_;
    JetReaderOptions options_;
    std::shared_ptr<const JetFile> file_;
    std::string connectionString_;
    std::vector<ADOError> errors_;
};

} // namespace veldrane
