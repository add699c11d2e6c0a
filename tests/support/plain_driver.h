#pragma once

#include <filesystem>
#include <string>

namespace veldrane::testing {

// Puts a link to an installed driver, such as "psqlodbcw.so", into the folder, under a name that tells the program
// nothing of it. Answers the path, which a connection string of the user's own takes as "Driver".
[[nodiscard]] std::string LinkPlainDriver(const std::filesystem::path& folder, const std::string& library);

} // namespace veldrane::testing
