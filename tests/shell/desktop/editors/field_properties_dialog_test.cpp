#include "shell/desktop/editors/field_properties_dialog.h"

#include "property_dialog_fixture.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QTabWidget>
#include <QWheelEvent>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

struct TheFieldWindow : PropertyDialogFixture
{
    TheFieldWindow()
    {
        city->EnforceMaxLength = true;
        city->MaxLength = 50;
        catalog.Add("Customers").Fields = {IdentityField("ID"), Field("Last_Name", adVarWChar, 50),
                                           Field("Region", adVarWChar, 50), Field("Born On", adDate)};
        catalog.Add("Customer Groups").Fields = {IdentityField("ID"), Field("Group", adVarWChar, 50)};
        catalog.Add("Codes").Fields = {Field("Code", adVarWChar, 5)};
        catalog.Add("Sales by Year", "VIEW").Fields = {Field("Total", adCurrency)};
    }

    QWidget& Show(const std::shared_ptr<TTCProperty>& property)
    {
        form.emplace(surroundings, property);
        return Open<FieldPropertiesDialog>(*form);
    }
    QWidget& Show() { return Show(city); }

    QTabWidget& Tabs() { return Find<QTabWidget>(*dialog, "tabMain"); }
    void ShowTab(FieldTab tab) { Tabs().setCurrentIndex(static_cast<int>(tab)); }

    // The lookup tab with a table that was found by typing.
    QWidget& ShowLookup(const std::string& table)
    {
        QWidget& window = Show();
        ShowTab(FieldTab::Lookup);
        Type(window, "cmbTable", table);
        PressInTables(Qt::Key_Return);
        EXPECT_EQ(form->Lookup.TableName(), table);
        ComeBack();
        return window;
    }

    // Makes the window the active one again, which a window manager does where a list of completions closes.
    void ComeBack()
    {
        QApplication::processEvents();
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        QApplication::processEvents();
    }

    // Types another alias into the row, from the keyboard.
    void Rename(int row, const QString& alias)
    {
        ClickRow("lstFields", row, 1);
        Press(Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), alias);
        Press(Qt::Key_Return);
        QApplication::processEvents();
    }

    void ChooseType(const QString& type)
    {
        QComboBox& box = Combo("cmbDataType");
        QTest::keyClick(&box, Qt::Key_Home);
        for (int row = 0; row < box.count() && box.currentText() != type; ++row)
            QTest::keyClick(&box, Qt::Key_Down);
        EXPECT_EQ(box.currentText(), type);
    }

    // A key while a table is looked for.
    void PressInTables(Qt::Key key)
    {
        QAbstractItemView& offered = *Combo("cmbTable").completer()->popup();
        QTest::keyClick(offered.isVisible() ? static_cast<QWidget*>(&offered) : &Combo("cmbTable"), key);
    }

    std::shared_ptr<TTCProperty> city = AddField("City");
    std::shared_ptr<TTCProperty> name = AddField("Name");
    std::optional<frmFieldProperties> form;
};

TEST_F(TheFieldWindow, ShowsTheProperty)
{
    city->AllowPropertyToBeNull = city->FormatOnGet = true;
    city->FormatStringOnGet = ">";
    city->FormatStringOnLet = "<";
    QWidget& window = Show();
    EXPECT_EQ(window.windowTitle(), u"Edit City"_s);
    EXPECT_EQ(Find<QLabel>(window, "lblFieldName").text(), u"City"_s);
    EXPECT_EQ(Find<QLabel>(window, "lblFieldDataType").text(), u"VarWChar"_s);
    EXPECT_EQ(TextOf("txtPropertyName"), "City");
    EXPECT_EQ(Focused(), "txtPropertyName");
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"String"_s);
    EXPECT_TRUE(Box("chkAddFieldToClass").isChecked() && Box("chkIsNullable").isChecked());
    EXPECT_TRUE(Box("chkPropertyGet").isChecked() && Box("chkPropertyLetSet").isChecked());
    EXPECT_FALSE(Box("chkDefaultProperty").isChecked());
    EXPECT_TRUE(Box("chkEnforceMaxLength").isChecked());
    EXPECT_EQ(TextOf("txtMaxLength"), "50");
    EXPECT_TRUE(Box("chkFormatOnGet").isChecked());
    EXPECT_FALSE(Box("chkFormatOnLet").isChecked());
    EXPECT_EQ(Combo("cmbFormatGet").currentText(), u">"_s);
    EXPECT_EQ(Combo("cmbFormatLet").currentText(), u"<"_s);
    EXPECT_EQ(Combo("cmbTable").currentText(), u"<none>"_s);
    Photograph(window, "frmFieldProperties-general");
}

