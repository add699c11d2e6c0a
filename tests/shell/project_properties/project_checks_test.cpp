#include "project_properties_fixture.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ProjectChecks : public testing::ProjectPropertiesTest
{
  protected:
    // Types into a box, presses OK and expects the box that refuses it, and the focus.
    void ExpectRefusal(const std::string& control, const std::string& typed, const std::string& title,
                       const std::string& text)
    {
        frmProjectProperties form = Open();
        form.Text_Change(control, typed);
        ExpectRefusal(form, control, title, text);
    }

    void ExpectRefusal(frmProjectProperties& form, const std::string& control, const std::string& title,
                       const std::string& text)
    {
        messages.Forget();
        std::vector<std::string> focus;
        const Connection listening = form.FocusWanted.Connect([&](std::string_view name) { focus.emplace_back(name); });
        EXPECT_FALSE(form.cmdOK_Click());
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked()[0].Title, title);
        EXPECT_EQ(messages.Asked()[0].Text, text);
        EXPECT_THAT(focus, ElementsAre(control));
        EXPECT_EQ(form.Trouble(control), text);
        EXPECT_TRUE(form.IsMissing(control));
        EXPECT_FALSE(project.Modified());
        EXPECT_EQ(project.VBProjectName, "Shop");
    }

    frmProjectProperties OpenLogging()
    {
        frmProjectProperties form = Open();
        form.Check_Click("chkMTS", true);
        form.Check_Click("chkLogTransactions", true);
        form.Text_Change("txtDBConnection", "PROVIDER=SQLOLEDB;Server=db;");
        form.Text_Change("txtTableName", "Journal");
        return form;
    }
};

TEST_F(ProjectChecks, TheProjectIsNotCalledAsAClassOrACollection)
{
    const std::string text = "The VB Project Name already exists as a class name. Please change the name.";
    for (const char* const name : {"Order", "ORDERS"})
        ExpectRefusal("txtVBProjectName", name, "Duplicate Name in Project", text);
}

TEST_F(ProjectChecks, NamesOfTheProjectAndAClassFitAProgrammaticIdentifier)
{
    const std::string name(34, 'P'); // with "Order" 39 characters, with "Orders" 40
    ExpectRefusal("txtVBProjectName", name, "Programmatic ID Too Long",
                  "Warning: The combined length of the project name (" + name +
                      ") and the following classes/collections exceeds 39 characters.\r\n\r\nOrders\r\n\r\n"
                      "The maximum length of the combined names cannot exceed 39 characters because of Programmatic ID "
                      "Constraints of COM. Please make the project name or the names listed shorter.");
}

TEST_F(ProjectChecks, ACollectionThatIsNotGeneratedCountsForNothing)
{
    classes.Item("Order")->CreateCollection = false;
    frmProjectProperties form = Open();
    form.Text_Change("txtVBProjectName", std::string(34, 'P'));
    EXPECT_TRUE(form.cmdOK_Click());
}

TEST_F(ProjectChecks, AllNamesThatAreTooLongAreListed)
{
    AddClass("Shipment");
    frmProjectProperties form = Open();
    form.Text_Change("txtVBProjectName", std::string(35, 'P'));
    EXPECT_THAT(form.Trouble("txtVBProjectName"), HasSubstr("Order\r\nOrders\r\nShipment\r\n"));
}

TEST_F(ProjectChecks, TheNamesAreNamesOfVisualBasic)
{
    for (const char* const name : {"My Shop", "2Shop", "Shop!", "a/b", "String", "../x"}) {
        ExpectRefusal("txtVBProjectName", name, "Invalid VB Project Name",
                      "Invalid VB Project Name. Please remove special characters and spaces from the name, and do not "
                      "use a reserved word.");
        ExpectRefusal("txtWrapperClass", name, "Invalid Wrapper Class Name",
                      "Invalid Wrapper Class Name. Please remove special characters and spaces from the name, and do "
                      "not use a reserved word.");
    }
}

