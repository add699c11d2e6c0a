#pragma once

#include "datasource/connection_string.h"

#include <string>

namespace veldrane {

// What opens a Jet file.
struct JetLogon
{
    std::string File;
    std::string Password; // the file's own; "" if none was given
};

// Whether the string asks for the provider of Jet files.
[[nodiscard]] bool AsksForJet(const ConnectionString& given);

// Takes "Data Source" and "Jet OLEDB:Database Password" out of the string. A workgroup's login can't be checked here
// and bars nobody from reading; other keys that such strings carry mean nothing to a reader. Throws DataSourceError for
// a string that names no file, that asks for a file of another format (Extended Properties), or with a key that the
// provider does not have. The message names the key, never its value.
[[nodiscard]] JetLogon BuildJetLogon(const ConnectionString& given);

} // namespace veldrane
