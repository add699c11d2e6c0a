#include "shell/desktop/editors/class_dialog.h"

#include "editors/class_editor_fixture.h"
#include "shell/desktop/editors/class_tools.h"
#include "shell/desktop/editors/code_sample.h"
#include "shell/desktop/editors/editor_list.h"
#include "shell/desktop/editors/trouble_label.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/screenshots.h"
#include "shell/desktop/widgets.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// The editor of a class as a person has it in front of them; questions are answered by a script.
class TheClassDialog : public ClassEditorTest
{
  protected:
    ClassDialog& Show(std::unique_ptr<frmAddEditClass> form)
    {
        form_ = std::move(form);
        EXPECT_TRUE(form_->Load());
        before_ = Saved();
        window_ = std::make_unique<ClassDialog>(*form_, PreviewLook{}, nullptr);
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        return *window_;
    }
    ClassDialog& ShowNew(const NewClass& request) { return Show(std::make_unique<frmAddEditClass>(World, request)); }
    ClassDialog& ShowCustomer()
    {
        MadeCustomer();
        return Show(std::make_unique<frmAddEditClass>(World, Classes.Item("Customer")));
    }
    ClassDialog& ShowOrder()
    {
        MadeCustomer();
        MadeOrder();
        return Show(std::make_unique<frmAddEditClass>(World, Classes.Item("Order")));
    }

    EditorList& List(const std::string& name) { return Find<EditorList>(*window_, name); }
    QLineEdit& Field(const std::string& name) { return Find<QLineEdit>(*window_, name); }
    QAction& Tool(const std::string& name) { return Find<QAction>(*window_, name); }
    QTabWidget& Tabs() { return Find<QTabWidget>(*window_, "tabMain"); }
    QString Title() { return window_->windowTitle(); }
    QString Text(const std::string& label) { return Find<QLabel>(*window_, label).text(); }

    void Turn(ClassTab tab)
    {
        Tabs().setCurrentIndex(static_cast<int>(tab));
        QApplication::processEvents(); // its controls find their places
    }

    std::vector<std::string> Rows(const std::string& list)
    {
        std::vector<std::string> rows;
        for (int row = 0; row < List(list).topLevelItemCount(); ++row)
            if (!List(list).topLevelItem(row)->isHidden())
                rows.push_back(List(list).topLevelItem(row)->text(0).toStdString());
        return rows;
    }

