#include "datasource/class_names.h"
#include "datasource/collection_rule.h"
#include "datasource/naming.h"
#include "datasource/table_to_class.h"
#include "model/xml_assist.h"
#include "projectfile/project_settings.h"
#include "shell/commands.h"
#include "shell/open_project_file.h"
#include "shell/platform/console_text.h"
#include "shell/platform/paths.h"
#include "shell/project_connection.h"
#include "text/case_folding.h"

#include <filesystem>
#include <unordered_map>

namespace veldrane {
namespace {

// One run of `define`, from the file as it is to the file as it should be. What can't be done is told and left out; the
// rest is saved.
class DefineRun
{
  public:
    DefineRun(const Application& application, const DefineCommand& command)
        : application_(application), command_(command), path_(PathFromRoot(command.File)), session_(application)
    {}

    int Run()
    {
        if (!StartProject() || !ApplySettings() || !NameFits() || !ConnectDataSource())
            return exit_code::kFailed;
        if (session_.ActiveConnection() != nullptr &&
            !Guarded(application_.Errors, "Veldrane", "define", [&] { DefineClasses(); }))
            return exit_code::kFailed;
        if (!session_.Save())
            return exit_code::kFailed;
        return leftOut_ ? exit_code::kFailed : exit_code::kDone;
    }

  private:
    TTCProject& Project() { return session_.Project(); }

    void Refuse(const std::string& line)
    {
        application_.ErrorOutput << "veldrane: " << ConsoleLine(line) << '\n';
        leftOut_ = true;
    }

    bool StartProject()
    {
        if (application_.Files.Kind(path_) != FileKind::Missing)
            return OpenProject();
        session_.New();
        const std::filesystem::path file(path_);
        Project().VBProjectName = MakeValidName(file.stem().string());
        Project().FullPath = path_;
        Project().FileName = file.filename().string();
        return true;
    }

    // A file is extended only if it was read whole: nobody is there to see what saving would drop.
    bool OpenProject()
    {
        const auto dataSource = command_.Connection.empty() ? DataSourceOnOpen::Connect : DataSourceOnOpen::LeaveClosed;
        if (!OpenProjectFile(application_, session_, path_, dataSource))
            return false;
        if (session_.LostClasses())
            Refuse(path_ + " stays as it is: not all of its classes can be read, and saving would drop the others.");
        return !session_.LostClasses();
    }

    bool ApplySettings()
    {
        const bool hadComponentServices = Project().MTSEnabled;
        for (const auto& [name, value] : command_.Settings) {
            try {
                SetProjectSetting(Project(), name, value);
            } catch (const RuntimeError& error) {
                Refuse("--set " + name + ": " + error.Description());
                return false;
            }
        }
        if (Project().MTSEnabled && !hadComponentServices && !AddXmlAssist(Project(), session_.Classes())) {
            Refuse(
                "component services need the name xmlAssist, which a class of the project has: rename that class first.");
            return false;
        }
        if (!Project().MTSEnabled && hadComponentServices)
            RemoveXmlAssist(Project(), session_.Classes());
        return true;
    }

    // After the settings: a file whose own name can't be the project's is given another by --set.
    bool NameFits()
    {
        return FitsProject(Project().VBProjectName, application_.State.Generation.CodePage, application_.Asking);
    }

    bool WantsClasses() const
    {
        return command_.Request.All || !command_.Request.Tables.empty() || !command_.Request.Lookups.empty();
    }

    // A project without a data source can still be given settings.
    bool ConnectDataSource()
    {
        if (command_.Connection.empty()) {
            if (session_.ActiveConnection() == nullptr && !Project().ConnectionString().empty())
                return false; // refused while the project was opened, and told
            if (session_.ActiveConnection() == nullptr && WantsClasses())
                Refuse("the project has no data source: give one with --connection.");
            return !leftOut_;
        }
        if (!Project().ConnectionString().empty() && Project().ConnectionString() != command_.Connection)
            application_.ErrorOutput << "veldrane: the data source given replaces that of the project.\n";
        SetConnection(Project(), command_.Connection);
        return session_.ConnectDataSource(StringOrigin::CommandLine);
    }

