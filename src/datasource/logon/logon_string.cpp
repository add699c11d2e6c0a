#include "datasource/logon/logon_string.h"

#include "datasource/connection_string.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>

namespace veldrane {
namespace {

// The kind of a project's connection is told by "=MSDASQL;" and its like, wherever in the string they stand.
bool NamesProvider(std::string_view value)
{
    const std::string entry = "=" + std::string(value) + ";";
    return std::any_of(kLogonProviders.begin(), kLogonProviders.end(), [&](const LogonProvider& provider) {
        return text::FindFolded(entry, "=" + std::string(provider.Key) + ";") != std::string::npos;
    });
}

bool NeedsBraces(std::string_view value)
{
    return value.find(';') != std::string_view::npos || value.starts_with('{') || text::Trim(value) != value ||
           NamesProvider(value);
}

std::string Entry(std::string_view key, const std::string& value)
{
    return std::string(key) + (NeedsBraces(value) ? Braced(value) : value) + ";";
}

std::string Target(const LogonPage& page)
{
    return page.optUseDSN ? Entry("DSN=", page.cmbDSN.Text()) : Entry("Driver=", page.cmbDrivers.Text());
}

std::string OdbcEntries(const LogonPage& page)
{
    std::string entries = Target(page);
    if (!page.optUseDSN)
        entries += Entry("Server=", page.txtServer);
    entries += Entry("UID=", page.txtUID) + Entry("PWD=", page.txtPWD);
    if (!page.txtDatabase.empty())
        entries += Entry(page.DriverName() == kAccessDriver ? "DBQ=" : "Database=", page.txtDatabase);
    // Behind that of the login: a driver takes the last one, and reading back tells the two apart by their order.
    if (!page.txtDBPassword.empty())
        entries += Entry("PWD=", page.txtDBPassword);
    return entries;
}

std::string JetEntries(const LogonPage& page)
{
    std::string entries = Entry("Data Source=", page.txtDatabase);
    entries += page.txtUID.empty() ? "USER ID=Admin;" : Entry("USER ID=", page.txtUID);
    entries += Entry("PASSWORD=", page.txtPWD);
    if (!page.txtDBPassword.empty())
        entries += Entry("Jet OLEDB:Database Password=", page.txtDBPassword);
    return entries;
}

std::string SqlServerEntries(const LogonPage& page)
{
    std::string security = "Integrated Security=SSPI;";
    if (!page.txtUID.empty())
        security = Entry("UID=", page.txtUID) + Entry("PWD=", page.txtPWD);
    const std::string server = Entry("Data Source=", page.txtServer);
    std::string entries = Target(page) + (page.optUseDSN ? security + server : server + security);
    if (!page.txtDatabase.empty())
        entries += Entry("Initial Catalog=", page.txtDatabase);
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

std::string BuildLogonString(const LogonProvider& provider, const LogonPage& page)
{
    return "PROVIDER=" + std::string(provider.Key) + ";" + Entries(provider, page);
}

} // namespace veldrane
