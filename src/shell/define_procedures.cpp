#include "shell/define_procedures.h"

#include "datasource/pick_procedures.h"
#include "datasource/procedure_method.h"
#include "shell/named_argument.h"

#include <algorithm>
#include <memory>

namespace veldrane {
namespace {

SPParameters CopyOf(const SPParameters& parameters)
{
    SPParameters copy;
    for (const SPParameter& parameter : parameters)
        AddParameter(copy, parameter);
    return copy;
}

// Two methods never share a procedure: each has a name of its own.
std::shared_ptr<SP> CopyOf(const SP& procedure)
{
    auto copy = std::make_shared<SP>();
    copy->SPName = procedure.SPName;
    copy->SPMethodName = procedure.SPCleanName();
    copy->SPParameters = CopyOf(procedure.SPParameters);
    return copy;
}

std::string AnotherClass(const SP& procedure)
{
    return "name another class, as in --procedure '" + procedure.SPName + "=CLASS'.";
}

bool CallsProcedure(const TTCMethod& method)
{
    return method.MethodIsSP && method.StoredProcedure != nullptr;
}

bool HasProcedures(const KZMClasses& classes)
{
    return std::ranges::any_of(
        classes, [](const KZMClass& item) { return std::ranges::any_of(item.TTCMethods, CallsProcedure); });
}

// False if the data source can't answer the question at all.
template <class Question>
bool Answers(Question&& question)
{
    try {
        question();
        return true;
    } catch (const DataSourceError& error) {
        if (error.Number != data_source_error::kNotSupported)
            throw;
    }
    return false;
}

class Definition
{
  public:
    explicit Definition(const ProcedureRun& run) : run_(run)
    {
        listed_ = Answers([&] { ReadProcedures(run.Source, procedures_); });
        parametersTold_ = Answers([&] { ReadParameters(run.Source, TTCMethods{}, procedures_); });
    }

    void RefreshMethods()
    {
        for (const KZMClass& item : run_.Names.Classes)
            for (const TTCMethod& method : item.TTCMethods)
                if (CallsProcedure(method) && !Refresh(*method.StoredProcedure))
                    run_.Refuse("the method " + method.MethodName + " of the class " + item.ClassName +
                                " stays as it was: its stored procedure '" + method.StoredProcedure->SPName +
                                "' could not be read.");
    }

    void TellLimits() const
    {
        if (!parametersTold_)
            TellParametersMissing(run_.Names.Messages);
    }

    void Define(const std::string& request)
    {
        const NamedArgument asked =
            SplitAtName(request, [this](const std::string& name) { return Find(name) != nullptr; });
        const std::shared_ptr<SP> procedure = Find(asked.Name);
        if (!procedure)
            return run_.Refuse("the data source has no stored procedure named '" + asked.Name +
                               "': veldrane tables lists those that it has.");
        if (asked.Place.empty())
            return DefineInOwnClass(*procedure);
        const std::shared_ptr<KZMClass> item = run_.Names.Classes.Item(run_.ClassCalled(asked.Place));
        if (item)
            AddMethod(*item, *procedure);
        else
            LeaveOut(*procedure, "there is no class or table '" + asked.Place + "' in the project",
                     ": make one with --table, or " + AnotherClass(*procedure));
    }

  private:
    // SQL Server numbers procedures of one name, and has one alone nearly everywhere.
    [[nodiscard]] std::shared_ptr<SP> Find(const std::string& name) const
    {
        std::shared_ptr<SP> procedure = FindProcedure(procedures_, name);
        return procedure ? procedure : FindProcedure(procedures_, name + ";1");
    }

    // False if the method has to stay as it was. A data source that tells nothing gives no reason to change it.
    bool Refresh(SP& bound)
    {
        if (!listed_)
            return true;
        const std::shared_ptr<SP> now = FindProcedure(procedures_, bound.SPName);
        if (!now || !ProcedureFitsProject(*now, run_.Names.CodePage, run_.Names.Messages))
            return false;
        if (parametersTold_)
            bound.SPParameters = CopyOf(now->SPParameters);
        return true;
    }

    bool IsMethodOf(const KZMClass& item, const SP& procedure) const
    {
        return std::ranges::any_of(item.TTCMethods, [&](const TTCMethod& method) {
            return CallsProcedure(method) &&
                   FindProcedure(procedures_, method.StoredProcedure->SPName).get() == &procedure;
        });
    }

    void DefineInOwnClass(const SP& procedure)
    {
        if (const std::shared_ptr<KZMClass> own = run_.Names.Classes.Item(kProceduresClass)) {
            AddMethod(*own, procedure);
            return;
        }
        const auto made = std::make_shared<KZMClass>();
        made->ClassName = kProceduresClass;
        if (AddMethod(*made, procedure) && !AddToProject(made))
            LeaveOut(procedure, "the project can't have a class named " + made->ClassName,
                     ": " + AnotherClass(procedure));
    }

    bool AddToProject(const std::shared_ptr<KZMClass>& item)
    {
        ClassForm form = FormOf(*item);
        if (CheckNames(form, {}, run_.Names) != NameCheck::Accepted)
            return false;
        form.CollectionName = ""; // the checks make a valid name of none
        StoreForm(form, *item);
        return AddClassToProject(item, run_.Names);
    }

    // Whether the procedure is a method of the class now; if not, that is refused.
    bool AddMethod(KZMClass& item, const SP& procedure)
    {
        if (IsMethodOf(item, procedure))
            return true;
        if (item.IsMTSRequiredClass)
            return LeaveOut(procedure, "the class " + item.ClassName + " belongs to component services",
                            ": " + AnotherClass(procedure));
        frmAddEditSP form({.Mode = ProcedureMode::Add,
                           .Procedure = CopyOf(procedure),
                           .Class = item,
                           .Key = {},
                           .Messages = run_.Names.Messages,
                           .Errors = run_.Names.Errors,
                           .CodePage = run_.Names.CodePage});
        switch (form.NameMethod()) {
        case ProcedureNaming::NameTaken:
            return LeaveOut(procedure,
                            "the class " + item.ClassName + " has a member named " + form.txtMethodName + " already",
                            ": rename that, or " + AnotherClass(procedure));
        case ProcedureNaming::NotWritable:
            return LeaveOut(procedure, "a name in it can't enter the project or is too long", ".");
        case ProcedureNaming::Done:
            break;
        }
        if (!parametersTold_)
            run_.Refuse("'" + procedure.SPName + "' is a method without parameters: the data source tells none.");
        run_.Names.Project.SetModified(true);
        return true;
    }

    bool LeaveOut(const SP& procedure, const std::string& reason, const std::string& remedy) const
    {
        run_.Refuse("the stored procedure '" + procedure.SPName + "' is left out, for " + reason + remedy);
        return false;
    }

    const ProcedureRun& run_;
    SPs procedures_;
    bool listed_ = false;
    bool parametersTold_ = false;
};

} // namespace

void DefineProcedures(const ProcedureRun& run, const std::vector<std::string>& requests)
{
    if (requests.empty() && !HasProcedures(run.Names.Classes))
        return;
    Definition definition(run);
    definition.RefreshMethods();
    if (!requests.empty())
        definition.TellLimits();
    for (const std::string& request : requests)
        definition.Define(request);
}

} // namespace veldrane
