#include "support/server_database.h"

#include "text/strings.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace veldrane::testing {
namespace {

constexpr const char* kPostgreSql = "VELDRANE_TEST_POSTGRESQL";
constexpr const char* kMariaDb = "VELDRANE_TEST_MARIADB";

std::string Variable(const char* name)
{
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): a test runs on one thread
    return value == nullptr ? "" : value;
}

DatabaseServer PostgreSql()
{
    const std::string folder = Variable(kPostgreSql);
    return {.Target = "Driver=PostgreSQL Unicode;Server=" + folder + ";Port=5432;",
            .Client = "psql --no-psqlrc --quiet --set=ON_ERROR_STOP=1 --username=veldrane --port=5432 --host='" +
                      folder + "' --dbname=",
            .ClientFile = " --file=",
            .Home = "postgres",
            .CutScript = "select pg_terminate_backend(pid) from pg_stat_activity"
                         " where datname = 'NAME' and pid <> pg_backend_pid();"};
}

DatabaseServer MariaDb()
{
    const std::string socket = Variable(kMariaDb);
    return {.Target = "Driver=MariaDB Unicode;Socket=" + socket + ";",
            .Client = "mariadb --no-defaults --default-character-set=utf8mb4 --user=veldrane --socket='" + socket +
                      "' --database=",
            .ClientFile = " <",
            .Home = "mysql",
            .CutScript = R"(delimiter //
begin not atomic
    declare continue handler for 1094 begin end; -- it has just ended by itself
    for connection in (select id from information_schema.processlist where db = 'NAME' and id <> connection_id()) do
        execute immediate concat('kill ', connection.id);
    end for;
end //
delimiter ;
)"};
}

std::string UniqueName()
{
    static int count = 0;
    return "veldrane_" + std::to_string(getpid()) + "_" + std::to_string(++count);
}

// A file of the test's own, gone with the object.
class ScratchFile
{
  public:
    ScratchFile()
    {
        const int file = mkstemp(path_.data());
        if (file < 0)
            throw std::runtime_error("There is no room for a file in " + ::testing::TempDir());
        close(file);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { unlink(path_.c_str()); }

    [[nodiscard]] const std::string& Path() const { return path_; }

    [[nodiscard]] std::string Content() const
    {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

  private:
    std::string path_ = ::testing::TempDir() + "veldrane-sql-XXXXXX";
};

} // namespace

ServerDatabase::ServerDatabase(DatabaseServer server) : server_(std::move(server)), name_(UniqueName())
{
    RunIn(server_.Home, "create database " + name_ + ";");
}

ServerDatabase::~ServerDatabase()
{
    connection_.Close();
    try {
        CutConnections();
        RunIn(server_.Home, "drop database " + name_ + ";");
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
}

void ServerDatabase::Run(std::string_view sql) const
{
    RunIn(name_, sql);
}

void ServerDatabase::RunFile(const std::filesystem::path& file) const
{
    RunFileIn(name_, file);
}

void ServerDatabase::CutConnections() const
{
    RunIn(server_.Home, text::ReplaceAll(server_.CutScript, "NAME", name_));
}

std::string ServerDatabase::ConnectionString(const std::string& user, const std::string& password) const
{
    return "PROVIDER=MSDASQL;" + server_.Target + "Database=" + name_ + ";UID=" + user + ";PWD=" + password + ";";
}

std::unique_ptr<Catalog> ServerDatabase::OpenCatalog()
{
    connection_.Open(ConnectionString());
    return connection_.OpenCatalog();
}

std::unique_ptr<Catalog> ServerDatabase::OpenCatalog(const std::string& user, const std::string& password)
{
    connection_.Open(ConnectionString(user, password));
    return connection_.OpenCatalog();
}

void ServerDatabase::RunIn(const std::string& database, std::string_view sql) const
{
    const ScratchFile file;
    std::ofstream(file.Path(), std::ios::binary) << sql << '\n';
    RunFileIn(database, file.Path());
}

void ServerDatabase::RunFileIn(const std::string& database, const std::filesystem::path& file) const
{
    const ScratchFile words;
    const std::string command =
        server_.Client + database + server_.ClientFile + "'" + file.string() + "' >'" + words.Path() + "' 2>&1";
    if (std::system(command.c_str()) != 0) // NOLINT(cert-env33-c,concurrency-mt-unsafe): the client reads shell words
        throw std::runtime_error(command + "\n" + words.Content());
}

PostgreSqlDatabase::PostgreSqlDatabase() : ServerDatabase(PostgreSql()) {}

MariaDbDatabase::MariaDbDatabase() : ServerDatabase(MariaDb()) {}

void DatabaseServerTest::SetUp()
{
    if (Variable(kPostgreSql).empty() || Variable(kMariaDb).empty())
        GTEST_SKIP() << "No database servers run: start the tests with scripts/database-servers run.";
}

} // namespace veldrane::testing
