#include "databases.h"

#include "child_process.h"
#include "schema_sql.h"

#include <fstream>

namespace veldrane::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUser = "veldrane";

fs::path WriteSqlFile(const fs::path& folder, const std::string& name, std::size_t tables, Dialect dialect)
{
    fs::path file = folder / (name + ".sql");
    std::ofstream sql(file);
    WriteSql(sql, MakeSchema(tables), dialect);
    return file;
}

std::string PostgreSqlConnection(const std::string& driver, const Servers& servers, const std::string& database)
{
    return "Driver=" + driver + ";Server=" + servers.PostgreSqlFolder + ";Database=" + database + ";UID=" + kUser + ";";
}

std::string NameOf(const std::string& kind, std::size_t tables)
{
    return kind + "-" + std::to_string(tables);
}

} // namespace

Database MakeSqliteDatabase(const fs::path& folder, std::size_t tables)
{
    const std::string name = NameOf("sqlite", tables);
    const fs::path file = folder / (name + ".db");
    RunProcess({"sqlite3", file},
               {.Input = WriteSqlFile(folder, name, tables, Dialect::Sqlite), .Output = folder / "log"});
    const std::string connection = "Driver=SQLite3;Database=" + file.string() + ";";
    return {.Name = name, .Tables = tables, .Connection = connection, .Read = {"catalog", "sqlite", connection}};
}

Database MakePostgreSqlDatabase(const Servers& servers, const fs::path& folder, std::size_t tables)
{
    const std::string name = NameOf("postgresql", tables);
    const std::vector<std::string> client{"psql", "-qX", "-v", "ON_ERROR_STOP=1", "-h", servers.PostgreSqlFolder,
                                          "-U",   kUser, "-d"};
    const auto run = [&](const std::string& database, const ProcessFiles& files, std::vector<std::string> words) {
        std::vector<std::string> command = client;
        command.push_back(database);
        command.insert(command.end(), words.begin(), words.end());
        RunProcess(command, files);
    };
    const fs::path log = folder / "log";
    run("postgres", {.Output = log}, {"-c", "CREATE DATABASE \"" + name + "\""});
    run(name, {.Input = WriteSqlFile(folder, name, tables, Dialect::PostgreSql), .Output = log}, {});
    const std::string connection = PostgreSqlConnection("PostgreSQL Unicode", servers, name);
    return {.Name = name, .Tables = tables, .Connection = connection, .Read = {"catalog", "postgresql", connection}};
}

Database MakeMariaDbDatabase(const Servers& servers, const fs::path& folder, std::size_t tables)
{
    const std::string name = NameOf("mariadb", tables);
    const std::vector<std::string> client{"mariadb", "--no-defaults", "--socket=" + servers.MariaDbSocket,
                                          std::string("--user=") + kUser};
    const auto run = [&](const ProcessFiles& files, const std::string& argument) {
        std::vector<std::string> command = client;
        command.push_back(argument);
        RunProcess(command, files);
    };
    const fs::path log = folder / "log";
    run({.Output = log}, "--execute=CREATE DATABASE `" + name + "`");
    run({.Input = WriteSqlFile(folder, name, tables, Dialect::MariaDb), .Output = log}, name);
    const std::string connection =
        "Driver=MariaDB Unicode;Socket=" + servers.MariaDbSocket + ";Database=" + name + ";UID=" + kUser + ";";
    return {.Name = name, .Tables = tables, .Connection = connection, .Read = {"catalog", "mariadb", connection}};
}

Database BehindPlainDriver(const Servers& servers, std::size_t tables)
{
    const std::string connection = PostgreSqlConnection(servers.PlainDriver, servers, NameOf("postgresql", tables));
    return {.Name = NameOf("plain", tables), .Tables = tables, .Connection = connection, .Read = {"calls", connection}};
}

} // namespace veldrane::bench