TEST_F(TheFieldWindow, StoresWhatIsClickedAndTyped)
{
    QWidget& window = Show();
    Type(window, "txtPropertyName", "Town");
    Type(window, "txtMaxLength", "7");
    for (const char* box :
         {"chkAddFieldToClass", "chkPropertyGet", "chkDefaultProperty", "chkDisplayTruncationMessage"})
        ClickBox(box);
    ShowTab(FieldTab::Formatting);
    ClickBox("chkFormatOnGet");
    ClickBox("chkFormatOnLet");
    Type(window, "cmbFormatGet", ">");
    Type(window, "cmbFormatLet", "<");
    Click(window, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(city->PropertyName, "Town");
    EXPECT_EQ(city->MaxLength, 7);
    EXPECT_FALSE(city->AddToClass || city->PropertyGet);
    EXPECT_TRUE(city->DefaultProperty && city->DisplayTruncationMessage && city->FormatOnGet && city->FormatOnLet);
    EXPECT_EQ(city->FormatStringOnGet, ">");
    EXPECT_EQ(city->FormatStringOnLet, "<");
}

TEST_F(TheFieldWindow, LeavesTheClassAsItWasWhenItIsCancelled)
{
    const std::string before = Saved();
    for (const bool byKey : {true, false}) {
        QWidget& window = ShowLookup("Customers");
        ClickRow("lstFields", 0, 1);
        Press(Qt::Key_Space);
        ShowTab(FieldTab::General);
        Type(window, "txtPropertyName", "Town");
        ClickBox("chkIsNullable");
        if (byKey)
            Press(Qt::Key_Escape);
        else
            Click(window, "cmdCancel");
        EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
        EXPECT_EQ(Saved(), before);
        EXPECT_THAT(Members(), ElementsAre("City", "Name"));
    }
}

TEST_F(TheFieldWindow, LetsALengthBeGivenToTextsAlone)
{
    Show();
    for (const char* control : {"chkEnforceMaxLength", "txtMaxLength", "lblChars", "chkDisplayTruncationMessage"})
        EXPECT_TRUE(IsEnabled(control)) << control;
    ClickBox("chkEnforceMaxLength");
    EXPECT_TRUE(IsEnabled("chkEnforceMaxLength"));
    for (const char* control : {"txtMaxLength", "lblChars", "chkDisplayTruncationMessage"})
        EXPECT_FALSE(IsEnabled(control)) << control;
    ChooseType(u"Long"_s);
    EXPECT_FALSE(IsEnabled("fraFieldLength"));
    EXPECT_TRUE(Tabs().isTabEnabled(static_cast<int>(FieldTab::Formatting)));
    ChooseType(u"String"_s);
    EXPECT_TRUE(IsEnabled("fraFieldLength"));
    ClickBox("chkPropertyLetSet");
    EXPECT_FALSE(IsEnabled("fraFieldLength"));
    ShowTab(FieldTab::Formatting);
    EXPECT_FALSE(IsEnabled("chkFormatOnLet"));
    EXPECT_TRUE(IsEnabled("chkFormatOnGet"));
}

TEST_F(TheFieldWindow, HasNoFormatsForObjects)
{
    city->FormatOnGet = true;
    Show();
    ChooseType(u"Object"_s);
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"Object"_s);
    EXPECT_FALSE(Tabs().isTabEnabled(static_cast<int>(FieldTab::Formatting)));
    EXPECT_FALSE(Box("chkFormatOnGet").isChecked());
}

