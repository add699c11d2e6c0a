#include "editors/frm_add_edit_class.h"

#include "datasource/class_edit.h"
#include "datasource/naming.h"
#include "editors/method_dependencies.h"
#include "model/working_copy.h"

#include <utility>

namespace veldrane {
namespace {

constexpr const char* kTableNameMissing = "Invalid Table Name. Please type the new name of the table.";

// The classes of a project as they are once one of them has got another name.
void ShowRenamed(const std::shared_ptr<KZMClass>& renamed, const std::string& before, const KZMClasses& classes,
                 KZMClasses& shown)
{
    for (std::size_t position = 1; position <= classes.Count(); ++position) {
        std::shared_ptr<KZMClass> item = classes.Item(position);
        if (item->ClassName == before) {
            item = renamed;
        } else if (item->ParentClassName == before) {
            item = WorkingCopy(*item);
            item->ParentClassName = renamed->ClassName;
        }
        shown.AddExisting(item, item->ClassName);
    }
}

} // namespace

frmAddEditClass::frmAddEditClass(const ClassEditorWorld& world, NewClass request)
    : world_(world), mode_(ClassMode::Add), request_(std::move(request)), class_(std::make_shared<KZMClass>())
{}

frmAddEditClass::frmAddEditClass(const ClassEditorWorld& world, const std::shared_ptr<KZMClass>& item)
    : world_(world), mode_(ClassMode::Edit), original_(item), before_(NamesInProject(*item)), class_(WorkingCopy(*item))
{}

frmAddEditClass::frmAddEditClass(const ClassEditorWorld& world, const std::shared_ptr<KZMClass>& item, NewClass place)
    : world_(world), mode_(ClassMode::Move), request_(std::move(place)), original_(item),
      before_(NamesInProject(*item)), class_(WorkingCopy(*item)), tab_(ClassTab::Relationship),
      firstFocus_("lstParentFields")
{}

std::string frmAddEditClass::Caption() const
{
    if (mode_ == ClassMode::Edit)
        return "Edit " + original_->ClassName;
    if (mode_ == ClassMode::Move)
        return "Move " + original_->ClassName;
    return request_.TableName.empty() ? "Add New Class" : "Add " + request_.TableName;
}

std::string_view frmAddEditClass::CollectionHelp() const
{
    return IsRootClass(*class_)
               ? "If you generate a collection for a Root Class, you will be able to add the 'RetrieveList' method to retrieve an enumerated list of the root class members."
               : std::string_view{};
}

void frmAddEditClass::Modify()
{
    modified_ = true;
    Changed.Raise();
}

void frmAddEditClass::txtClassName_Change(const std::string& text)
{
    form_.ClassName = text;
    Modify();
}

void frmAddEditClass::txtTableName_Change(const std::string& text)
{
    form_.TableName = text;
    class_->TableName = text == kNotApplicable ? std::string{} : text;
    if (tableIsTyped_)
        outcome_ = BuildOutcome::TableRenamed;
    Modify();
}

void frmAddEditClass::txtCollectionName_Change(const std::string& text)
{
    form_.CollectionName = text;
    Modify();
}

void frmAddEditClass::chkGenerateCollection_Click()
{
    Guarded(world_.Names.Errors, kClassEditorModule, "chkGenerateCollection_Click", [&] { ChangeCollection(); });
    Changed.Raise(); // the box has shown the new state already
}

// A method that comes with the collection returns it under the name that is typed.
void frmAddEditClass::ChangeCollection()
{
    const CollectionBox wanted = form_.GenerateCollection ? CollectionBox::Cleared : CollectionBox::Ticked;
    class_->CollectionName = form_.CollectionName;
    const CollectionBox now = ChangeCollectionBox(*class_, wanted, Buttons::YesNo, Asking());
    if (now == wanted) {
        form_.GenerateCollection = now == CollectionBox::Ticked;
        DisplayMethods();
        modified_ = true;
    }
}

void frmAddEditClass::chkIncludeAddExisting_Click()
{
    form_.IncludeAddExisting = !form_.IncludeAddExisting;
    Modify();
}

void frmAddEditClass::chkNewKey_Click()
{
    form_.CollectionAddNewKey = !form_.CollectionAddNewKey;
    Modify();
}

std::string frmAddEditClass::Trouble(ClassField field) const
{
    if (field == ClassField::TableName && AwaitsTable() && class_->TableName.empty())
        return kTableNameMissing;
    return NameTrouble(field, form_, before_, world_.Names);
}

std::string frmAddEditClass::ClassNameHint() const
{
    return Trouble(ClassField::ClassName).empty() ? InvalidNameText(form_.ClassName) : std::string{};
}

void frmAddEditClass::GoTo(ClassTab tab, std::string_view control)
{
    tab_ = tab;
    firstFocus_ = control;
    FocusWanted.Raise(control);
}

void frmAddEditClass::GoTo(NameCheck refused)
{
    if (refused == NameCheck::CollectionNameRefused)
        return GoTo(ClassTab::Collections, "txtCollectionName");
    GoTo(ClassTab::Class, refused == NameCheck::TableNameRefused ? "txtTableName" : "txtClassName");
}

bool frmAddEditClass::cmdOK_Click()
{
    bool done = false;
    try {
        Guarded(world_.Names.Errors, kClassEditorModule, "cmdOK_Click", [&] { done = Accept(); });
    } catch (const ReadingCancelled&) { // the dialog stays
    }
    return done;
}

// A typed table is read last: a class that stays for another reason may get another table yet, and what the first one
// gave it would be in its way.
bool frmAddEditClass::Accept()
{
    if (const NameCheck check = CheckNames(form_, before_, world_.Names); check != NameCheck::Accepted) {
        Changed.Raise();
        GoTo(check);
        return false;
    }
    if (!ReadTypedTable())
        return false;
    StoreForm(form_, *class_);
    return mode_ == ClassMode::Add ? AddClassToProject(class_, world_.Names) : SwapIn();
}

// A class that keeps its name keeps its place among the others too, unless it is moved.
bool frmAddEditClass::SwapIn()
{
    if (!ChangeNamesInProject(class_, before_, world_.Names))
        return false;
    if (mode_ == ClassMode::Move) {
        ReplaceClass(class_, world_.Names.Project, world_.Names.Classes);
        return true;
    }
    if (class_->ClassName == before_.ClassName) {
        *original_ = std::move(*class_);
        class_ = original_;
    }
    TellModifications();
    return true;
}

void frmAddEditClass::TellModifications() const
{
    std::string lines;
    for (const std::string& name : world_.ClassesBelow(class_->ClassName))
        if (const auto subclass = world_.Names.Classes.Item(name))
            lines += MissingMethodsText(*class_, *subclass);
    if (!lines.empty())
        Asking().Tell(
            "Modifications Are Needed",
            "There are manual modifications you need to make to ensure that your generated code will compile correctly:\r\n" +
                lines,
            MessageIcon::Information);
}

bool frmAddEditClass::cmdCancel_Click()
{
    return !modified_ ||
           Asking().Ask({.Title = "Discard Changes?",
                         .Text = "This class has been modified, do you want to discard all changes to this class?",
                         .Offered = Buttons::YesNo,
                         .Icon = MessageIcon::Question,
                         .Default = Answer::No}) == Answer::Yes;
}

TTCOutputs frmAddEditClass::Preview() const
{
    const std::shared_ptr<KZMClass> copy = WorkingCopy(*class_);
    StoreForm(form_, *copy);
    CodeGeneration& generation = world_.Generation;
    KZMClasses afterwards;
    const bool isRenamed = original_ != nullptr && copy->ClassName != before_.ClassName;
    if (isRenamed)
        ShowRenamed(copy, before_.ClassName, world_.Names.Classes, afterwards);
    const KZMClasses& classes = isRenamed ? afterwards : world_.Names.Classes;
    TTCOutputs lines(generation.Settings.Colors);
    try {
        switch (tab_) {
        case ClassTab::Class:
            return generation.WriteClassHeader(*copy, classes);
        case ClassTab::Collections:
            return copy->CreateCollection ? generation.WriteCollectionMethods(*copy, classes) : std::move(lines);
        case ClassTab::Properties:
            return generation.WriteClassProperties(*copy, classes);
        case ClassTab::Methods:
            return generation.WriteClassMethods(*copy, classes);
        case ClassTab::Events:
            return generation.WriteClassDeclarations(*copy, classes);
        case ClassTab::Relationship:
            generation.GenerateRetrieveRelatedMethod(lines, *copy, classes);
            break;
        }
    } catch (const RuntimeError& error) {
        lines = TTCOutputs(generation.Settings.Colors);
        lines.Add(error.Description(), LineClass::Alert);
    }
    return lines;
}

} // namespace veldrane