    void ClickRow(const std::string& list, const QString& text, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        const auto found = List(list).findItems(text, Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << text.toStdString();
        List(list).scrollToItem(found.front());
        QTest::mouseClick(List(list).viewport(), Qt::LeftButton, keys,
                          List(list).visualItemRect(found.front()).center());
    }

    std::string Sample()
    {
        std::string text;
        const QAbstractItemModel& model = *Find<CodeSample>(*window_, "lstPreview").model();
        for (int row = 0; row < model.rowCount(); ++row)
            text += model.index(row, 0).data().toString().toStdString() + "\n";
        return text;
    }
    bool SampleComesToHave(const std::string& words)
    {
        return QTest::qWaitFor([&] { return Sample().find(words) != std::string::npos; });
    }

    std::unique_ptr<frmAddEditClass> form_;
    std::unique_ptr<ClassDialog> window_;
    std::string before_; // what a file would have held when the dialog was opened
};

TEST_F(TheClassDialog, LooksWellOnEveryTab)
{
    ClassDialog& window = ShowOrder();
    const std::array<const char*, 6> names{"class", "collections", "properties", "methods", "events", "relationship"};
    for (std::size_t tab = 0; tab < names.size(); ++tab) {
        Turn(static_cast<ClassTab>(tab));
        Photograph(window, std::string("frmAddEditClass-") + names[tab]);
    }
}

TEST_F(TheClassDialog, ShowsANewClassAsItsTableGivesIt)
{
    ClassDialog& window = ShowNew({.TableName = "Orders"});
    EXPECT_EQ(window.windowTitle(), u"Add Orders"_s);
    EXPECT_EQ(Tabs().currentIndex(), static_cast<int>(ClassTab::Class));
    EXPECT_EQ(window.focusWidget(), &Field("txtClassName"));
    EXPECT_EQ(Field("txtClassName").selectedText(), u"Order"_s);
    EXPECT_EQ(Field("txtClassName").text(), u"Order"_s);
    EXPECT_EQ(Field("txtTableName").text(), u"Orders"_s);
    EXPECT_EQ(Field("txtParentClassName").text(), u"n/a"_s);
    EXPECT_EQ(Text("lblReadOnly"), u"This class is Updatable."_s);
    EXPECT_THAT(Rows("lstProperties"), ElementsAre("OrderID", "Customer", "Note"));
    EXPECT_EQ(List("lstProperties").topLevelItem(1)->text(1), u"Long"_s);
    EXPECT_FALSE(List("lstProperties").topLevelItem(1)->icon(0).isNull());
    EXPECT_THAT(Rows("lstPlusProperties"), ElementsAre("Modified", "Deleted"));
    EXPECT_THAT(Rows("lstMethods"), Contains("Retrieve"));
    EXPECT_THAT(Rows("lstEvents"), Contains("RecordAdded"));
    EXPECT_FALSE(Classes.Contains("Order"));
    Click(window, "cmdOK");
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_TRUE(Classes.Contains("Order"));
}

TEST_F(TheClassDialog, ShowsAViewAsReadOnlyAndAClassWithoutATable)
{
    ShowNew({.TableName = "Orders", .Access = ClassAccess::ReadOnly});
    EXPECT_EQ(Text("lblReadOnly"), u"This class is Read Only."_s);
    ClassDialog& window = ShowNew({});
    EXPECT_EQ(window.windowTitle(), u"Add New Class"_s);
    EXPECT_EQ(Field("txtTableName").text(), u"n/a"_s);
    EXPECT_THAT(Rows("lstProperties"), IsEmpty());
    EXPECT_FALSE(Tool("GetNewFields").isEnabled());
    EXPECT_FALSE(Tool("GetNewRelationships").isEnabled());
}

TEST_F(TheClassDialog, CancelLeavesTheClassAsItWas)
{
    ClassDialog& window = ShowCustomer();
    EXPECT_EQ(window.windowTitle(), u"Edit Customer"_s);
    Type(window, "txtClassName", "Client");
    Turn(ClassTab::Properties);
    AnswerWith({Answer::No, Answer::Yes});
    Click(window, "cmdCancel");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Field("txtClassName").text(), u"Client"_s);
    ExpectTold("Discard Changes?", "This class has been modified, do you want to discard all changes to this class?");
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_EQ(Saved(), before_);
}

TEST_F(TheClassDialog, EscapeLeavesWhatWasNotChangedUnasked)
{
    ClassDialog& window = ShowCustomer();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_THAT(Messages.Asked(), IsEmpty());
    EXPECT_EQ(Saved(), before_);
}

TEST_F(TheClassDialog, SaysWhatIsWrongWithANameAsItIsTyped)
{
    ClassDialog& window = ShowCustomer();
    auto& trouble = Find<TroubleLabel>(window, "lblClassNameTrouble");
    EXPECT_FALSE(trouble.isVisible());
    const std::pair<const char*, const char*> names[] = {
        {"My Class", "Invalid Class Name"},
        {"Cust%omer", "Invalid Class Name"},
        {"a<b>c", "Invalid Class Name"},
        {"SHOP", "cannot be the same name as the VB Project Name"},
        {"ThisNameIsFarTooLongForAnyProgrammaticId", "exceeds 39 characters"}};
    for (const auto& [name, words] : names) {
        Type(window, "txtClassName", name);
        EXPECT_TRUE(trouble.isVisible()) << name;
        EXPECT_THAT(trouble.text().toStdString(), Not(IsEmpty())) << name;
        EXPECT_EQ(Field("txtClassName").accessibleDescription(), trouble.text());
        Messages.Forget();
        Click(window, "cmdOK");
        EXPECT_TRUE(window.isVisible()) << name;
        ASSERT_EQ(Messages.Asked().size(), 1U) << name;
        EXPECT_THAT(Messages.Asked().front().Title + Messages.Asked().front().Text, HasSubstr(words));
        EXPECT_EQ(trouble.text(), ToQt(Messages.Asked().front().Text)) << name;
        EXPECT_EQ(Field("txtClassName").text().toStdString(), name);
        EXPECT_EQ(window.focusWidget(), &Field("txtClassName"));
    }
    Photograph(window, "frmAddEditClass-trouble");
    Type(window, "txtClassName", "Client");
    EXPECT_FALSE(trouble.isVisible());
    EXPECT_EQ(Field("txtClassName").accessibleDescription(), QString());
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(Classes.Contains("Client"));
}

