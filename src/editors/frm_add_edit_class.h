#pragma once

#include "datasource/collection_rule.h"
#include "datasource/parent_relationships.h"
#include "datasource/table_to_class.h"
#include "editors/class_editor_world.h"
#include "editors/member_rows.h"
#include "model/signal.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

enum class ClassMode
{
    Add,
    Edit,
    Move,
};

enum class ClassTab
{
    Class,
    Collections,
    Properties,
    Methods,
    Events,
    Relationship,
};

// The lists, by the names of their controls.
enum class ClassList
{
    lstProperties, // those that stand on a field of the table
    lstPlusProperties,
    lstMethods,
    lstEvents,
    lstParentFields, // the columns that can be joined: of the parent's table, and of the class's own
    lstFields,
    lstJoins,
};
inline constexpr std::size_t kClassLists = 7;

// The dialog in which a class is made or changed. It works on a copy that has all that the class has, and puts it into
// the project on OK and not before.
class frmAddEditClass
{
  public:
    // Add mode: a new class for a table, or for none.
    frmAddEditClass(const ClassEditorWorld& world, NewClass request);

    // Edit mode: a class of the project.
    frmAddEditClass(const ClassEditorWorld& world, const std::shared_ptr<KZMClass>& item);

    // Move mode: a class of the project takes the table, the parent and the place of the request.
    frmAddEditClass(const ClassEditorWorld& world, const std::shared_ptr<KZMClass>& item, NewClass place);

    frmAddEditClass(const frmAddEditClass&) = delete;
    frmAddEditClass& operator=(const frmAddEditClass&) = delete;
    ~frmAddEditClass() = default;

    // Before it is shown: builds the class from its table, or brings it up to its table as it is now. What can't be
    // read is told. False if the dialog is not to be shown: the table is gone, its name can't enter a project, or a new
    // class has no data source to be read from. Throws ReadingCancelled.
    [[nodiscard]] bool Load();

    Signal<> Changed;                     // something of it is to be shown anew
    Signal<std::string_view> FocusWanted; // by the control of this name; its tab is shown
    Signal<> CloseWanted;                 // as if by Cancel, unasked

    [[nodiscard]] std::string Caption() const;
    [[nodiscard]] ClassTab Tab() const { return tab_; }
    void SelectTab(ClassTab tab) { tab_ = tab; }

    // The control that has the focus at first: what is to be typed or picked before all else.
    [[nodiscard]] std::string_view FirstFocus() const { return firstFocus_; }

    [[nodiscard]] const std::string& txtClassName() const { return form_.ClassName; }
    [[nodiscard]] const std::string& txtTableName() const { return form_.TableName; }             // "n/a" for none
    [[nodiscard]] const std::string& txtParentClassName() const { return form_.ParentClassName; } // "n/a" for none
    [[nodiscard]] const std::string& txtCollectionName() const { return form_.CollectionName; }
    [[nodiscard]] bool chkGenerateCollection() const { return form_.GenerateCollection; }
    [[nodiscard]] bool chkIncludeAddExisting() const { return form_.IncludeAddExisting; }
    [[nodiscard]] bool chkNewKey() const { return form_.CollectionAddNewKey; }
    [[nodiscard]] std::string_view lblReadOnly() const { return AccessText(*class_); }
    [[nodiscard]] std::string_view lblParentFields() const { return joinFields_.ParentCaption; } // with "&"
    [[nodiscard]] std::string_view lblFields() const { return joinFields_.OwnCaption; }

    // The help line of chkGenerateCollection; "" for a class that has none.
    [[nodiscard]] std::string_view CollectionHelp() const;

    void txtClassName_Change(const std::string& text);
    void txtTableName_Change(const std::string& text);
    void txtCollectionName_Change(const std::string& text);

    // Each is a click on a box, which changes its state; the first may ask and leave it.
    void chkGenerateCollection_Click();
    void chkIncludeAddExisting_Click();
    void chkNewKey_Click();

    // Whether a control, or a tool of actBar, may be used; true for names that no rule speaks of.
    [[nodiscard]] bool IsEnabled(std::string_view name) const;

    // What OK would say about the text as it is typed; "" for nothing. Nothing is told.
    [[nodiscard]] std::string Trouble(ClassField field) const;

    // What OK will make of a class name that it does not refuse, in words; "" where it stays as it is typed.
    [[nodiscard]] std::string ClassNameHint() const;

    [[nodiscard]] const std::vector<MemberRow>& Rows(ClassList list) const { return ListOf(list).Rows; }
    [[nodiscard]] const std::vector<std::size_t>& Selected(ClassList list) const { return ListOf(list).Selected; }

    // Selects these rows of a list and no others; one that is not there is passed over.
    void Select(ClassList list, const std::vector<std::size_t>& rows);

