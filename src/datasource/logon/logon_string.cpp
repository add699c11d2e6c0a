#include "datasource/logon/logon_string.h"

#include "datasource/connection_string.h"
#include "datasource/quoted_value.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>

namespace veldrane {
namespace {

// The kind of a project's connection is told by "=MSDASQL;" and its like, wherever in the string they stand.
bool PassesForProvider(std::string_view value)
{
    const std::string entry = "=" + std::string(value) + ";";
    return std::any_of(kLogonProviders.begin(), kLogonProviders.end(), [&](const LogonProvider& provider) {
        return text::FindFolded(entry, "=" + std::string(provider.Key) + ";") != std::string::npos;
    });
}

bool NeedsBraces(std::string_view value)
{
    return value.find(';') != std::string_view::npos || value.starts_with('{') || text::Trim(value) != value ||
           PassesForProvider(value);
}

// For the providers that take quotes off their values.
std::string QuotedEntry(std::string_view opening, const std::string& value)
{
    return LogonEntry(opening, QuotedIfNeeded(value));
}

std::string Target(const LogonPage& page, std::string (*entry)(std::string_view opening, const std::string& value))
{
    return page.optUseDSN ? entry("DSN=", page.cmbDSN.Text()) : entry("Driver=", page.cmbDrivers.Text());
}

std::string OdbcEntries(const LogonPage& page)
{
    std::string entries = Target(page, LogonEntry);
    if (!page.optUseDSN)
        entries += LogonEntry("Server=", page.txtServer);
    entries += LogonEntry("UID=", page.txtUID) + LogonEntry("PWD=", page.txtPWD);
    if (!page.txtDatabase.empty())
        entries += LogonEntry(page.DriverName() == kAccessDriver ? "DBQ=" : "Database=", page.txtDatabase);
    // Behind that of the login: a driver takes the last one, and reading back tells the two apart by their order.
    if (!page.txtDBPassword.empty())
        entries += LogonEntry("PWD=", page.txtDBPassword);
    return entries;
}

std::string JetEntries(const LogonPage& page)
{
    std::string entries = QuotedEntry("Data Source=", page.txtDatabase);
    entries += page.txtUID.empty() ? "USER ID=Admin;" : QuotedEntry("USER ID=", page.txtUID);
    entries += QuotedEntry("PASSWORD=", page.txtPWD);
    if (!page.txtDBPassword.empty())
        entries += QuotedEntry("Jet OLEDB:Database Password=", page.txtDBPassword);
    return entries;
}

std::string SqlServerEntries(const LogonPage& page)
{
    std::string security = "Integrated Security=SSPI;";
    if (!page.txtUID.empty())
        security = QuotedEntry("UID=", page.txtUID) + QuotedEntry("PWD=", page.txtPWD);
    const std::string server = QuotedEntry("Data Source=", page.txtServer);
    std::string entries = Target(page, QuotedEntry) + (page.optUseDSN ? security + server : server + security);
    if (!page.txtDatabase.empty())
        entries += QuotedEntry("Initial Catalog=", page.txtDatabase);
    return entries;
}

std::string Entries(const LogonProvider& provider, const LogonPage& page)
{
    switch (provider.Page) {
    case logon_page::kJet:
        return JetEntries(page);
    case logon_page::kSqlServer:
        return SqlServerEntries(page);
    default:
        return OdbcEntries(page);
    }
}

} // namespace

std::string LogonEntry(std::string_view opening, const std::string& value)
{
    const std::string written = NeedsBraces(value) ? Braced(value) : value;
    if (PassesForProvider(written))
        throw DataSourceError(data_source_error::kFailed, "ConnectionString",
                              "The value of \"" + std::string(opening.substr(0, opening.size() - 1)) +
                                  "\" can't be written: a part of it would pass for the provider.");
    return std::string(opening) + written + ";";
}

std::string BuildLogonString(const LogonProvider& provider, const LogonPage& page)
{
    return "PROVIDER=" + std::string(provider.Key) + ";" + Entries(provider, page);
}

} // namespace veldrane
