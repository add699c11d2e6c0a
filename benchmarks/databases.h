#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace veldrane::bench {

// A database that holds the tables of MakeSchema, and how the programs reach it.
struct Database
{
    std::string Name; // of the kind and the size, such as "sqlite-1000"
    std::size_t Tables = 0;
    std::string Connection;        // for the driver manager
    std::vector<std::string> Read; // the words by which the floor probe reads the whole catalog
};

// The servers on which databases are made. Both know an administrator "veldrane" without a password.
struct Servers
{
    std::string PostgreSqlFolder; // of its socket
    std::string MariaDbSocket;
    std::filesystem::path PlainDriver; // the driver of PostgreSQL under a name that tells nothing of it
};

// These make a database with so many tables; files of theirs go into the folder and stay there. They throw
// std::runtime_error with what the database's own client printed if it fails.
[[nodiscard]] Database MakeSqliteDatabase(const std::filesystem::path& folder, std::size_t tables);
[[nodiscard]] Database MakePostgreSqlDatabase(const Servers& servers, const std::filesystem::path& folder,
                                              std::size_t tables);
[[nodiscard]] Database MakeMariaDbDatabase(const Servers& servers, const std::filesystem::path& folder,
                                           std::size_t tables);

// A database of PostgreSQL with so many tables that was made before, reached as one of which the program knows nothing:
// only the driver's own calls are left to read its catalog.
[[nodiscard]] Database BehindPlainDriver(const Servers& servers, std::size_t tables);

} // namespace veldrane::bench
