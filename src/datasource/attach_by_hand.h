#pragma once

#include "datasource/catalog.h"
#include "model/project.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <functional>
#include <optional>
#include <string>

// Tables and stored procedures that a person names by hand, because the lists do not show them.
namespace veldrane {

// Asks the person for a name; nothing on Cancel.
using AskForName = std::function<std::optional<std::string>()>;

// The data source that knows whether a name is good. Each answer is looked for anew, so that what was made meanwhile
// is found.
struct NameSource
{
    DataSourceConnection* Connection = nullptr; // nothing when no data source is open: no name is good then
    veldrane::Messages& Messages;

    // Runs a look-up, which may take as long as a statement may, under the signs of it that a person is to see. It ends
    // by ReadingCancelled where the person ends it, and so does whoever has asked for the name.
    std::function<void(const std::function<void()>& lookUp)> Watched = [](const auto& lookUp) { lookUp(); };
};

// Asks until a name is a table's that can be opened; "" on Cancel. A failure of any kind is told as a wrong name.
[[nodiscard]] std::string GetTableName(const NameSource& source, const AskForName& ask);

// Asks until a name is a stored procedure's, found as it is written or else without regard to case, and answers it in
// the data source's spelling; "" on Cancel. A failure of any kind is told as a wrong name.
[[nodiscard]] std::string GetStoredProcedureName(const NameSource& source, const AskForName& ask);

// What a name that was asked for is attached to.
struct Attachment
{
    NameSource Source;
    TTCProject& Project; // modified when a name was attached
    const text::CodePage& CodePage;
    std::function<void()> RefreshLists;
};

// Asks for a name until it is a new one for the project, attaches it and refreshes the lists. The name that was
// attached; "" on Cancel, with nothing changed.
std::string AttachTable(const Attachment& attachment, const AskForName& ask);
std::string AttachStoredProcedure(const Attachment& attachment, const AskForName& ask);

} // namespace veldrane
