#include "shell/define_classes.h"

#include "datasource/collection_rule.h"
#include "datasource/field_statement.h"
#include "datasource/table_to_class.h"
#include "shell/define_plan.h"
#include "shell/define_procedures.h"
#include "shell/hidden_tables.h"
#include "shell/platform/console_text.h"
#include "text/case_folding.h"

#include <algorithm>
#include <unordered_map>

namespace veldrane {
namespace {

// As many tables cost about as much when read together with all the others as one that is read alone.
constexpr std::size_t kReadForOne = 40;

class ClassDefinition
{
  public:
    explicit ClassDefinition(const ClassRun& run) : run_(run) {}

    bool Run()
    {
        run_.Application.Progress.Stage(0, "Reading the catalog");
        ListClassTables();
        CountWork();
        RefreshClasses();
        if (run_.Command.Request.All)
            TellHiddenTables(run_.Source, run_.Application.ErrorOutput);
        const DefinePlan plan = PlanDefinition(TablesToPlan(), run_.Command.Request,
                                               [this](const std::string& table) { return RelatedTablesOf(table); });
        TellUnknown(plan.Unknown);
        for (const PlannedClass& planned : plan.Classes) {
            AddPlanned(planned);
            Advance(planned.TableName);
        }
        DefineProcedures({.Source = run_.Source,
                          .Names = NamesOfProject(),
                          .ClassCalled = [this](const std::string& name) { return ClassCalled(name); },
                          .Refuse = [this](const std::string& line) { Refuse(line); }},
                         run_.Command.Procedures);
        return !leftOut_;
    }

  private:
    void Note(const std::string& line) const
    {
        run_.Application.ErrorOutput << "veldrane: " << ConsoleLine(line) << '\n';
    }

    void Refuse(const std::string& line)
    {
        Note(line);
        leftOut_ = true;
    }

    ProjectNames NamesOfProject() const
    {
        return {.Project = run_.Session.Project(),
                .Classes = run_.Session.Classes(),
                .Messages = run_.Application.Asking,
                .Errors = run_.Errors,
                .CodePage = run_.Application.State.Generation.CodePage};
    }

    void ListClassTables()
    {
        for (const KZMClass& item : run_.Session.Classes())
            if (!item.TableName.empty())
                classesByTable_.try_emplace(text::Fold(item.TableName), item.ClassName);
    }

    // Of a run over all tables, each is opened, asked for its keys, and made a class.
    void CountWork()
    {
        const DefineRequest& request = run_.Command.Request;
        const std::size_t wanted = classesByTable_.size() + request.Tables.size() + request.Lookups.size();
        if (request.All || (wanted > 1 && wanted * kReadForOne > run_.Source.Tables().size()))
            run_.Source.ExpectManyTables();
        work_ = request.All ? classesByTable_.size() + 3 * run_.Source.Tables().size() : wanted;
    }

    void Advance(const std::string& name)
    {
        run_.Application.Progress.Step(
            static_cast<int>(100 * std::min(++done_, work_) / std::max<std::size_t>(work_, 1)), name);
    }

    // Whether the login may read the table. Any other failure is for those to tell who read it in earnest.
    bool MayRead(const std::string& table)
    {
        try {
            (void)run_.Source.Fields(FieldStatement(table));
        } catch (const DataSourceError& error) {
            return error.Number != data_source_error::kPermissionDenied;
        }
        return true;
    }

    ClassEdit EditOf(KZMClass& item)
    {
        return {.Class = item,
                .Source = &run_.Source,
                .Messages = run_.Application.Asking,
                .Errors = run_.Errors,
                .CodePage = run_.Application.State.Generation.CodePage};
    }

    void RefreshClasses()
    {
        for (KZMClass& item : run_.Session.Classes())
            if (!item.TableName.empty()) {
                Refresh(item);
                Advance(item.TableName);
            }
    }

    void Refresh(KZMClass& item)
    {
        const std::string kept = "the class " + item.ClassName + " stays as it was: ";
        if (!MayRead(item.TableName))
            return Note(kept + "the login may not read its table '" + item.TableName + "'.");
        ClassEdit edit = EditOf(item);
        if (RefreshClass(edit) != FieldsOutcome::Read)
            Refuse(kept + "its table '" + item.TableName + "' could not be read.");
        leftOut_ = leftOut_ || edit.FieldLeftOut;
    }