TEST_F(TheFieldWindow, MakesANullablePropertyAVariant)
{
    Show();
    ClickBox("chkIsNullable");
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"Variant"_s);
    ClickBox("chkIsNullable");
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"String"_s);
}

TEST_F(TheFieldWindow, TellsWhatIsWrongAsItIsTyped)
{
    QWidget& window = Show();
    Type(window, "txtPropertyName", "name");
    EXPECT_EQ(Told("lblPropertyNameTrouble"),
              "The property name 'name' conflicts with an existing member of the Order class. Please enter another "
              "name.");
    Type(window, "txtMaxLength", "2147483648");
    EXPECT_EQ(Told("lblMaxLengthTrouble"), "Invalid Maximum Length. Please enter a whole number from 0 to 2147483647.");
    Photograph(window, "frmFieldProperties-troubles");
    ClickBox("chkEnforceMaxLength");
    EXPECT_EQ(Told("lblMaxLengthTrouble"), "");
    ClickBox("chkEnforceMaxLength");
    Type(window, "txtMaxLength", "20");
    EXPECT_EQ(Told("lblMaxLengthTrouble"), "");
    Type(window, "txtPropertyName", "Town");
    EXPECT_EQ(Told("lblPropertyNameTrouble"), "");
}

TEST_F(TheFieldWindow, KeepsEveryBadNameThatIsTyped)
{
    const std::string before = Saved();
    QWidget& window = Show();
    for (const char c : std::string_view("~`!@#$%^&*()-=+\\|]}[{';:/?.>,< \"")) {
        const std::string typed = std::string("To") + c + "wn";
        Type(window, "txtPropertyName", typed);
        EXPECT_EQ(Told("lblPropertyNameTrouble"), "Invalid Property Name. Please enter a valid name.") << c;
        Click(window, "cmdOK");
        EXPECT_TRUE(window.isVisible()) << c;
        EXPECT_EQ(TextOf("txtPropertyName"), typed);
        EXPECT_EQ(Focused(), "txtPropertyName");
    }
    EXPECT_EQ(Saved(), before);
}

TEST_F(TheFieldWindow, GoesToTheTabOfWhatIsRefused)
{
    QWidget& window = Show();
    Type(window, "txtMaxLength", "many");
    ShowTab(FieldTab::Formatting);
    Click(window, "cmdOK");
    EXPECT_EQ(Tabs().currentIndex(), static_cast<int>(FieldTab::General));
    EXPECT_EQ(Focused(), "txtMaxLength");
    EXPECT_EQ(TextOf("txtMaxLength"), "many");
}

TEST_F(TheFieldWindow, TicksTheDefaultOnlyWhereThePersonAgrees)
{
    name->DefaultProperty = true;
    AnswerWith({Answer::No, Answer::Yes});
    Show();
    ClickBox("chkDefaultProperty");
    EXPECT_FALSE(Box("chkDefaultProperty").isChecked());
    ClickBox("chkDefaultProperty");
    EXPECT_TRUE(Box("chkDefaultProperty").isChecked());
}

