#include "datasource/pick_procedures.h"

#include <algorithm>
#include <memory>

namespace veldrane {
namespace {

// Whether the provider gave them. A connection that is gone is no limitation of the provider.
bool ReadParametersIfGiven(const ProcedurePicker& picker, const TTCMethods& methods, SPs& selected)
{
    try {
        ReadParameters(OpenSource(picker.Source), methods, selected);
        return true;
    } catch (const DataSourceError& error) {
        if (error.Number == data_source_error::kNoOpenConnection)
            throw;
        return false;
    }
}

std::vector<ListRow> RowsOf(const SPs& procedures)
{
    std::vector<ListRow> rows;
    for (const SP& procedure : procedures)
        if (procedures.Item(procedure.SPName).get() == &procedure)
            rows.push_back(ProcedureRow(procedure.SPName));
    return rows;
}

// A project file ends a value at a line break, and the rest of it could be read as anything.
void KeepOnOneLine(std::string& text)
{
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
}

} // namespace

void ReadProcedures(Catalog& catalog, SPs& procedures)
{
    for (const std::string& name : catalog.Procedures()) {
        const std::shared_ptr<SP> known = FindProcedure(procedures, name);
        if (!known)
            procedures.Add(name, name);
        else if (known->SPName != name)
            procedures.Add(name, "");
    }
}

std::shared_ptr<SP> FindProcedure(const SPs& procedures, std::string_view name)
{
    std::shared_ptr<SP> underName = procedures.Item(name);
    if (!underName || underName->SPName == name)
        return underName;
    for (std::size_t i = 1; i <= procedures.Count(); ++i)
        if (std::shared_ptr<SP> procedure = procedures.Item(i); procedure->SPName == name)
            return procedure;
    return underName;
}

void ReadParameters(Catalog& catalog, const TTCMethods& methods, SPs& procedures)
{
    for (const CatalogParameter& row : catalog.ProcedureParameters()) {
        const std::shared_ptr<SP> procedure = FindProcedure(procedures, row.ProcedureName);
        // One of another letter case is found as well; these are not its parameters.
        if (!procedure || procedure->SPName != row.ProcedureName || methods.Item(procedure->SPMethodName))
            continue;
        AddParameter(procedure->SPParameters, row.Parameter);
    }
}

void AddParameter(SPParameters& parameters, const SPParameter& parameter)
{
    const auto added = std::make_shared<SPParameter>(parameter);
    for (std::string* text : {&added->DefaultValue, &added->Description, &added->DataType, &added->LocalDataTypeName})
        KeepOnOneLine(*text);
    if (!parameters.AddExisting(added, added->ParameterName))
        parameters.AddExisting(added, "");
}

void TellParametersMissing(Messages& messages)
{
    messages.Tell(
        "OLE DB Provider Limitation",
        "Parameters are not supported by the OLE DB Provider you are currently using.  NO Parameters will be included in the Stored Procedure Definition.",
        MessageIcon::Warning);
}

void PickStoredProcedures(const ProcedurePicker& picker, const TTCMethods& methods, SPs& selected,
                          const TickProcedures& tick)
{
    Guarded(picker.Errors, "frmPickSP", "PickStoredProcedures", [&] {
        bool hasParameters = true;
        picker.Watched([&] {
            ReadProcedures(OpenSource(picker.Source), selected);
            hasParameters = ReadParametersIfGiven(picker, methods, selected);
        });
        if (!hasParameters)
            TellParametersMissing(picker.Messages);
        const std::optional<std::vector<std::string>> ticked = tick(RowsOf(selected));
        if (!ticked)
            return;
        for (const std::string& key : *ticked)
            if (const std::shared_ptr<SP> procedure = selected.Item(key))
                procedure->SPMethodName = procedure->SPCleanName();
    });
}

} // namespace veldrane
