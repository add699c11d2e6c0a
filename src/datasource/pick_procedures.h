#pragma once

#include "datasource/catalog.h"
#include "datasource/table_lists.h"
#include "model/methods.h"
#include "model/stored_procedures.h"
#include "ports/error_report.h"
#include "ports/messages.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Reading the stored procedures of a data source, and choosing those that become methods of a class.
namespace veldrane {

// Adds the procedures of the data source, each under its name; one whose name differs from another's in letter case
// alone comes in without a key. Overloaded ones give one. Throws DataSourceError.
void ReadProcedures(Catalog& catalog, SPs& procedures);

// The procedure of this name as it is written, or else without regard to case; nothing if there is none.
[[nodiscard]] std::shared_ptr<SP> FindProcedure(const SPs& procedures, std::string_view name);

// Adds their parameters, each under its name; a second one of the same name comes in without a key. Left out are those
// of a procedure whose `SPMethodName` is a method of `methods`. Throws DataSourceError; nothing is added then.
void ReadParameters(Catalog& catalog, const TTCMethods& methods, SPs& procedures);

// Adds a parameter under its name, or without a key if another one has the name. Line breaks and other control
// characters in what is told about it, such as its default, become blanks.
void AddParameter(SPParameters& parameters, const SPParameter& parameter);

// Tells that the data source does not give parameters, so that the procedures stay without them.
void TellParametersMissing(Messages& messages);

// Shows the rows of the list and answers the keys of those that the person ticked; nothing on Cancel.
using TickProcedures = std::function<std::optional<std::vector<std::string>>(const std::vector<ListRow>& lstSPs)>;

// The data source that is asked, and how it is told what could not be read.
struct ProcedurePicker
{
    Catalog* Source = nullptr; // nothing when no data source is open
    veldrane::Messages& Messages;
    ErrorReport& Errors;

    // Runs the reading, under the signs of it that a person is to see. It ends by ReadingCancelled where the person
    // ends it.
    std::function<void(const std::function<void()>& reading)> Watched = [](const auto& reading) { reading(); };
};

// Fills `selected` with all procedures of the data source; the list shows those that stand under their names. Those
// that the person ticks, and no others, have a `SPMethodName` afterwards. What fails but the reading of the parameters
// is reported, and nothing is ticked.
void PickStoredProcedures(const ProcedurePicker& picker, const TTCMethods& methods, SPs& selected,
                          const TickProcedures& tick);

} // namespace veldrane
