// The floor of a whole run: the least that a plain program does for the same result, over the same driver and the same
// system calls. It is measured as the program is, as two whole processes, one a command.
//
//   floor_probe catalog CONNECTION      as little as `define` needs: connects as the program does and reads all tables,
//       columns, primary keys and foreign keys by one query each over the catalog's own tables, into memory. Columns
//       are bound once, rows come one by one, as plain use of the driver is. There is nothing here about names or
//       types; those are the program's own work.
//
//   floor_probe write PACK FOLDER       as little as `define` and `generate` write: makes the files that a run left,
//       the project file among them, with the same bytes. Every line is composed in a buffer of its own, appended to
//       the text of its file, and each file is written by one call. One sync of the file system stands at the end, as
//       in a run. What it does without are the private names and the renames of a run, and the second sync that
//       `define` makes for the project file.
//
// The lines come from one file, the pack, that is mapped into memory: reading the finished files one by one would
// burden the floor with work that no run has. Form of a pack, for each file: its name, LF, its size in bytes, LF, its
// bytes.
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::array kCatalogQueries{
    "SELECT name, type FROM sqlite_master WHERE type IN ('table', 'view') ORDER BY rowid",
    "SELECT m.name, c.name, c.type, c.\"notnull\" FROM sqlite_master AS m JOIN pragma_table_info(m.name) AS c"
    " WHERE m.type = 'table' ORDER BY m.rowid, c.cid",
    "SELECT m.name, c.name, c.pk FROM sqlite_master AS m JOIN pragma_table_info(m.name) AS c"
    " WHERE m.type = 'table' AND c.pk > 0 ORDER BY m.rowid, c.pk",
    "SELECT m.name, f.\"table\", f.seq, f.\"from\", f.\"to\" FROM sqlite_master AS m"
    " JOIN pragma_foreign_key_list(m.name) AS f WHERE m.type = 'table' ORDER BY m.rowid, f.id DESC, f.seq",
};

constexpr std::size_t kMostColumns = 5;
constexpr std::size_t kLongestValue = 256;

using Row = std::array<std::string, kMostColumns>;

void Check(SQLRETURN result, std::string_view what)
{
    if (!SQL_SUCCEEDED(result))
        throw std::runtime_error(std::string(what) + " failed");
}

std::vector<Row> RowsOf(SQLHDBC connection, const char* query)
{
    SQLHSTMT statement = nullptr;
    Check(SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement), "allocating a statement");
    std::string text = query;
    Check(SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS), query);
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(statement, &count), "counting columns");
    std::array<std::array<char, kLongestValue>, kMostColumns> values{};
    std::array<SQLLEN, kMostColumns> sizes{};
    for (SQLUSMALLINT at = 0; at < static_cast<SQLUSMALLINT>(count); ++at)
        Check(SQLBindCol(statement, static_cast<SQLUSMALLINT>(at + 1), SQL_C_CHAR, values[at].data(), kLongestValue,
                         &sizes[at]),
              "binding a column");
    std::vector<Row> rows;
    for (SQLRETURN result = SQLFetch(statement); result != SQL_NO_DATA; result = SQLFetch(statement)) {
        Check(result, query);
        Row& row = rows.emplace_back();
        for (std::size_t at = 0; at < static_cast<std::size_t>(count); ++at)
            if (sizes[at] != SQL_NULL_DATA)
                row[at] = values[at].data();
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return rows;
}

int ReadCatalog(std::string connectionString)
{
    SQLHENV environment = nullptr;
    SQLHDBC connection = nullptr;
    Check(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment), "starting the driver manager");
    const std::uintptr_t version = SQL_OV_ODBC3;
    Check(SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION,
                        reinterpret_cast<SQLPOINTER>(version), // NOLINT(performance-no-int-to-ptr): as ODBC has it
                        0),
          "choosing the version");
    Check(SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection), "allocating a connection");
    Check(SQLDriverConnect(connection, nullptr, reinterpret_cast<SQLCHAR*>(connectionString.data()), SQL_NTS, nullptr,
                           0, nullptr, SQL_DRIVER_NOPROMPT),
          "connecting");
    std::vector<std::vector<Row>> catalog;
    catalog.reserve(kCatalogQueries.size());
    for (const char* query : kCatalogQueries)
        catalog.push_back(RowsOf(connection, query));
    SQLDisconnect(connection);
    SQLFreeHandle(SQL_HANDLE_DBC, connection);
    SQLFreeHandle(SQL_HANDLE_ENV, environment);
    return catalog.front().empty() ? 1 : 0;
}

std::string_view MapFile(const char* path)
{
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0)
        throw std::runtime_error(std::string("can't read ") + path);
    const auto size = static_cast<std::size_t>(status.st_size);
    const void* bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file, 0);
    close(file);
    if (bytes == MAP_FAILED) // NOLINT(performance-no-int-to-ptr): the system's own constant
        throw std::runtime_error(std::string("can't map ") + path);
    return {static_cast<const char*>(bytes), size};
}

// Cuts the next line from the head of the text, its end included.
std::string_view TakeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n') + 1); // npos + 1 is 0: see the caller
    text.remove_prefix(line.size());
    return line;
}

std::string Compose(std::string_view bytes)
{
    std::string text;
    std::string line;
    while (!bytes.empty()) {
        const std::string_view next = TakeLine(bytes);
        if (next.empty())
            return text.append(bytes);
        line = next;
        text += line;
    }
    return text;
}

void WriteFile(int folder, const std::string& name, std::string_view text)
{
    const int file = openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0 || write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()) || close(file) != 0)
        throw std::runtime_error("can't write " + name);
}

int WriteFiles(const char* pack, const char* path)
{
    std::string_view rest = MapFile(pack);
    const int folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        throw std::runtime_error(std::string("can't open ") + path);
    while (!rest.empty()) {
        const std::string_view name = TakeLine(rest);
        const std::string_view digits = TakeLine(rest);
        std::size_t size = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), size);
        WriteFile(folder, std::string(name.substr(0, name.size() - 1)), Compose(rest.substr(0, size)));
        rest.remove_prefix(size);
    }
    if (syncfs(folder) != 0)
        throw std::runtime_error(std::string("can't sync ") + path);
    close(folder);
    return 0;
}

int Run(const std::vector<char*>& arguments)
{
    if (arguments.size() == 3 && std::string_view(arguments[1]) == "catalog")
        return ReadCatalog(arguments[2]);
    if (arguments.size() == 4 && std::string_view(arguments[1]) == "write")
        return WriteFiles(arguments[2], arguments[3]);
    throw std::runtime_error("usage: floor_probe catalog CONNECTION | write PACK FOLDER");
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Run(std::vector<char*>(argv, argv + argc));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "floor_probe: %s\n", error.what());
        return 1;
    }
}
