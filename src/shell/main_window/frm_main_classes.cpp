#include "shell/main_window/frm_main.h"

#include "editors/shown_member_dialogs.h"
#include "shell/main_window/help_messages.h"
#include "shell/main_window/new_class_parent.h"
#include "shell/main_window/required_class.h"

// The main window and the editor of classes.
namespace veldrane {
namespace {

constexpr const char* kDataTypeChanged =
    "The data type of a property regulates how its value is declared, read from its field and written back.\r\n\r\n"
    "The field keeps the type that it has in the table: if the two do not agree, the generated code converts the value "
    "each time, and a value that can't be converted is an error at run time. Change the data type only where you know "
    "that every value of the field fits.";

// A preview that follows each key that is pressed asks nobody.
class NobodyAsked : public Messages
{
  public:
    Answer Ask(const Question& question) override { return question.Default; }
};

} // namespace

// A class is read to its end before it enters the project, so that nothing has changed where the person cancels.
bool frmMain::WithEditor(const std::function<bool(ClassEditor& editor)>& use)
{
    NobodyAsked nobody;
    CodeGeneration previews(Project(),
                            {.Asking = nobody,
                             .Errors = application_.Errors,
                             .Files = application_.Files,
                             .Time = application_.Time,
                             .Programs = application_.Programs,
                             .Conflicts = conflicts_},
                            ttc_->Settings);
    ShownMemberDialogs members(
        {.Dialogs = dialogs_.Editors(),
         .Names = NamesOfProject(),
         .Generated = {Project(), Classes(), previews, application_.Errors},
         .UserSettings = application_.UserSettings,
         .Source = [this] { return MakeCatalog(); },
         .DataTypeChanged = [this] { warning_.DisplayWarning(kDataTypeChanged, warning_id::kDataTypeRegulation); }});
    ShownClassEditor editor(WorldOfEditor(previews, members), dialogs_.Editors());
    try {
        return use(editor);
    } catch (const ReadingCancelled&) {
        status_.SetStatus(kCancelledStatus);
        return false;
    }
}

ProjectNames frmMain::NamesOfProject()
{
    return {.Project = Project(),
            .Classes = Classes(),
            .Messages = application_.Asking,
            .Errors = application_.Errors,
            .CodePage = application_.State.Generation.CodePage};
}

ClassEditorWorld frmMain::WorldOfEditor(CodeGeneration& previews, MemberDialogs& members)
{
    return {.Names = NamesOfProject(),
            .Generation = previews,
            .Members = members,
            .OpenCatalog = [this] { return OpenCatalog(); },
            .ClassesBelow =
                [this](const std::string& className) {
                    const auto node = IndexOf(tree_.Nodes(), {.Kind = NodeKind::Class, .Key = className});
                    return node ? ClassesBelow(tree_.Nodes(), *node) : std::vector<std::string>{};
                }};
}

// Nothing while no data source is open; a connection that was lost meanwhile shows itself in what is asked of the
// catalog.
std::unique_ptr<WatchedCatalog> frmMain::MakeCatalog()
{
    DataSourceConnection* const connection = OpenConnection();
    if (connection == nullptr)
        return nullptr;
    return std::make_unique<WatchedCatalog>([connection] { return connection->OpenCatalog(); },
                                            [this](const std::function<void()>& read) { Watch(read); });
}

std::unique_ptr<Catalog> frmMain::OpenCatalog()
{
    std::unique_ptr<WatchedCatalog> catalog = MakeCatalog();
    if (catalog)
        catalog->Open();
    return catalog;
}

// What the person sees of a reading is gone when it is over, whoever stays open.
void frmMain::Watch(const std::function<void()>& read)
{
    const CatalogReading::Session session(reading_);
    const PointerWhile hourglass(application_.Windows.Pointer, PointerShape::Hourglass);
    const StatusWhile reading(status_, kReadingStatus);
    read();
}

void frmMain::AddNewClass()
{
    const std::string parent = NewClassParent(tree_);
    const NewClass request{.ParentClassName = parent,
                           .Place = parent == kNotApplicable ? Placement::Root : Placement::UnderParent};
    AsEdit("New Class",
           [&] { static_cast<void>(WithEditor([&](ClassEditor& editor) { return editor.Add(request); })); });
}

// A class that was renamed has a node of its new name.
void frmMain::EditSelectedClass()
{
    const TreeNode* const node = tree_.SelectedNode();
    const auto item = node == nullptr ? nullptr : Classes().Item(node->ClassName);
    if (item == nullptr || !MayEdit(*item, application_.Asking))
        return;
    bool changed = false;
    AsEdit("Edit Class " + item->ClassName,
           [&] { changed = WithEditor([&](ClassEditor& editor) { return editor.Edit(item); }); });
    if (changed)
        Classes_NewClassAdded(std::string(tree_.SelectedNode()->ClassName));
}

} // namespace veldrane
