#include "sample_database.h"
#include "support/sample_data.h"

#include "sql_server_script.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace veldrane::testing {
namespace {

using namespace std::string_view_literals;

// The samples would go into databases of their own names, which two tests at once could not share.
bool ChoosesDatabase(std::string_view line)
{
    constexpr std::array kBeginnings{
        "DROP DATABASE "sv, "CREATE DATABASE "sv, "DROP SCHEMA "sv, "CREATE SCHEMA "sv, "USE "sv, "use "sv, "\\c "sv};
    return std::any_of(kBeginnings.begin(), kBeginnings.end(),
                       [&](std::string_view beginning) { return line.starts_with(beginning); });
}

std::string SqlOf(const std::string& file)
{
    const std::string bytes = BytesOf(SampleDataFolder(".") + file);
    std::string sql;
    for (const std::string_view line : text::Split(bytes, "\n"))
        if (!ChoosesDatabase(line))
            sql.append(line) += '\n';
    return text::ReplaceAll(sql, " sakila.", " ");
}

// Dumps give their objects to the role that made them.
constexpr std::string_view kOwner = R"(do $$ begin
    create role postgres;
exception
    when duplicate_object or unique_violation then null;
end $$;
)";

} // namespace

void SampleDatabaseTest::SetUp()
{
    DatabaseServerTest::SetUp();
    if (SampleDataFolder(".").empty())
        GTEST_SKIP() << kNoSampleData;
}

std::string SampleDatabaseTest::Load(const SampleSource& source)
{
    std::string sql = source.Server == SampleServer::PostgreSql ? std::string(kOwner) : "";
    for (const std::string& file : source.Files)
        sql += SqlOf(file);
    if (source.Server == SampleServer::Sqlite)
        return Workspace.MakeDatabase("sample.db", sql);
    if (source.Server == SampleServer::SqlServer) {
        standIn_ = std::make_unique<TdsServer>(ReadSqlServerScript(sql));
        return standIn_->ConnectionString();
    }
    if (source.Server == SampleServer::PostgreSql)
        database_ = std::make_unique<PostgreSqlDatabase>();
    else
        database_ = std::make_unique<MariaDbDatabase>();
    database_->Run(sql);
    return database_->ConnectionString();
}

std::unique_ptr<Catalog> SampleDatabaseTest::OpenCatalog(const std::string& connection)
{
    connection_.Open(connection);
    return connection_.OpenCatalog();
}

} // namespace veldrane::testing