TEST_F(TheClassDialog, SaysWhatANameWillBeCleanedTo)
{
    ClassDialog& window = ShowCustomer();
    auto& hint = Find<QLabel>(window, "lblClassNameHint");
    EXPECT_FALSE(hint.isVisible());
    Type(window, "txtClassName", "Property");
    EXPECT_TRUE(hint.isVisible());
    EXPECT_THAT(hint.text().toStdString(), HasSubstr("'aProperty'"));
    EXPECT_FALSE(Find<TroubleLabel>(window, "lblClassNameTrouble").isVisible());
    Photograph(window, "frmAddEditClass-hint");
}

TEST_F(TheClassDialog, ANameOfAnotherClassIsRefusedInAnyLetterCase)
{
    ClassDialog& window = ShowOrder();
    Type(window, "txtClassName", "CUSTOMER");
    EXPECT_EQ(Text("lblClassNameTrouble"),
              u"The Class Name already exists in this project. Please change the Class Name then click OK."_s);
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Titles(), std::vector<std::string>{"Duplicate Class Name"});
}

TEST_F(TheClassDialog, TheCollectionsNameIsCheckedWhereItStands)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Collections);
    Type(window, "txtCollectionName", "All Orders");
    EXPECT_TRUE(Find<QLabel>(window, "lblCollectionNameTrouble").isVisible());
    Turn(ClassTab::Events);
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Tabs().currentIndex(), static_cast<int>(ClassTab::Collections));
    EXPECT_EQ(window.focusWidget(), &Field("txtCollectionName"));
    Type(window, "txtCollectionName", "AllOrders");
    EXPECT_FALSE(Find<QLabel>(window, "lblCollectionNameTrouble").isVisible());
    EXPECT_TRUE(SampleComesToHave("RaiseEvent"));
    Click(window, "cmdOK");
    EXPECT_EQ(Classes.Item("Order")->CollectionName, "AllOrders");
}

TEST_F(TheClassDialog, TheBoxOfTheCollectionTurnsOnWhatBelongsToIt)
{
    ClassDialog& window = ShowCustomer();
    Turn(ClassTab::Collections);
    EXPECT_TRUE(Find<QLabel>(window, "lblCollectionHelp").isVisible());
    EXPECT_FALSE(Field("txtCollectionName").isEnabled());
    EXPECT_FALSE(Find<QCheckBox>(window, "chkNewKey").isEnabled());
    Photograph(window, "frmAddEditClass-root");
    Click(window, "chkGenerateCollection");
    EXPECT_TRUE(Field("txtCollectionName").isEnabled());
    EXPECT_TRUE(Find<QCheckBox>(window, "chkNewKey").isEnabled());
    EXPECT_FALSE(Find<QCheckBox>(window, "chkIncludeAddExisting").isEnabled());
    EXPECT_THAT(Rows("lstMethods"), Contains("RetrieveList"));
    AnswerWith({Answer::No, Answer::Yes});
    Click(window, "chkGenerateCollection");
    EXPECT_TRUE(Find<QCheckBox>(window, "chkGenerateCollection").isChecked());
    ExpectTold(
        "Confirm Change",
        "The 'RetrieveList' method relies on this collection. Are you sure you want to remove the collection and the 'RetrieveList' method?");
    Click(window, "chkGenerateCollection");
    EXPECT_FALSE(Find<QCheckBox>(window, "chkGenerateCollection").isChecked());
    EXPECT_THAT(Rows("lstMethods"), Not(Contains("RetrieveList")));
}