    // Fill the list of that name again from the class; what was selected stays so, as far as it is there.
    void DisplayProperties();
    void DisplayPlusProperties();
    void DisplayMethods();
    void DisplayEvents();

    // Runs a tool by its name, on the selected rows where it works on rows. One that is off, or that is none, does
    // nothing. A failure is reported, and a reading that the person cancels changes nothing.
    void actBar_Click(std::string_view tool);

    // Joins the selected field of the parent to the selected one of the class, if there is one of each.
    void cmdAddRelationship_Click();

    // What the generator writes for the tab that is shown, as the class is now: the section of a module that the tab is
    // about. In place of what it can't write stands why.
    [[nodiscard]] TTCOutputs Preview() const;

    // Checks the names and puts the class into the project. False if the dialog stays, which was told: what was typed
    // stays, or what the names were cleaned to.
    [[nodiscard]] bool cmdOK_Click();

    // False if the person wants to keep what was changed: the dialog stays then.
    [[nodiscard]] bool cmdCancel_Click();

  private:
    struct ShownList
    {
        std::vector<MemberRow> Rows;
        std::vector<std::size_t> Selected;
    };
    struct Command;
    static const std::vector<Command>& Commands();

    [[nodiscard]] const ShownList& ListOf(ClassList list) const { return lists_[static_cast<std::size_t>(list)]; }
    [[nodiscard]] ShownList& ListOf(ClassList list) { return lists_[static_cast<std::size_t>(list)]; }
    [[nodiscard]] Messages& Asking() const { return world_.Names.Messages; }
    void Modify();
    void ChangeCollection();

    // The way of the class in and out.
    [[nodiscard]] bool ReadClass();
    [[nodiscard]] bool ReadNewClass();
    void ReadMovedClass();
    bool ReadTable();
    [[nodiscard]] bool ReadTypedTable();
    bool Read(const std::string& table, const std::function<bool(ClassEdit& edit)>& read);
    [[nodiscard]] bool Follow(BuildOutcome outcome, ClassEdit& edit);
    [[nodiscard]] bool AwaitsTable() const { return outcome_ == BuildOutcome::TableRenamed; }
    [[nodiscard]] std::string ParentTable() const;
    void ReadJoins(ClassEdit& edit);
    void GoTo(ClassTab tab, std::string_view control);
    void GoTo(NameCheck refused);
    [[nodiscard]] bool Accept();
    [[nodiscard]] bool SwapIn();
    void TellModifications() const;

    // The lists.
    void DisplayAll();
    void DisplayJoins();
    [[nodiscard]] bool HasJoinPage() const;
    void AddRelationship();
    void Show(ClassList list, std::vector<MemberRow> rows);
    template <class Items>
    void ShowMembers(ClassList list, const Items& items);

    // Those of the items that are selected; the list shows these items.
    template <class Items>
    [[nodiscard]] Items Picked(ClassList list, const Items& items) const
    {
        Items picked;
        for (const std::size_t row : Selected(list))
            picked.push_back(items.at(row));
        return picked;
    }
    void SelectKey(ClassList list, std::string_view key);
    [[nodiscard]] bool HasSelected(ClassList list) const { return !ListOf(list).Selected.empty(); }

    // What the tools do.
    void NewMember(ClassList list, bool (MemberDialogs::*add)(KZMClass&));
    void AddBuiltIn(bool (MemberDialogs::*add)(KZMClass&));
    void ShowEdited(ClassList list, void (frmAddEditClass::*display)());
    void EditEvent();
    void EditMethod();
    void FieldProperties();
    void EditPlusProperty();
    void AddSP();
    void DeleteEvent();
    void DeleteMethod();
    void DeletePlusProperty();
    void DeleteRelationship();
    void SetAsPrimaryKey();
    void RefreshField();
    void GetNewFields();
    void GetNewRelationships();
    void ByPrimaryKey();
    void ByIdentityColumn();
    [[nodiscard]] bool MayDelete(const TTCMethod& method) const;
    [[nodiscard]] bool Confirms(std::string title, std::string text) const;

    ClassEditorWorld world_;
    ClassMode mode_;
    NewClass request_;
    std::shared_ptr<KZMClass> original_; // nothing for a new class
    NamesBefore before_;
    std::shared_ptr<KZMClass> class_;
    ClassForm form_;
    JoinFields joinFields_;
    std::array<ShownList, kClassLists> lists_;
    ClassTab tab_ = ClassTab::Class;
    std::string_view firstFocus_ = "txtClassName";
    bool modified_ = false;
    bool keysFailed_ = false;
    bool tableIsTyped_ = false;                  // the table is missing, and the person knows its new name
    bool isFilled_ = true;                       // the class has the members that its table gives it
    BuildOutcome outcome_ = BuildOutcome::Built; // of the latest reading of the table
};

} // namespace veldrane