TEST_F(TheFieldWindow, IsUsedByTheKeyboardAlone)
{
    Show();
    Texts order;
    for (int control = 0; control < 10; ++control) {
        order.push_back(Focused());
        Press(Qt::Key_Tab);
    }
    EXPECT_THAT(order, ElementsAre("txtPropertyName", "cmbDataType", "chkAddFieldToClass", "chkIsNullable",
                                   "chkPropertyGet", "chkPropertyLetSet", "chkDefaultProperty", "chkEnforceMaxLength",
                                   "txtMaxLength", "chkDisplayTruncationMessage"));
    Press(Qt::Key_A, Qt::AltModifier);
    EXPECT_FALSE(form->chkAddFieldToClass);
    Press(Qt::Key_Tab, Qt::ControlModifier);
    Press(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(Focused(), "cmbTable");
    QTest::keyClicks(QApplication::focusWidget(), u"groups"_s);
    EXPECT_EQ(Combo("cmbTable").currentText(), u"groups"_s);
    PressInTables(Qt::Key_Return);
    EXPECT_EQ(form->Lookup.TableName(), "Customer Groups");
    ComeBack();
    for (int control = 0; control < 4; ++control)
        Press(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "lstFields");
    Press(Qt::Key_Space);
    EXPECT_THAT(Rows("lstFields"), ElementsAre("+Group String Group"));
    Press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u"CustomerGroup"_s);
    Press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(Focused(), "lstFields");
    Find<QWidget>(*dialog, "txtFilter").setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Focused(), "lstFields");
    QTest::keyClick(&Find<QWidget>(*dialog, "cmdOK"), Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_THAT(LookupFields(*city), ElementsAre("Group:CustomerGroup:String"));
}

TEST_F(TheFieldWindow, ReadsTheTablesWhenTheLookupIsWanted)
{
    Show();
    EXPECT_THAT(catalog.Calls, IsEmpty());
    ShowTab(FieldTab::Lookup);
    EXPECT_THAT(catalog.Calls, ElementsAre("Tables"));
    EXPECT_EQ(Combo("cmbTable").count(), 5);
    EXPECT_FALSE(Combo("cmbTable").itemIcon(1).isNull());
}

TEST_F(TheFieldWindow, FindsATableByAPartOfItsName)
{
    QWidget& window = Show();
    ShowTab(FieldTab::Lookup);
    Type(window, "cmbTable", "CUST");
    EXPECT_EQ(Combo("cmbTable").completer()->completionCount(), 2);
    EXPECT_EQ(Told("lblTableTrouble"), "No table or view of this name is listed. Please choose one from the list.");
    PressInTables(Qt::Key_Return);
    EXPECT_EQ(form->Lookup.TableName(), "<none>");
    EXPECT_EQ(Combo("cmbTable").currentText(), u"CUST"_s);
    EXPECT_TRUE(window.isVisible());
    QTest::keyClicks(&Combo("cmbTable"), u"omers"_s);
    PressInTables(Qt::Key_Return);
    EXPECT_EQ(Combo("cmbTable").currentText(), u"Customers"_s);
    EXPECT_EQ(Told("lblTableTrouble"), "");
    EXPECT_THAT(Rows("lstFields"),
                ElementsAre("Last_Name String LastName", "Region String Region", "Born On Date BornOn"));
    EXPECT_EQ(Combo("cmbField").currentText(), u"ID"_s);
    EXPECT_EQ(Combo("cmbField").count(), 2);
}

TEST_F(TheFieldWindow, ChoosesATableAmongThoseThatAreOffered)
{
    QWidget& window = Show();
    ShowTab(FieldTab::Lookup);
    Type(window, "cmbTable", "s");
    PressInTables(Qt::Key_Down);
    PressInTables(Qt::Key_Return);
    EXPECT_EQ(form->Lookup.TableName(), "Customers");
    EXPECT_THAT(catalog.Calls, ElementsAre("Tables", "Fields SELECT * FROM [Customers] WHERE 1=0"));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(TheFieldWindow, TakesTheNameOfATableThatIsLeft)
{
    QWidget& window = Show();
    ShowTab(FieldTab::Lookup);
    Type(window, "cmbTable", "codes");
    PressInTables(Qt::Key_Tab);
    EXPECT_EQ(form->Lookup.TableName(), "Codes");
    EXPECT_EQ(Told("lblFieldTrouble"),
              "No identity field of 'Codes' is chosen to join it by: the lookup stays as it was.");
    Photograph(window, "frmFieldProperties-no-join");
}

TEST_F(TheFieldWindow, RefusesATableThatIsNotListed)
{
    QWidget& window = Show();
    ShowTab(FieldTab::Lookup);
    Type(window, "cmbTable", "Nothing");
    ShowTab(FieldTab::General);
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Focused(), "cmbTable");
    EXPECT_EQ(Combo("cmbTable").currentText(), u"Nothing"_s);
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Title, "Invalid Lookup Table");
}