TEST_F(TheClassDialog, TheBoxesOfACollectionAreKept)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Collections);
    EXPECT_FALSE(Find<QLabel>(window, "lblCollectionHelp").isVisible());
    const KZMClass& before = *Classes.Item("Order");
    const bool newKey = before.CollectionAddNewKey;
    const bool addExisting = before.IncludeAddExisting;
    for (const char* box : {"chkNewKey", "chkIncludeAddExisting"}) {
        Find<QCheckBox>(window, box).setFocus();
        QTest::keyClick(&Find<QCheckBox>(window, box), Qt::Key_Space);
    }
    Click(window, "cmdOK");
    EXPECT_EQ(Classes.Item("Order")->CollectionAddNewKey, !newKey);
    EXPECT_EQ(Classes.Item("Order")->IncludeAddExisting, !addExisting);
}

TEST_F(TheClassDialog, ToolsAreOnForWhatIsSelected)
{
    ClassDialog& window = ShowOrder();
    const std::tuple<ClassTab, const char*, QString, std::vector<const char*>> lists[] = {
        {ClassTab::Properties, "lstProperties", u"Note"_s, {"FieldProperties", "SetAsPrimaryKey", "RefreshField"}},
        {ClassTab::Properties, "lstPlusProperties", u"Deleted"_s, {"EditPlusProperty", "DeletePlusProperty"}},
        {ClassTab::Methods, "lstMethods", u"Add"_s, {"EditMethod", "DeleteMethod"}},
        {ClassTab::Events, "lstEvents", u"RecordAdded"_s, {"EditEvent", "DeleteEvent"}},
        {ClassTab::Relationship, "lstJoins", u"Orders.Customer=Customers.ID"_s, {"DeleteRelationship"}}};
    for (const auto& [tab, list, row, tools] : lists) {
        Turn(tab);
        for (const char* tool : tools)
            EXPECT_FALSE(Find<QToolButton>(window, tool).isEnabled()) << tool;
        ClickRow(list, row);
        for (const char* tool : tools)
            EXPECT_TRUE(Find<QToolButton>(window, tool).isEnabled()) << tool;
    }
    for (const char* tool : {"GetNewFields", "NewPlusProperty", "AddPlusProperty", "NewMethod", "AddBuiltInMethod",
                             "AddSP", "NewEvent", "AddBuiltInEvent", "GetNewRelationships"})
        EXPECT_TRUE(Tool(tool).isEnabled()) << tool;
    EXPECT_FALSE(Tool("ByPrimaryKey").isEnabled());
    ClickRow("lstMethods", u"Retrieve"_s);
    EXPECT_TRUE(Tool("ByPrimaryKey").isEnabled());
    EXPECT_TRUE(Tool("ByIdentityColumn").isEnabled());
    Turn(ClassTab::Methods);
    Photograph(window, "frmAddEditClass-selected");
}

