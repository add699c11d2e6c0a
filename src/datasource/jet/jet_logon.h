#pragma once

#include "datasource/connection_string.h"

#include <string>
#include <string_view>

namespace veldrane {

// What opens a Jet file.
struct JetLogon
{
    std::string File;
    std::string Password; // the file's own; "" if none was given
};

// Whether the string asks for the provider of Jet files.
[[nodiscard]] bool AsksForJet(const ConnectionString& given);

// The value of the last entry with the key, "" if there is none. Quotes around it, double or single, are taken off, and
// those within that are doubled are one: so the provider gives its strings back.
[[nodiscard]] std::string JetValue(const ConnectionString& given, std::string_view key);

// Takes "Data Source" and "Jet OLEDB:Database Password" out of the string. A workgroup's login can't be checked here
// and bars nobody from reading; other keys that such strings carry mean nothing to a reader. Throws DataSourceError for
// a string that names no file, that asks for a file of another format (Extended Properties), with a key that the
// provider does not have, or with a quote that is not closed. The message names the key, never its value.
[[nodiscard]] JetLogon BuildJetLogon(const ConnectionString& given);

} // namespace veldrane
