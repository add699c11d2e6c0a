#pragma once

#include "datasource/connection_string.h"
#include "datasource/logon/logon_page.h"
#include "ports/messages.h"

#include <string_view>
#include <vector>

namespace veldrane {

// The entries of a string that a dialog is to show, whatever it holds: as ConnectionString reads them, or where that
// refuses the text, cut at every semicolon and at the first "=".
[[nodiscard]] std::vector<ConnectionEntry> ReadableEntries(std::string_view text);

// Puts entries of a connection string, all that stand behind the page's provider, back into its controls. The page
// number decides which keys mean something there. Where none of the data sources or drivers named is on the list, that
// is left without a selection, so that no other one is taken for it. Says that "DATABASE" is not read back.
void ReadBack(LogonPage& page, std::size_t pageNumber, const std::vector<ConnectionEntry>& entries,
              const InstalledDrivers& installed, Messages& messages);

} // namespace veldrane