TEST_F(TheClassDialog, MembersAreOpenedByTheMouseAndByTheKeys)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Methods);
    ClickRow("lstMethods", u"Update"_s);
    Click(window, "EditMethod");
    QTest::keyClick(&List("lstMethods"), Qt::Key_Return);
    auto& methods = List("lstMethods");
    ClickRow("lstMethods", u"Clone"_s);
    QTest::mouseDClick(methods.viewport(), Qt::LeftButton, {},
                       methods.visualItemRect(methods.topLevelItem(3)).center());
    QTest::keyClick(&methods, Qt::Key_Insert);
    Turn(ClassTab::Properties);
    List("lstProperties").setFocus();
    ClickRow("lstProperties", u"Note"_s);
    QTest::keyClick(&List("lstProperties"), Qt::Key_Return);
    List("lstPlusProperties").setFocus();
    QTest::keyClick(&List("lstPlusProperties"), Qt::Key_Insert);
    EXPECT_THAT(Members.Opened, ElementsAre("EditMethod Update", "EditMethod Update", "EditMethod Clone", "AddMethod",
                                            "FieldProperties Note", "AddProperty"));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(TheClassDialog, ANewMemberIsListedAndSelected)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Events);
    Members.Do = [](KZMClass& item) {
        auto event = std::make_shared<ttcEvent>();
        event->EventName = "Shipped";
        item.TTCEvents.AddExisting(event, "Shipped");
        return true;
    };
    Click(window, "NewEvent");
    EXPECT_THAT(Rows("lstEvents"), Contains("Shipped"));
    ASSERT_EQ(List("lstEvents").selectedItems().size(), 1);
    EXPECT_EQ(List("lstEvents").selectedItems().front()->text(0), u"Shipped"_s);
    EXPECT_TRUE(SampleComesToHave("Public Event Shipped("));
    AnswerWith({Answer::Yes});
    Click(window, "cmdCancel");
    EXPECT_EQ(Saved(), before_);
}

TEST_F(TheClassDialog, SeveralRowsAreDeletedByTheKeyEachAfterItsQuestion)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Events);
    ClickRow("lstEvents", u"RecordAdded"_s);
    ClickRow("lstEvents", u"RecordDeleted"_s, Qt::ControlModifier);
    AnswerWith({Answer::Ok, Answer::Ok});
    QTest::keyClick(&List("lstEvents"), Qt::Key_Delete);
    EXPECT_THAT(Titles(), ElementsAre("Confirm Delete Event", "Confirm Delete Event"));
    EXPECT_THAT(Rows("lstEvents"), Not(Contains("RecordAdded")));
    EXPECT_THAT(Rows("lstEvents"), Not(Contains("RecordDeleted")));
    Click(window, "cmdOK");
    EXPECT_FALSE(Classes.Item("Order")->TTCEvents.Contains("RecordAdded"));
}

TEST_F(TheClassDialog, TheKeyThatFollowsADeletionOpensTheNextRow)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Events);
    List("lstEvents").setFocus();
    ClickRow("lstEvents", u"RecordAdded"_s);
    AnswerWith({Answer::Ok});
    QTest::keyClick(&List("lstEvents"), Qt::Key_Delete);
    const std::string next = Rows("lstEvents").front();
    QTest::keyClick(&List("lstEvents"), Qt::Key_Return);
    EXPECT_THAT(Members.Opened, ElementsAre("EditEvent " + next));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(TheClassDialog, ReturnOnAJoinIsThatOfTheDialog)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Relationship);
    List("lstJoins").setFocus();
    ClickRow("lstJoins", u"Orders.Customer=Customers.ID"_s);
    QTest::keyClick(&List("lstJoins"), Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
}

TEST_F(TheClassDialog, ANewMemberIsSeenWhateverTheFilterHides)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Methods);
    Type(window, "txtFilterMethods", "retr");
    Members.Do = [](KZMClass& item) {
        item.TTCMethods.Add("Mine", false, {}, "", "Public", false, "Mine");
        return true;
    };
    Click(window, "NewMethod");
    EXPECT_EQ(Field("txtFilterMethods").text(), QString());
    EXPECT_THAT(Rows("lstMethods"), Contains("Mine"));
    EXPECT_EQ(form_->Selected(ClassList::lstMethods).size(), 1U);
}