TEST_F(TheFieldWindow, FindsOneOfThousandsOfTables)
{
    for (int table = 0; table < 3000; ++table)
        catalog.Add("T" + std::to_string(table)).Fields = {IdentityField("ID")};
    QWidget& window = Show();
    ShowTab(FieldTab::Lookup);
    Type(window, "cmbTable", "t2718");
    PressInTables(Qt::Key_Return);
    EXPECT_EQ(form->Lookup.TableName(), "T2718");
    EXPECT_EQ(Told("lblTableTrouble"), "");
}

TEST_F(TheFieldWindow, StoresALookup)
{
    QWidget& window = ShowLookup("Customers");
    ClickBox("chkUseOuterJoin");
    ClickRow("lstFields", 0, 1);
    ClickRow("lstFields", 2, 1, Qt::ControlModifier);
    QTest::keyClick(&List("lstFields"), Qt::Key_Space);
    Rename(0, u"Surname"_s);
    EXPECT_THAT(Rows("lstFields"),
                ElementsAre("+Last_Name String Surname", "Region String Region", "+Born On Date BornOn"));
    Photograph(window, "frmFieldProperties-lookup");
    Click(window, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(city->LookupTable, "Customers");
    EXPECT_EQ(city->LookupJoinField, "ID");
    EXPECT_TRUE(city->LookupUseOuterJoin);
    EXPECT_THAT(LookupFields(*city), ElementsAre("Last_Name:Surname:String", "Born On:BornOn:Date"));
}

TEST_F(TheFieldWindow, EditsNoColumnButTheNames)
{
    ShowLookup("Customers");
    for (const int column : {0, 1, 2}) {
        const QModelIndex index = List("lstFields").model()->index(column, column);
        ClickRow("lstFields", column, column);
        QTest::mouseDClick(List("lstFields").viewport(), Qt::LeftButton, {},
                           List("lstFields").visualRect(index).center());
        EXPECT_EQ(List("lstFields").findChild<QLineEdit*>() != nullptr, column == 2) << column;
    }
}

TEST_F(TheFieldWindow, KeepsTheNameWhereItsEditingIsGivenUp)
{
    QWidget& window = ShowLookup("Customers");
    ClickRow("lstFields", 0, 1);
    Press(Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), u"Other"_s);
    Press(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(Rows("lstFields").front(), HasSubstr("LastName"));
    EXPECT_EQ(form->Lookup.lstFields().front().PropertyName, "LastName");
}

TEST_F(TheFieldWindow, TellsWhichNamesAreTaken)
{
    AddMethod("Region");
    const std::string text =
        "The property name 'Region' conflicts with an existing member of the Order class. Please enter another name.";
    QWidget& window = ShowLookup("Customers");
    List("lstFields").selectAll();
    QTest::keyClick(&List("lstFields"), Qt::Key_Space);
    EXPECT_EQ(List("lstFields").topLevelItem(0)->toolTip(2), QString());
    EXPECT_THAT(List("lstFields").topLevelItem(1)->toolTip(2).toStdString(), HasSubstr("conflicts"));
    ClickRow("lstFields", 0, 1);
    EXPECT_EQ(Told("lblFieldsTrouble"), "");
    ShowTab(FieldTab::General);
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Focused(), "lstFields");
    EXPECT_EQ(Told("lblFieldsTrouble"), text);
    Photograph(window, "frmFieldProperties-taken");
    QApplication::processEvents(); // the light palette is back
    Press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u"CityRegion"_s);
    Press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(Told("lblFieldsTrouble"), "");
    EXPECT_EQ(List("lstFields").topLevelItem(1)->toolTip(2), QString());
    Click(window, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
}

