#pragma once

#include "datasource/jet/jet_connection.h"
#include "shell/platform/limited_program_runner.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace veldrane::testing {

// A connection through the program that reads Jet files, as it was built.
class RealJet
{
  public:
    explicit RealJet(std::chrono::seconds timeout = std::chrono::seconds(15)) : timeout_(timeout) {}

    // The file as it is now. Throws what opening it throws.
    [[nodiscard]] std::unique_ptr<Catalog> Open(const std::string& path, const std::string& password = "")
    {
        std::string text = "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + Braced(path) + ";";
        if (!password.empty())
            text += "Jet OLEDB:Database Password=" + Braced(password) + ";";
        connection_.Open(text);
        return connection_.OpenCatalog();
    }

    // Why the file does not open; "" if it does.
    [[nodiscard]] std::string RefusalOf(const std::string& path, const std::string& password = "")
    {
        try {
            static_cast<void>(Open(path, password));
        } catch (const DataSourceError& error) {
            return error.Number == data_source_error::kFailed ? error.Description() : "not refused as a failure";
        }
        return "";
    }

  private:
    std::chrono::seconds timeout_;
    LimitedProgramRunner programs_;
    JetConnection connection_{programs_, {.Folder = VELDRANE_PROGRAM_FOLDER, .Timeout = timeout_}};
};

inline std::string BytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace veldrane::testing
