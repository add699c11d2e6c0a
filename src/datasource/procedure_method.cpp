#include "datasource/procedure_method.h"

#include "datasource/naming.h"
#include "model/working_copy.h"
#include "text/case_folding.h"

#include <unordered_set>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kNameControl = "txtMethodName";

// The first parameter whose name another one has already, without regard to case; nothing if there is none.
const SPParameter* SecondOfAName(const SPParameters& parameters)
{
    std::unordered_set<std::string> names;
    for (const SPParameter& parameter : parameters)
        if (!names.insert(text::Fold(parameter.ParameterName)).second)
            return &parameter;
    return nullptr;
}

// The 1-based position of the method that calls the procedure; 0 if there is none. Another one may have its name.
std::size_t PositionOf(const SP& procedure, const TTCMethods& methods)
{
    for (std::size_t position = methods.Count(); position > 0; --position)
        if (methods.Item(position)->StoredProcedure.get() == &procedure)
            return position;
    return 0;
}

} // namespace

std::string_view DirectionText(std::int32_t direction)
{
    switch (direction) {
    case parameter_direction::kInput:
        return "Input";
    case parameter_direction::kInputOutput:
        return "In/Out";
    case parameter_direction::kOutput:
        return "Output";
    case parameter_direction::kReturnValue:
        return "Return";
    default:
        return "";
    }
}

std::vector<ParameterRow> ParameterRows(const SP& procedure)
{
    std::vector<ParameterRow> rows;
    for (const SPParameter& parameter : procedure.SPParameters)
        rows.push_back({.Name = parameter.ParameterName,
                        .Direction = std::string(DirectionText(parameter.Direction)),
                        .DataType = parameter.DataType});
    return rows;
}

// A project file holds no two parameters of one name: the second would be gone when it is opened again.
std::optional<Question> ProcedureRefusal(const SP& procedure, const text::CodePage& codePage)
{
    if (auto trouble = NotWritable(procedure.SPName, codePage))
        return trouble;
    for (const SPParameter& parameter : procedure.SPParameters)
        if (auto trouble = NotWritable(parameter.ParameterName, codePage))
            return trouble;
    const SPParameter* second = SecondOfAName(procedure.SPParameters);
    if (second == nullptr)
        return std::nullopt;
    return Question{.Title = "Duplicate Parameter Name",
                    .Text = "The stored procedure '" + procedure.SPName + "' has two parameters named '" +
                            second->ParameterName +
                            "', letter case aside, so it can't enter the project. Rename one of them.",
                    .Icon = MessageIcon::Warning};
}

bool ProcedureFitsProject(const SP& procedure, const text::CodePage& codePage, Messages& messages)
{
    const std::optional<Question> refusal = ProcedureRefusal(procedure, codePage);
    if (refusal)
        messages.Ask(*refusal);
    return !refusal;
}

frmAddEditSP::frmAddEditSP(ProcedureEdit edit)
    : txtMethodName(edit.Mode == ProcedureMode::Add ? edit.Procedure->SPMethodName : edit.Key), edit_(std::move(edit))
{}

std::string frmAddEditSP::Caption() const
{
    return edit_.Mode == ProcedureMode::Add ? "Add New Stored Procedure: " + edit_.Procedure->SPMethodName
                                            : "Edit " + edit_.Key;
}

TypedName frmAddEditSP::NameRules() const
{
    TypedName rules = MethodNameRules(edit_.Class, edit_.Key, edit_.CodePage);
    rules.Refuses = [this](std::string_view /*typed*/) { return ProcedureRefusal(*edit_.Procedure, edit_.CodePage); };
    return rules;
}

std::string frmAddEditSP::Trouble(std::string_view control) const
{
    return control == kNameControl ? NameTrouble(txtMethodName, NameRules()) : std::string();
}

std::shared_ptr<SP> frmAddEditSP::Edited() const
{
    std::shared_ptr<SP> procedure = WorkingCopy(*edit_.Procedure);
    procedure->SPMethodName = MakeValidName(txtMethodName);
    return procedure;
}

bool frmAddEditSP::cmdOK_Click()
{
    ProcedureNaming naming = ProcedureNaming::NotWritable;
    Guarded(edit_.Errors, "frmAddEditSP", "cmdOK_Click", [&] { naming = NameMethod(); });
    if (naming == ProcedureNaming::NameTaken)
        edit_.Messages.Ask(NameTaken(txtMethodName, NameRules()));
    if (naming != ProcedureNaming::Done)
        FocusWanted.Raise(kNameControl);
    return naming == ProcedureNaming::Done;
}

ProcedureNaming frmAddEditSP::NameMethod()
{
    if (!MakeFitName(txtMethodName, NameRules(), edit_.Messages))
        return ProcedureNaming::NotWritable;
    return edit_.Mode == ProcedureMode::Add ? AddMethod() : RenameMethod();
}

ProcedureNaming frmAddEditSP::AddMethod()
{
    KZMClass& item = edit_.Class;
    if (NameRules().IsTaken(txtMethodName))
        return ProcedureNaming::NameTaken;
    item.TTCMembers.Add(txtMethodName, txtMethodName);
    const auto method = item.TTCMethods.Add(txtMethodName, false, KZMArguments{}, "", "Public", false, txtMethodName);
    method->MethodIsSP = true;
    method->StoredProcedure = edit_.Procedure;
    edit_.Procedure->SPMethodName = txtMethodName;
    return ProcedureNaming::Done;
}

ProcedureNaming frmAddEditSP::RenameMethod()
{
    const std::string before = edit_.Key;
    KZMClass& item = edit_.Class;
    if (NameRules().IsTaken(txtMethodName))
        return ProcedureNaming::NameTaken;
    edit_.Procedure->SPMethodName = txtMethodName; // of an older file it may differ, though the method keeps its name
    if (txtMethodName == before)
        return ProcedureNaming::Done;
    const std::size_t position = PositionOf(*edit_.Procedure, item.TTCMethods);
    const std::shared_ptr<TTCMethod> renamed = item.TTCMethods.Item(position)->Clone();
    renamed->MethodName = txtMethodName;
    if (item.TTCMembers.Contains(before))
        item.TTCMembers.Remove(before);
    item.TTCMembers.Add(txtMethodName, txtMethodName);
    item.TTCMethods.Remove(position);
    item.TTCMethods.AddExisting(renamed, txtMethodName);
    edit_.Key = txtMethodName;
    return ProcedureNaming::Done;
}

} // namespace veldrane