TEST_F(TheFieldWindow, KeepsABadNameOfALookupField)
{
    QWidget& window = ShowLookup("Customers");
    ClickRow("lstFields", 0, 1);
    Press(Qt::Key_Space);
    Rename(0, u"Last Name"_s);
    EXPECT_EQ(Told("lblFieldsTrouble"), "Invalid Property Name. Please enter a valid name.");
    EXPECT_THAT(Rows("lstFields").front(), HasSubstr("Last Name"));
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(Rows("lstFields").front(), HasSubstr("Last Name"));
}

TEST_F(TheFieldWindow, ShowsAReservedNameAsItWasMadeLegal)
{
    ShowLookup("Customers");
    Rename(0, u"Date"_s);
    EXPECT_THAT(Rows("lstFields").front(), HasSubstr("aDate"));
    EXPECT_EQ(messages.Asked().size(), 1U);
}

TEST_F(TheFieldWindow, FiltersTheFields)
{
    QWidget& window = ShowLookup("Customers");
    Type(window, "txtFilter", "DATE");
    EXPECT_THAT(Rows("lstFields"), ElementsAre("Born On Date BornOn"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    Type(window, "txtFilter", "");
    EXPECT_THAT(Rows("lstFields"),
                ElementsAre("Last_Name String LastName", "Region String Region", "+Born On Date BornOn"));
}

TEST_F(TheFieldWindow, ShowsTheFieldInTroubleThoughItWasFilteredOut)
{
    AddMethod("Region");
    QWidget& window = ShowLookup("Customers");
    List("lstFields").selectAll();
    QTest::keyClick(&List("lstFields"), Qt::Key_Space);
    Type(window, "txtFilter", "Born");
    Click(window, "cmdOK");
    EXPECT_EQ(Focused(), "lstFields");
    EXPECT_EQ(Rows("lstFields").size(), 3U);
    EXPECT_EQ(List("lstFields").CurrentRow(), 1U);
    EXPECT_THAT(Told("lblFieldsTrouble"), HasSubstr("'Region' conflicts"));
}

TEST_F(TheFieldWindow, ShowsThePresentLookupWithItsIconsOnceTheyAreRead)
{
    catalog = FakeCatalog();
    city->LookupTable = "Only";
    catalog.Add("Only", "VIEW").Fields = {IdentityField("ID")};
    Show();
    const QImage unread = Combo("cmbTable").itemIcon(1).pixmap(16).toImage();
    ShowTab(FieldTab::Lookup);
    EXPECT_EQ(Combo("cmbTable").itemText(1), u"Only"_s);
    EXPECT_NE(Combo("cmbTable").itemIcon(1).pixmap(16).toImage(), unread);
}

TEST_F(TheFieldWindow, ChoosesNoTableByTheWheelThatPassesOverTheirBox)
{
    QWidget& window = ShowLookup("Customers");
    QComboBox& box = Combo("cmbTable");
    const auto turn = [&] {
        const QPointF at = box.rect().center();
        QWheelEvent down(at, box.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                         false);
        QApplication::sendEvent(&box, &down);
    };
    Find<QLineEdit>(window, "txtFilter").setFocus();
    turn();
    EXPECT_EQ(form->Lookup.TableName(), "Customers");
    EXPECT_FALSE(box.hasFocus());
    box.setFocus();
    turn();
    EXPECT_EQ(form->Lookup.TableName(), "Customer Groups");
}

TEST_F(TheFieldWindow, KeepsALookupWhoseDataSourceCantBeReached)
{
    city->LookupTable = "Customers";
    city->LookupJoinField = "ID";
    AddLookup(*city, "Region", "CityRegion");
    edit.Source = nullptr;
    const std::string before = Saved();
    QWidget& window = Show();
    ShowTab(FieldTab::Lookup);
    EXPECT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(Combo("cmbTable").currentText(), u"Customers"_s);
    EXPECT_EQ(Combo("cmbField").currentText(), u"ID"_s);
    EXPECT_THAT(Rows("lstFields"), ElementsAre("+Region String CityRegion"));
    Click(window, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(Saved(), before);
}

TEST_F(TheFieldWindow, StaysOpenOverATableThatCantBeRead)
{
    QWidget& window = ShowLookup("Customers");
    catalog.Failures["Fields"] = data_source_error::kFailed;
    Type(window, "cmbTable", "Codes");
    PressInTables(Qt::Key_Return);
    EXPECT_EQ(errors.Reported.size(), 1U);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Combo("cmbTable").currentText(), u"Codes"_s);
    EXPECT_THAT(Rows("lstFields"), IsEmpty());
    catalog.Failures.clear();
    Type(window, "cmbTable", "Customers");
    PressInTables(Qt::Key_Return);
    EXPECT_EQ(Rows("lstFields").size(), 3U);
}

TEST_F(TheFieldWindow, FormatsTheSampleByEachLetter)
{
    QWidget& window = Show();
    ShowTab(FieldTab::Formatting);
    const auto sample = [&] { return Find<QLabel>(window, "lblSampleOutput").text().toStdString(); };
    EXPECT_EQ(sample(), "<none>");
    EXPECT_EQ(Combo("cmbFormatGet").itemText(0), u">"_s);
    Type(window, "txtInput", "Ab");
    EXPECT_EQ(sample(), "Ab");
    Type(window, "cmbFormatGet", ">");
    EXPECT_EQ(sample(), "AB");
    Type(window, "cmbFormatLet", "<");
    EXPECT_EQ(sample(), "ab");
    Combo("cmbFormatGet").setFocus();
    EXPECT_EQ(sample(), "AB");
    Photograph(window, "frmFieldProperties-formatting");
    Type(window, "txtInput", "");
    EXPECT_EQ(sample(), "<none>");
}

TEST_F(TheFieldWindow, GivesHintsBesideTheirFields)
{
    QWidget& window = Show();
    ClickBox("chkIsNullable");
    ChooseType(u"String"_s);
    EXPECT_EQ(Told("lblDataTypeTrouble"), "Only a Variant can be Null.");
    Type(window, "txtMaxLength", "0");
    EXPECT_EQ(Told("lblMaxLengthTrouble"), "A maximum of 0 leaves nothing of any text.");
    ClickBox("chkDisplayTruncationMessage");
    ClickBox("chkEnforceMaxLength");
    EXPECT_THAT(Told("lblMessageTrouble"), HasSubstr("whenever the property is assigned"));
    Photograph(window, "frmFieldProperties-hints");
    ShowTab(FieldTab::Formatting);
    Type(window, "cmbFormatGet", "@\"");
    EXPECT_THAT(Told("lblFormatGetTrouble"), HasSubstr("neither used nor saved"));
    ClickBox("chkFormatOnGet");
    EXPECT_THAT(Told("lblFormatGetTrouble"), HasSubstr("ends the format string"));
    Type(window, "cmbFormatLet", ">");
    Photograph(window, "frmFieldProperties-format-hints");
    ClickBox("chkFormatOnLet");
    EXPECT_EQ(Told("lblFormatLetTrouble"), "");
    Click(window, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
}

TEST_F(TheFieldWindow, GoesToAFormatStringThatIsRefused)
{
    QWidget& window = Show();
    ShowTab(FieldTab::Formatting);
    ClickBox("chkFormatOnLet");
    Combo("cmbFormatLet").setEditText(u"Ω"_s);
    ShowTab(FieldTab::General);
    Click(window, "cmdOK");
    EXPECT_EQ(Tabs().currentIndex(), static_cast<int>(FieldTab::Formatting));
    EXPECT_EQ(Focused(), "cmbFormatLet");
}

TEST_F(TheFieldWindow, OffersTheFormatsOfTheTypeAndKeepsWhatWasTyped)
{
    QWidget& window = Show();
    ShowTab(FieldTab::Formatting);
    Type(window, "cmbFormatGet", "yes");
    EXPECT_EQ(Combo("cmbFormatGet").currentText(), u"yes"_s);
    ShowTab(FieldTab::General);
    ChooseType(u"Byte"_s);
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"Byte"_s);
    EXPECT_EQ(Combo("cmbFormatGet").itemText(0), u"General Number"_s);
    EXPECT_EQ(Combo("cmbFormatGet").currentText(), u"yes"_s);
    EXPECT_EQ(form->Formatting.cmbFormatGet(), "yes");
    ShowTab(FieldTab::Formatting);
    Combo("cmbFormatGet").setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(form->Formatting.cmbFormatGet(), "General Number");
}

TEST_F(TheFieldWindow, ShowsTheCodeOfWhatIsInHand)
{
    QWidget& window = ShowLookup("Customers");
    ClickRow("lstFields", 1, 1);
    Press(Qt::Key_Space);
    EXPECT_THAT(Code(), Contains("Public Property Get Region() as String"));
    ShowTab(FieldTab::General);
    Type(window, "txtPropertyName", "Town");
    EXPECT_THAT(Code(), Contains("Public Property Get Town() as String"));
    ClickBox("chkEnforceMaxLength");
    EXPECT_THAT(Code(), Not(Contains(HasSubstr("Len(vData)"))));
}

TEST_F(TheFieldWindow, ShowsLongTextsAndLargeLetters)
{
    const std::string longName(120, 'N');
    auto wide = AddField(longName);
    catalog.Add(longName).Fields = {IdentityField("ID"), Field(longName, adVarWChar, 50)};
    wide->LookupTable = longName;
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(16);
    QApplication::setFont(large);
    QWidget& window = Show(wide);
    Photograph(window, "frmFieldProperties-large");
    EXPECT_LT(window.width(), 1600);
    ShowTab(FieldTab::Lookup);
    Photograph(window, "frmFieldProperties-large-lookup");
    QApplication::setFont(usual);
    EXPECT_LT(window.width(), 1600);
}

// The words of labels and boxes that have not the room for them.
Texts CutWords(const QWidget& window)
{
    Texts cut;
    const auto look = [&](const auto& controls) {
        for (const auto* control : controls)
            if (control->isVisible() &&
                (control->width() < control->sizeHint().width() || control->height() < control->sizeHint().height()))
                cut.push_back(control->text().toStdString());
    };
    look(window.findChildren<QCheckBox*>());
    QList<QLabel*> labels = window.findChildren<QLabel*>();
    labels.removeIf([](const QLabel* label) { return label->wordWrap(); });
    look(labels);
    return cut;
}

TEST_F(TheFieldWindow, CutsNoWordsOfItsOwnAndNoLength)
{
    const QFont usual = QApplication::font();
    for (const int size : {9, 16, 24}) {
        QFont font = usual;
        font.setPointSize(size);
        QApplication::setFont(font);
        QWidget& window = Show();
        for (const FieldTab tab : {FieldTab::General, FieldTab::Lookup, FieldTab::Formatting}) {
            ShowTab(tab);
            EXPECT_EQ(CutWords(window), Texts()) << size;
            Type(window, "cmbTable", "Nothing");
            QApplication::processEvents();
            EXPECT_EQ(CutWords(window), Texts()) << size;
        }
        const auto& length = Find<QLineEdit>(window, "txtMaxLength");
        EXPECT_GT(length.width(), length.fontMetrics().horizontalAdvance(u"2147483647"_s) + 8) << size;
        ShowTab(FieldTab::Lookup);
        Photograph(window, "frmFieldProperties-" + std::to_string(size));
    }
    QApplication::setFont(usual);
}

} // namespace
} // namespace veldrane::testing