    bool IsNamed(const CatalogTable& table) const
    {
        const DefineRequest& request = run_.Command.Request;
        const auto isIt = [&](const std::string& argument) {
            const std::string word = text::Fold(argument) + "=";
            return word.starts_with(text::Fold(table.Name) + "=") ||
                   (!table.WithSchema.empty() && word.starts_with(text::Fold(table.WithSchema) + "="));
        };
        return std::ranges::any_of(request.Tables, isIt) || std::ranges::any_of(request.Lookups, isIt);
    }

    // Of a run over all tables, those that the login may read, and those that it asks for by name all the same.
    std::vector<CatalogTable> TablesToPlan()
    {
        std::vector<CatalogTable> tables = run_.Source.Tables();
        if (!run_.Command.Request.All)
            return tables;
        std::erase_if(tables, [&](const CatalogTable& table) {
            if (table.Type != "TABLE" || classesByTable_.contains(text::Fold(table.Name)))
                return false;
            Advance(table.Name);
            if (IsNamed(table) || MayRead(table.Name))
                return false;
            Note("'" + table.Name + "' is left out: the login may not read it.");
            return true;
        });
        return tables;
    }

    // What can't be read is told with the table itself.
    std::vector<std::string> RelatedTablesOf(const std::string& table)
    {
        Advance(table);
        std::vector<std::string> related;
        try {
            for (const CatalogKey& key : run_.Source.Keys(table))
                if (key.Type == catalog_key_type::kForeign)
                    related.push_back(key.RelatedTable);
        } catch (const DataSourceError&) {
            related.clear();
        }
        return related;
    }

    void TellUnknown(const std::vector<std::string>& names)
    {
        if (names.empty())
            return;
        const std::vector<std::string> hidden = run_.Source.HiddenTables();
        for (const std::string& name : names)
            if (std::ranges::any_of(hidden, [&](const std::string& each) { return text::EqualFolded(each, name); }))
                Refuse("'" + name + "' is left out: the login may not read it.");
            else
                Refuse("the data source has no table or view named '" + name + "'.");
    }

    void AddPlanned(const PlannedClass& planned)
    {
        const std::string leftOut = "'" + planned.TableName + "' is left out.";
        if (classesByTable_.contains(text::Fold(planned.TableName)))
            return;
        const std::string parent = planned.Place == PlannedPlace::Child ? ClassCalled(planned.Parent) : "";
        if (planned.Place == PlannedPlace::Child && parent.empty())
            return Refuse("there is no class or table '" + planned.Parent +
                          "' in the project to stand above: " + leftOut);
        if (!MayRead(planned.TableName))
            return Refuse("'" + planned.TableName + "' is left out: the login may not read it.");
        if (!AddClass(planned, parent))
            Refuse(leftOut);
    }

    // The class with this name, else the class of the table with this name.
    std::string ClassCalled(const std::string& name) const
    {
        if (const auto item = run_.Session.Classes().Item(name))
            return item->ClassName;
        const auto found = classesByTable_.find(text::Fold(name));
        return found == classesByTable_.end() ? "" : found->second;
    }

    bool AddClass(const PlannedClass& planned, const std::string& parent)
    {
        const auto item = std::make_shared<KZMClass>();
        ClassEdit edit = EditOf(*item);
        const BuildOutcome outcome =
            BuildClass(edit,
                       {.TableName = planned.TableName,
                        .ParentClassName = parent,
                        .Place = PlacementOf(planned.Place),
                        .Access = planned.IsView ? ClassAccess::ReadOnly : ClassAccess::Updatable},
                       run_.Session.Classes());
        if (outcome != BuildOutcome::Built)
            return false;
        if (run_.Command.Collections && IsRootClass(*item)) {
            item->CreateCollection = true;
            ChangeCollectionBox(*item, CollectionBox::Ticked, Buttons::OkCancel, run_.Application.Asking);
        }
        if (!AcceptNewClass(item, NamesOfProject()))
            return false;
        classesByTable_.try_emplace(text::Fold(item->TableName), item->ClassName);
        leftOut_ = leftOut_ || edit.FieldLeftOut;
        return true;
    }

    static Placement PlacementOf(PlannedPlace place)
    {
        switch (place) {
        case PlannedPlace::Child:
            return Placement::UnderParent;
        case PlannedPlace::Lookup:
            return Placement::Lookup;
        case PlannedPlace::Root:
            break;
        }
        return Placement::Root;
    }

    const ClassRun& run_;
    std::unordered_map<std::string, std::string> classesByTable_; // folded table name to class name
    std::size_t work_ = 0;
    std::size_t done_ = 0;
    bool leftOut_ = false;
};

} // namespace

bool DefineClasses(const ClassRun& run)
{
    return ClassDefinition(run).Run();
}

} // namespace veldrane
