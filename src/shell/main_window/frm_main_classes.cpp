#include "shell/main_window/frm_main.h"
#include "shell/main_window/new_class_parent.h"
#include "shell/main_window/required_class.h"
#include "shell/main_window/watched_catalog.h"

// The main window and the editor of classes.
namespace veldrane {
namespace {

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
    ShownClassEditor editor(WorldOfEditor(previews), dialogs_.Editors());
    try {
        return use(editor);
    } catch (const ReadingCancelled&) {
        status_.SetStatus(kCancelledStatus);
        return false;
    }
}

ClassEditorWorld frmMain::WorldOfEditor(CodeGeneration& previews)
{
    return {.Names = {.Project = Project(),
                      .Classes = Classes(),
                      .Messages = application_.Asking,
                      .Errors = application_.Errors,
                      .CodePage = application_.State.Generation.CodePage},
            .Generation = previews,
            .Members = members_,
            .OpenCatalog = [this] { return OpenWatchedCatalog(); },
            .ClassesBelow =
                [this](const std::string& className) {
                    const auto node = IndexOf(tree_.Nodes(), {.Kind = NodeKind::Class, .Key = className});
                    return node ? ClassesBelow(tree_.Nodes(), *node) : std::vector<std::string>{};
                }};
}

// Nothing while no data source is open; a connection that was lost meanwhile shows itself in what is asked of the
// catalog.
std::unique_ptr<Catalog> frmMain::OpenWatchedCatalog()
{
    DataSourceConnection* const connection = OpenConnection();
    if (connection == nullptr)
        return nullptr;
    std::unique_ptr<Catalog> catalog;
    Watch([&] { catalog = connection->OpenCatalog(); });
    return std::make_unique<WatchedCatalog>(std::move(catalog),
                                            [this](const std::function<void()>& read) { Watch(read); });
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
    static_cast<void>(WithEditor([&](ClassEditor& editor) { return editor.Add(request); }));
}

// A class that was renamed has a node of its new name.
void frmMain::EditSelectedClass()
{
    const TreeNode* const node = tree_.SelectedNode();
    const auto item = node == nullptr ? nullptr : Classes().Item(node->ClassName);
    if (item == nullptr || !MayEdit(*item, application_.Asking))
        return;
    if (WithEditor([&](ClassEditor& editor) { return editor.Edit(item); }))
        Classes_NewClassAdded(std::string(tree_.SelectedNode()->ClassName));
}

} // namespace veldrane
