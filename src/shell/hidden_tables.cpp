#include "shell/hidden_tables.h"

namespace veldrane {

void TellHiddenTables(Catalog& catalog, std::ostream& out)
{
    const std::size_t count = catalog.HiddenTables().size();
    if (count == 1)
        out << "veldrane: 1 table is not listed: the login may not read it.\n";
    else if (count > 1)
        out << "veldrane: " << count << " tables are not listed: the login may not read them.\n";
}

} // namespace veldrane
