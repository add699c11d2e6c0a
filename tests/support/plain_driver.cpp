#include "support/plain_driver.h"

#include <stdexcept>

namespace veldrane::testing {
namespace {

namespace fs = std::filesystem;

// Where Debian keeps the libraries, a folder for each kind of machine.
fs::path InstalledLibrary(const std::string& name)
{
    for (const fs::directory_entry& entry : fs::directory_iterator("/usr/lib"))
        if (std::error_code ignored; fs::exists(entry.path() / "odbc" / name, ignored))
            return entry.path() / "odbc" / name;
    throw std::runtime_error("There is no " + name + ": run scripts/install-dependencies test.");
}

} // namespace

std::string LinkPlainDriver(const fs::path& folder, const std::string& library)
{
    const fs::path link = folder / "libplain.so";
    fs::create_symlink(InstalledLibrary(library), link);
    return link;
}

} // namespace veldrane::testing