TEST_F(ProjectChecks, NamesThatTheProjectCameWithHoldNobodyUp)
{
    project.VBProjectName = "My Shop";
    project.WrapperClassName = "Order";
    frmProjectProperties form = Open();
    form.Check_Click("chkWeb", true);
    EXPECT_EQ(form.Trouble("txtVBProjectName"), "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(project.MakeWebCompatible);
}

TEST_F(ProjectChecks, AnEmptyNameIsRefusedAndNoMistakeBeforeOK)
{
    for (const char* const control : {"txtVBProjectName", "txtWrapperClass"}) {
        frmProjectProperties form = Open();
        form.Text_Change(control, "");
        EXPECT_EQ(form.Trouble(control), "");
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_NE(form.Trouble(control), "");
    }
}

TEST_F(ProjectChecks, TheWrapperClassHasANameOfItsOwn)
{
    ExpectRefusal("txtWrapperClass", "order", "Duplicate Name in Project",
                  "The Wrapper Class Name already exists as a class name. Please change the name.");
    ExpectRefusal("txtWrapperClass", "SHOP", "Duplicate Name in Project",
                  "The Wrapper Class Name cannot be the same name as the VB Project Name. Please change the name.");
}

TEST_F(ProjectChecks, ComponentServicesNeedTheNameOfTheirClass)
{
    AddClass("XMLAssist");
    frmProjectProperties form = Open();
    form.Check_Click("chkMTS", true);
    ExpectRefusal(form, "chkMTS", "Duplicate Name in Project",
                  "Component Services need the name xmlAssist, which a class of this project has. Please rename that "
                  "class first.");
}

TEST_F(ProjectChecks, AutosavesWaitAMinuteToADay)
{
    project.AutosaveProject = true;
    const std::string text = "Invalid Autosave Interval. Please enter a whole number from 1 to 1440 minutes.";
    for (const char* const typed : {"0", "1441", "-5", "2.5", "five", "99999999999", " 5"})
        ExpectRefusal("txtAutoSave", typed, "Invalid Autosave Interval", text);
    for (const char* const typed : {"1", "1440", "05"}) {
        frmProjectProperties form = Open();
        form.Text_Change("txtAutoSave", typed);
        EXPECT_TRUE(form.cmdOK_Click()) << typed;
        project.SetModified(false);
    }
}

TEST_F(ProjectChecks, AnIntervalThatNothingHeedsIsNotLookedAt)
{
    project.AutosaveProject = false;
    frmProjectProperties form = Open();
    form.Text_Change("txtAutoSave", "never");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(project.AutosaveProjectInterval, 5);
}

TEST_F(ProjectChecks, ALogNeedsItsConnection)
{
    frmProjectProperties form = OpenLogging();
    form.Text_Change("txtDBConnection", "");
    form.Text_Change("txtTableName", "");
    EXPECT_EQ(form.Trouble("txtDBConnection"), "");
    ExpectRefusal(form, "txtDBConnection", "Missing Required Information",
                  "You must define a database connection to connect to for logging transactions.");
    form.Text_Change("txtDBConnection", "x");
    EXPECT_FALSE(form.IsMissing("txtDBConnection"));
}

TEST_F(ProjectChecks, ALogNeedsItsTable)
{
    frmProjectProperties form = OpenLogging();
    form.Text_Change("txtTableName", "");
    ExpectRefusal(form, "txtTableName", "Missing Required Information",
                  "You must define a database table to hold the logged data for transactions.");
}

TEST_F(ProjectChecks, ALogThatIsOffNeedsNothing)
{
    for (const char* const off : {"chkMTS", "chkLogTransactions"}) {
        frmProjectProperties form = OpenLogging();
        form.Text_Change("txtDBConnection", "");
        form.Check_Click(off, false);
        EXPECT_TRUE(form.cmdOK_Click()) << off;
    }
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(ProjectChecks, TheNameOfTheLogsTableIsMadeValidIfThePersonAgrees)
{
    frmProjectProperties form = OpenLogging();
    form.Text_Change("txtTableName", "Log of Shop");
    messages.Add(Answer::Ok);
    EXPECT_TRUE(form.cmdOK_Click());
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Text,
              "The Transaction Logging Table name 'Log of Shop' is invalid. Click Ok to change the Transaction Logging "
              "Table name to 'Log_of_Shop' or click Cancel to enter another name.");
    EXPECT_EQ(messages.Asked()[0].Offered, Buttons::OkCancel);
    EXPECT_EQ(project.LogTableName, "Log_of_Shop");
}

TEST_F(ProjectChecks, TheDialogStaysIfThePersonRatherTypesAnotherTable)
{
    frmProjectProperties form = OpenLogging();
    form.Text_Change("txtTableName", "Log of Shop");
    messages.Add(Answer::Cancel);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(form.Text("txtTableName"), "Log of Shop");
    EXPECT_EQ(project.LogTableName, "");
    EXPECT_FALSE(project.Modified());
}

TEST_F(ProjectChecks, TextsThatTheFileCanNotHoldAreRefused)
{
    for (const char* const control :
         {"txtProjectName", "txtProjectDescription", "txtAuthor", "txtVBProjectDescription"})
        for (const char* const text : {"\xE6\x97\xA5", "two\nlines"}) {
            frmProjectProperties form = Open();
            form.Text_Change(control, text);
            EXPECT_NE(form.Trouble(control), "") << control;
            messages.Forget();
            EXPECT_FALSE(form.cmdOK_Click()) << control;
            ASSERT_EQ(messages.Asked().size(), 1U);
            EXPECT_EQ(messages.Asked()[0].Title, "Name Not Writable");
        }
}

// The order in which OK looks: each mistake is told though all behind it are there as well.
TEST_F(ProjectChecks, AreToldInTheirOrder)
{
    project.AutosaveProject = true;
    frmProjectProperties form = OpenLogging();
    form.Text_Change("txtProjectDescription", "two\nlines");
    form.Text_Change("txtVBProjectName", "a b");
    form.Text_Change("txtWrapperClass", "a b");
    form.Text_Change("txtAutoSave", "x");
    form.Text_Change("txtDBConnection", "");
    form.Text_Change("txtTableName", "");
    const auto next = [&](const std::string& control, const std::string& mended) {
        std::vector<std::string> focus;
        const Connection listening = form.FocusWanted.Connect([&](std::string_view name) { focus.emplace_back(name); });
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_THAT(focus, ElementsAre(control));
        form.Text_Change(control, mended);
    };
    next("txtVBProjectName", "Order");
    next("txtVBProjectName", std::string(39, 'P'));
    next("txtVBProjectName", "Shop");
    next("txtWrapperClass", "Order");
    next("txtWrapperClass", "Auto");
    next("txtAutoSave", "5");
    next("txtDBConnection", "DSN=x;");
    next("txtTableName", "Journal");
    next("txtProjectDescription", "one line");
    EXPECT_TRUE(form.cmdOK_Click());
}

} // namespace
} // namespace veldrane
