#pragma once

#include "datasource/odbc/odbc_connection.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// A SQLite file of one test, in a folder of its own that goes with it.
class SqliteFile
{
  public:
    // Makes the file through the driver and runs the statements, which end at semicolons that end a line.
    explicit SqliteFile(std::string_view statements, const std::string& name = "sample.db");
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;
    ~SqliteFile();

    void Run(std::string_view statements) const;

    [[nodiscard]] const std::string& Folder() const { return folder_; }
    [[nodiscard]] const std::string& Path() const { return path_; }

    // The project's string for the file.
    [[nodiscard]] std::string ConnectionString() const;

    // A catalog over a connection that lives with the file.
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog();

  private:
    std::string folder_;
    std::string path_;
    OdbcConnection connection_{OdbcConnectionOptions{}};
};

} // namespace veldrane