    void DefineClasses()
    {
        catalog_ = session_.ActiveConnection()->OpenCatalog();
        catalog_->ExpectManyTables();
        ListClassTables();
        RefreshClasses();
        const DefinePlan plan = PlanDefinition(catalog_->Tables(), command_.Request,
                                               [this](const std::string& table) { return RelatedTablesOf(table); });
        for (const std::string& name : plan.Unknown)
            Refuse("the data source has no table or view named '" + name + "'.");
        std::size_t done = 0;
        for (const PlannedClass& planned : plan.Classes) {
            AddPlanned(planned);
            application_.Progress(static_cast<int>(100 * ++done / plan.Classes.size()), planned.TableName);
        }
        catalog_.reset();
    }

    std::vector<std::string> RelatedTablesOf(const std::string& table)
    {
        std::vector<std::string> related;
        try {
            for (const CatalogKey& key : catalog_->Keys(table))
                if (key.Type == catalog_key_type::kForeign)
                    related.push_back(key.RelatedTable);
        } catch (const DataSourceError& error) {
            if (error.Number != data_source_error::kNotSupported)
                throw;
        }
        return related;
    }

    void ListClassTables()
    {
        for (const KZMClass& item : session_.Classes())
            if (!item.TableName.empty())
                classesByTable_.try_emplace(text::Fold(item.TableName), item.ClassName);
    }

    ClassEdit EditOf(KZMClass& item)
    {
        return {.Class = item,
                .Source = catalog_.get(),
                .Messages = application_.Asking,
                .Errors = application_.Errors,
                .CodePage = application_.State.Generation.CodePage};
    }

    void RefreshClasses()
    {
        for (KZMClass& item : session_.Classes()) {
            if (item.TableName.empty())
                continue;
            ClassEdit edit = EditOf(item);
            if (RefreshClass(edit) != FieldsOutcome::Read)
                Refuse("the class " + item.ClassName + " stays as it was: its table '" + item.TableName +
                       "' could not be read.");
            leftOut_ = leftOut_ || edit.FieldLeftOut;
        }
    }

    void AddPlanned(const PlannedClass& planned)
    {
        const std::string leftOut = "'" + planned.TableName + "' is left out.";
        if (classesByTable_.contains(text::Fold(planned.TableName)))
            return;
        const std::string parent = planned.Place == PlannedPlace::Child ? ParentClassOf(planned) : "";
        if (planned.Place == PlannedPlace::Child && parent.empty())
            return Refuse("there is no class or table '" + planned.Parent +
                          "' in the project to stand above: " + leftOut);
        if (!AddClass(planned, parent))
            Refuse(leftOut);
    }

    // The class with this name, else the class of the table with this name.
    std::string ParentClassOf(const PlannedClass& planned)
    {
        if (const auto item = session_.Classes().Item(planned.Parent))
            return item->ClassName;
        const auto found = classesByTable_.find(text::Fold(planned.Parent));
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
                       session_.Classes());
        if (outcome != BuildOutcome::Built)
            return false;
        if (command_.Collections && IsRootClass(*item)) {
            item->CreateCollection = true;
            ChangeCollectionBox(*item, CollectionBox::Ticked, Buttons::OkCancel, application_.Asking);
        }
        const ProjectNames names{.Project = Project(),
                                 .Classes = session_.Classes(),
                                 .Messages = application_.Asking,
                                 .Errors = application_.Errors,
                                 .CodePage = application_.State.Generation.CodePage};
        ClassForm form = FormOf(*item);
        if (CheckNames(form, {}, names) != NameCheck::Accepted)
            return false;
        StoreForm(form, *item);
        if (!AddClassToProject(item, names))
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

    const Application& application_;
    const DefineCommand& command_;
    const std::string path_;
    ProjectSession session_;
    std::unique_ptr<Catalog> catalog_;
    std::unordered_map<std::string, std::string> classesByTable_; // folded table name to class name
    bool leftOut_ = false;
};

} // namespace

int RunDefine(const Application& application, const DefineCommand& command)
{
    return DefineRun(application, command).Run();
}

} // namespace veldrane
