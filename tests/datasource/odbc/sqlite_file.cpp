#include "sqlite_file.h"

#include "datasource/odbc/statement.h"
#include "text/strings.h"

#include <cstdlib>
#include <filesystem>

namespace veldrane {
namespace {

std::string MakeFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "veldrane-odbc-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        throw RuntimeError(error_number::kPathAccess, "SqliteFile", "There is no room for a folder.");
    return name;
}

} // namespace

SqliteFile::SqliteFile(std::string_view statements, const std::string& name)
    : folder_(MakeFolder()), path_(folder_ + "/" + name)
{
    Run(statements);
}

SqliteFile::~SqliteFile()
{
    connection_.Close();
    std::filesystem::remove_all(folder_);
}

void SqliteFile::Run(std::string_view statements) const
{
    const OdbcLogon logon{.Text = "Driver=SQLite3;Database=" + path_ + ";",
                          .Profile = &ProfileOf("libsqlite3odbc.so"),
                          .Database = path_};
    const OdbcSession session(logon, {}, std::make_shared<OdbcErrors>());
    for (const std::string_view statement : text::Split(statements, ";\n"))
        if (!text::Trim(statement).empty())
            OdbcStatement(session).Execute(std::string(statement));
}

std::string SqliteFile::ConnectionString() const
{
    return "PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;Database=" + path_ + ";";
}

std::unique_ptr<Catalog> SqliteFile::OpenCatalog()
{
    connection_.Open(ConnectionString());
    return connection_.OpenCatalog();
}

} // namespace veldrane