TEST_F(TheClassDialog, ARangeOfRowsIsSelectedByTheShiftKey)
{
    ShowOrder();
    Turn(ClassTab::Properties);
    ClickRow("lstProperties", u"OrderID"_s);
    QTest::keyClick(&List("lstProperties"), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&List("lstProperties"), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(form_->Selected(ClassList::lstProperties), ElementsAre(0, 1, 2));
}

TEST_F(TheClassDialog, RowsAreFilteredByTypingAndWhatIsHiddenIsNotTouched)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Methods);
    List("lstMethods").selectAll();
    Type(window, "txtFilterMethods", "RETR");
    EXPECT_THAT(Rows("lstMethods"), ElementsAre("Retrieve", "RetrieveIdentity"));
    EXPECT_EQ(form_->Selected(ClassList::lstMethods).size(), 2U);
    QTest::keyClick(&Field("txtFilterMethods"), Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_GT(Rows("lstMethods").size(), 2U);
    QTest::keyClick(&Field("txtFilterMethods"), Qt::Key_Down);
    EXPECT_EQ(window.focusWidget(), &List("lstMethods"));
}

TEST_F(TheClassDialog, ThePreviewFollowsTheNameAndTheTab)
{
    ClassDialog& window = ShowOrder();
    EXPECT_THAT(Sample(), HasSubstr("Attribute VB_Name = \"Order\""));
    Type(window, "txtClassName", "Purchase");
    EXPECT_TRUE(SampleComesToHave("Attribute VB_Name = \"Purchase\""));
    const std::pair<ClassTab, const char*> tabs[] = {{ClassTab::Collections, "mCol"},
                                                     {ClassTab::Properties, "Public Property Get Note()"},
                                                     {ClassTab::Methods, "Function Retrieve("},
                                                     {ClassTab::Events, "Public Event RecordAdded("},
                                                     {ClassTab::Relationship, "RetrieveRelated"}};
    for (const auto& [tab, words] : tabs) {
        Turn(tab);
        EXPECT_THAT(Sample(), HasSubstr(words));
    }
}

TEST_F(TheClassDialog, ThePreviewKeepsItsPlaceWhileTheClassChanges)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Methods);
    QScrollBar& place = *Find<CodeSample>(window, "lstPreview").verticalScrollBar();
    place.setValue(40);
    ASSERT_EQ(place.value(), 40);
    ClickRow("lstMethods", u"RetrieveIdentity"_s);
    AnswerWith({Answer::Ok});
    Click(window, "DeleteMethod");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Sample().find("RetrieveIdentity") == std::string::npos; }));
    QApplication::processEvents();
    EXPECT_EQ(place.value(), 40);
}

TEST_F(TheClassDialog, FieldsOfBothTablesAreJoined)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Relationship);
    EXPECT_EQ(Text("lblParentFields"), u"P&arent Table: Customers"_s);
    EXPECT_EQ(Text("lblFields"), u"&This Table: Orders"_s);
    EXPECT_FALSE(Find<QPushButton>(window, "cmdAddRelationship").isEnabled());
    ClickRow("lstParentFields", u"ID"_s);
    EXPECT_FALSE(Find<QPushButton>(window, "cmdAddRelationship").isEnabled());
    ClickRow("lstFields", u"OrderID"_s);
    Click(window, "cmdAddRelationship");
    EXPECT_THAT(Rows("lstJoins"), ElementsAre("Orders.Customer=Customers.ID", "Orders.ID=Customers.OrderID"));
    Click(window, "cmdAddRelationship");
    EXPECT_THAT(Titles(), ElementsAre("Duplicate Relationship"));
    ClickRow("lstJoins", u"Orders.ID=Customers.OrderID"_s);
    AnswerWith({Answer::Ok});
    Click(window, "DeleteRelationship");
    EXPECT_THAT(Rows("lstJoins"), ElementsAre("Orders.Customer=Customers.ID"));
}

