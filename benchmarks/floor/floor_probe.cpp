// The floor of a whole run: the least that a plain program does for the same result, over the same driver and the same
// system calls. It is measured as the program is, as whole processes: the first or second of these stands against
// `define`, the third against the files of both commands.
#include "catalog_queries.h"
#include "driver_calls.h"
#include "written_files.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane::floor_probe {
namespace {

void Run(const std::vector<char*>& arguments)
{
    const std::size_t count = arguments.size();
    const std::string_view what = count > 1 ? arguments[1] : "";
    if (what == "catalog" && count == 4)
        ReadCatalogByQueries(arguments[2], arguments[3]);
    else if (what == "calls" && (count == 3 || count == 4))
        ReadCatalogByCalls(arguments[2], count == 4 ? arguments[3] : "");
    else if (what == "write" && count == 4)
        WriteFilesOfPack(arguments[2], arguments[3]);
    else
        throw std::runtime_error(
            "usage: floor_probe catalog DATABASE CONNECTION | calls CONNECTION [TABLE] | write PACK FOLDER");
}

} // namespace
} // namespace veldrane::floor_probe

int main(int argc, char** argv)
{
    try {
        veldrane::floor_probe::Run(std::vector<char*>(argv, argv + argc));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "floor_probe: %s\n", error.what());
        return 1;
    }
}
