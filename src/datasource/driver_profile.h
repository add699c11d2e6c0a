#pragma once

#include <chrono>
#include <span>
#include <string>
#include <string_view>

namespace veldrane {

enum class DriverFamily
{
    Sqlite,
    PostgreSql,
    MariaDb,
    Tds,
    Other,
};

// How a driver wants its text.
enum class CallWidth
{
    Wide,   // UTF-16, through the wide functions
    Narrow, // UTF-8, through the others: a driver that exports no wide ones is handed Latin-1 otherwise
};

// How a driver reads the values of a connection string.
enum class ValueSyntax
{
    Braced,    // in braces where need be, a closing one within doubled
    Unescaped, // in braces where need be, and no closing one within: before a semicolon it is the end, doubled or not
    Plain,     // to the next semicolon, whatever stands there
    Unknown,   // braces are as good as any guess for the user's own string, and nothing to rely on for a stranger's
};

enum class AdditionRule
{
    UnlessGiven,     // the string's own value stands, or that of the data source
    AlwaysOfProject, // the same, but a project's own value gives way
};

// What is added to a connection string for a driver's sake. A value that is given stands unless it is empty or not
// accepted.
struct DriverAddition
{
    std::string_view Key;
    std::string_view Value; // "" for the seconds that a connection may take
    AdditionRule Rule = AdditionRule::UnlessGiven;
    std::span<const std::string_view> Accepted{}; // values that stand; none: any
};

// What the program knows of the drivers of one kind.
struct DriverProfile
{
    DriverFamily Family = DriverFamily::Other;
    CallWidth Width = CallWidth::Wide;
    // How the values of a row come. One that comes narrow and is not all ASCII is read again as `Width` says, for what
    // its bytes mean hangs on the connection's character set.
    CallWidth ValueWidth = CallWidth::Wide;
    ValueSyntax Syntax = ValueSyntax::Braced;
    std::span<const std::string_view> BracedKeys{};  // whose values the driver takes braces off; empty: of all
    std::span<const std::string_view> Marks{};       // one of them, in lower case, is in the name of the library
    std::span<const std::string_view> ProjectKeys{}; // what a project file may set
    std::span<const DriverAddition> Additions{};
    bool DatabaseIsFile = false;
    bool PortIsOwnKey = false; // "host:port" and "host,port" are taken apart
    // Whether a database's name is one and nothing else: some drivers read options out of it.
    bool (*IsPlainDatabase)(std::string_view name) = nullptr;
    std::string_view Probe{}; // a statement that fails where opening should have failed
    // A statement that bounds every other of the session; a driver without one is told with each statement.
    std::string (*LimitStatements)(std::chrono::seconds limit) = nullptr;
};

// The characters up to which PostgreSQL's driver is told to call a text short (its option MaxVarcharSize), unless the
// string or the data source has the option.
inline constexpr std::string_view kAddedMaxVarcharSize = "8000";

// A name by which the profile of a driver for SQL Server is found.
inline constexpr std::string_view kTdsLibrary = "tdsodbc";

// The driver that stands in for SQL Server's own unless the settings name another, by the name it has in Debian.
inline constexpr std::string_view kTdsDriver = "FreeTDS";

// The profile of the driver with this library, a path or a name. One that is not known has the general profile.
[[nodiscard]] const DriverProfile& ProfileOf(std::string_view library);

} // namespace veldrane
