#include "datasource/logon/browse_filter.h"

#include "preview/active_parse.h"

namespace veldrane {
namespace {

// The file type and the pattern of "Microsoft Access Driver (*.mdb)"; "" of a name that is built otherwise.
std::string FilterInName(const std::string& driver, Messages& messages)
{
    if (driver.empty())
        return "";
    ActiveParse parser;
    const Words& parts = parser.ParseText(driver, "(", DelimiterMode::Whole, CaseRule::Sensitive);
    if (parts.Count() != 2)
        return "";
    const std::string type = ActiveParse::ReplaceText(parts.Item(std::size_t{1})->Text, "Driver", "Files", messages);
    const std::string pattern = ActiveParse::ReplaceText(parts.Item(std::size_t{2})->Text, ")", "", messages);
    return type + "|" + pattern + "|All Files|*.*";
}

} // namespace

std::string BrowseFilter(const std::string& driver, const InstalledDrivers& installed, Messages& messages)
{
    if (std::string filter = FilterInName(driver, messages); !filter.empty())
        return filter;
    if (ProfileOfDriver(driver, installed).Family == DriverFamily::Sqlite)
        return "SQLite Databases|*.db;*.sqlite;*.sqlite3|All Files|*.*";
    messages.Tell("", "Unable to determine file type. No Filter will be applied.");
    return "All Files|*.*";
}

} // namespace veldrane