TEST_F(TheClassDialog, AClassThatMovesIsJoinedAnew)
{
    MadeCustomer();
    const auto order = Made({.TableName = "Orders"});
    ClassDialog& window = Show(std::make_unique<frmAddEditClass>(
        World, order, NewClass{.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent}));
    EXPECT_EQ(window.windowTitle(), u"Move Order"_s);
    EXPECT_EQ(Tabs().currentIndex(), static_cast<int>(ClassTab::Relationship));
    EXPECT_EQ(Field("txtParentClassName").text(), u"Customer"_s);
    EXPECT_EQ(window.focusWidget(), &List("lstParentFields"));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(Saved(), before_);
}

TEST_F(TheClassDialog, AnUnreachableDataSourceIsToldAndTheDialogStays)
{
    ClassDialog& window = ShowOrder();
    Type(window, "txtClassName", "Purchase");
    Source.Content.Failures = {{"Fields", data_source_error::kFailed}};
    Turn(ClassTab::Properties);
    Click(window, "GetNewFields");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Field("txtClassName").text(), u"Purchase"_s);
    EXPECT_THAT(Rows("lstProperties"), ElementsAre("OrderID", "Customer", "Note"));
}

TEST_F(TheClassDialog, ATableThatWasDroppedMeanwhileClosesTheDialogUnasked)
{
    ClassDialog& window = ShowOrder();
    Turn(ClassTab::Properties);
    Source.Content.Content.erase("Orders");
    AnswerWith({Answer::No});
    Click(window, "GetNewFields");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_EQ(Saved(), before_);
}

TEST_F(TheClassDialog, ATableWithAnotherNameIsTyped)
{
    MadeCustomer();
    MadeOrder();
    Source.Content.Content["Purchases"] = Source.Content.Content.at("Orders");
    Source.Content.Content.erase("Orders");
    AnswerWith({Answer::Yes});
    ClassDialog& window = Show(std::make_unique<frmAddEditClass>(World, Classes.Item("Order")));
    EXPECT_EQ(window.focusWidget(), &Field("txtTableName"));
    EXPECT_TRUE(Field("txtTableName").isEnabled());
    Type(window, "txtTableName", "Purchases");
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Classes.Item("Order")->TableName, "Purchases");
}

TEST_F(TheClassDialog, IsUsedByTheKeysAlone)
{
    ClassDialog& window = ShowOrder();
    QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(window.focusWidget(), &Field("txtClassName"));
    QTest::keyClicks(window.focusWidget(), u"Purchase"_s);
    QTest::keyClick(&window, Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(Tabs().currentIndex(), static_cast<int>(ClassTab::Collections));
    QTest::keyClick(&window, Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(window.focusWidget(), &Find<QCheckBox>(window, "chkNewKey"));
    QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
    QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(window.focusWidget(), &List("lstProperties"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Down);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_M, Qt::AltModifier);
    QTest::keyClick(&window, Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(window.focusWidget(), &List("lstMethods"));
    QTest::keyClick(window.focusWidget(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_THAT(Members.Opened, ElementsAre("FieldProperties Customer", "AddBuiltInMethods"));
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_TRUE(Classes.Contains("Purchase"));
}

TEST_F(TheClassDialog, EachListOffersItsToolsInAMenu)
{
    ClassDialog& window = ShowOrder();
    QList<QAction*> offered;
    for (const EditorList* list : window.findChildren<EditorList*>())
        offered += list->actions();
    for (const ClassTool& tool : ClassTools()) {
        EXPECT_TRUE(offered.contains(&Tool(std::string(tool.Name)))) << tool.Name;
        EXPECT_FALSE(Tool(std::string(tool.Name)).icon().isNull()) << tool.Name;
    }
}

TEST_F(TheClassDialog, LongNamesAndLargeLettersLeaveEverythingInReach)
{
    Table("Orders").Fields.push_back(testing::Field(std::string(200, 'W'), adVarWChar, 50));
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(18);
    QApplication::setFont(large);
    ClassDialog& window = ShowOrder();
    EXPECT_LT(window.minimumSizeHint().width(), 1600);
    Turn(ClassTab::Properties);
    Photograph(window, "frmAddEditClass-large");
    QApplication::setFont(before);
}

} // namespace
} // namespace veldrane::testing
