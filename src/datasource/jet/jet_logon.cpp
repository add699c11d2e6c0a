#include "datasource/jet/jet_logon.h"

#include "datasource/providers.h"
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
constexpr std::string_view kOwnKeys = "Jet OLEDB:"; // what all keys of this provider alone begin with

// The published properties of the provider under which a string opens a data source.
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

bool IsKnown(std::string_view key)
{
    return text::FindFolded(key, kOwnKeys) == 0 ||
           std::any_of(kKeys.begin(), kKeys.end(), [&](std::string_view each) { return text::EqualFolded(each, key); });
}

} // namespace

bool AsksForJet(const ConnectionString& given)
{
    return NamesProvider(given.Value("PROVIDER"), kJetProvider);
}

JetLogon BuildJetLogon(const ConnectionString& given)
{
    if (!given.Value(kFormatKey).empty())
        Refuse(
            "Only Jet files themselves can be opened, no files of other formats: take \"Extended Properties\" out of "
            "the connection string.");
    for (const ConnectionEntry& entry : given.Entries())
        if (!IsKnown(entry.Key))
            Refuse("The provider of Jet files has no key \"" + entry.Key + "\": take it out of the connection string.");
    JetLogon logon{.File = given.Value(kFileKey), .Password = given.Value(kPasswordKey)};
    if (logon.File.empty())
        Refuse("The connection string names no file: give the path of one as \"Data Source\".");
    return logon;
}

} // namespace veldrane
