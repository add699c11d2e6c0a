#include "datasource/jet/jet_logon.h"

#include "datasource/providers.h"
#include "datasource/quoted_value.h"
#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace veldrane {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kFileKey = "Data Source";
constexpr std::string_view kPasswordKey = "Jet OLEDB:Database Password";
constexpr std::string_view kFormatKey = "Extended Properties";

// The published properties of this provider alone, behind the words with which they all begin.
constexpr std::string_view kOwnPrefix = "Jet OLEDB:";
constexpr std::array kOwnKeys{"Database Password"sv,
                              "System database"sv,
                              "Engine Type"sv,
                              "Database Locking Mode"sv,
                              "Registry Path"sv,
                              "Lock Retry"sv,
                              "Lock Delay"sv,
                              "Max Locks Per File"sv,
                              "Max Buffer Size"sv,
                              "Page Timeout"sv,
                              "Shared Async Delay"sv,
                              "User Commit Sync"sv,
                              "Implicit Commit Sync"sv,
                              "Exclusive Async Delay"sv,
                              "Flush Transaction Timeout"sv,
                              "Global Partial Bulk Ops"sv,
                              "Global Bulk Transactions"sv,
                              "New Database Password"sv,
                              "Create System Database"sv,
                              "Encrypt Database"sv,
                              "Don't Copy Locale on Compact"sv,
                              "Compact Without Replica Repair"sv,
                              "SFP"sv,
                              "Compact Reclaimed Space Amount"sv,
                              "Connection Control"sv,
                              "Recycle Long-Valued Pages"sv,
                              "Bypass UserInfo Validation"sv,
                              "Limited DB Caching"sv,
                              "Support Complex Data"sv};

// The others under which a string opens a data source.
constexpr std::array kKeys{"Provider"sv,
                           kFileKey,
                           kFormatKey,
                           "User ID"sv,
                           "UID"sv,
                           "Password"sv,
                           "PWD"sv,
                           "Mode"sv,
                           "Locale Identifier"sv,
                           "Persist Security Info"sv,
                           "Persist Encrypted"sv,
                           "Cache Authentication"sv,
                           "Encrypt Password"sv,
                           "Mask Password"sv,
                           "Prompt"sv,
                           "Window Handle"sv,
                           "OLE DB Services"sv};

[[noreturn]] void Refuse(const std::string& reason)
{
    throw DataSourceError(data_source_error::kFailed, "ConnectionString", reason);
}

template <class Keys>
bool Holds(const Keys& keys, std::string_view key)
{
    return std::any_of(keys.begin(), keys.end(), [&](std::string_view each) { return text::EqualFolded(each, key); });
}

bool IsKnown(std::string_view key)
{
    return text::FindFolded(key, kOwnPrefix) == 0 ? Holds(kOwnKeys, key.substr(kOwnPrefix.size())) : Holds(kKeys, key);
}

void RefuseUnreadable(const ConnectionEntry& entry)
{
    if (!IsKnown(entry.Key))
        Refuse("The provider of Jet files has no key \"" + entry.Key + "\": take it out of the connection string.");
    if (!Unquoted(entry.Value))
        Refuse("The connection string opens a quote at \"" + entry.Key +
               "\" and does not close it at the end of the value: double the quotes within, and write a value with a "
               "semicolon in braces.");
}

} // namespace

bool AsksForJet(const ConnectionString& given)
{
    return NamesProvider(given.Value("PROVIDER"), kJetProvider);
}

std::string JetValue(const ConnectionString& given, std::string_view key)
{
    std::string value = given.Value(key);
    return Unquoted(value).value_or(value);
}

JetLogon BuildJetLogon(const ConnectionString& given)
{
    if (!JetValue(given, kFormatKey).empty())
        Refuse(
            "Only Jet files themselves can be opened, no files of other formats: take \"Extended Properties\" out of "
            "the connection string.");
    for (const ConnectionEntry& entry : given.Entries())
        RefuseUnreadable(entry);
    JetLogon logon{.File = JetValue(given, kFileKey), .Password = JetValue(given, kPasswordKey)};
    if (logon.File.empty())
        Refuse("The connection string names no file: give the path of one as \"Data Source\".");
    return logon;
}

} // namespace veldrane
