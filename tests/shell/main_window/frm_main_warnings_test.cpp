#include "frm_main_fixture.h"

#include "datasource/logon/frm_odbc_logon.h"
#include "editors/frm_field_properties.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kFontChanged =
    "You have changed the font of the preview. Text that stands in columns is only aligned in a font whose letters are "
    "all equally wide. Click 'Monospaced Font' in the menu of the preview to choose such a font.\r\n\r\n"
    "The Zoom window and printed copies of the preview use this font too. The files that are generated do not depend on "
    "it.";

constexpr const char* kDataSourceChanged =
    "You have opened another data source for a project that already has classes. Your classes have not been changed: "
    "they keep the tables and fields that they were made from, even if the new data source does not have them.\r\n\r\n"
    "The code that you generate will connect to the new data source. Please make sure that it has the same structure as "
    "the former one.";

constexpr const char* kDataTypeChanged =
    "The data type of a property regulates how its value is declared, read from its field and written back.\r\n\r\n"
    "The field keeps the type that it has in the table: if the two do not agree, the generated code converts the value "
    "each time, and a value that can't be converted is an error at run time. Change the data type only where you know "
    "that every value of the field fits.";
constexpr const char* kProcedureOpened =
    "A stored procedure is called by a method of a class: the method takes the parameters of the procedure and returns "
    "its rows.\r\n\r\n"
    "To add such a method, open a class by a double click on it in the tree, and use 'Stored Procedures' on its tab "
    "'Methods'. Click a procedure to mark the classes that already have a method for it.";

class FrmMainWarnings : public testing::FrmMainTest
{
  protected:
    void ChooseJetFile(const std::string& path)
    {
        Windows.InLogon = [path](frmODBCLogon& logon) {
            logon.tabMain_Click(logon_page::kJet);
            logon.Page().txtDatabase = path;
            logon.cmdOK_Click();
        };
    }

    void ChooseFont(const std::string& name)
    {
        Windows.InOptions = [name](frmOptions& options) {
            options.UseFontNamed(name);
            EXPECT_TRUE(options.OK());
        };
    }

    void TickTheBox()
    {
        Windows.InWarning = [](frmWarning& warning) {
            warning.chkDoNotShow = true;
            warning.cmdOK_Click();
        };
    }

    [[nodiscard]] auto Help() const { return World.UserSettings.GetAllSettings(settings_section::kHelp); }
};

TEST_F(FrmMainWarnings, AnotherFontOfThePreviewIsExplainedOnceItIsShown)
{
    StartOnShop();
    ChooseFont("Courier");
    Windows.InWarning = [&](frmWarning& /*warning*/) { EXPECT_EQ(Form.Look().Font.Name, "Courier"); };
    Form.actbar_Click("Options");
    EXPECT_THAT(Windows.Opened, ElementsAre("frmOptions", "frmWarning"));
    EXPECT_THAT(Windows.Warned, ElementsAre(kFontChanged));
    EXPECT_THAT(Help(), IsEmpty());
}

TEST_F(FrmMainWarnings, AFontThatStaysTheSameNeedsNoWord)
{
    StartOnShop();
    ChooseFont(PreviewFont{}.Name);
    Form.actbar_Click("Options");
    Windows.InOptions = [](frmOptions& options) { options.UseFontNamed("Courier"); }; // and Cancel
    Form.actbar_Click("Options");
    Form.UseFontNamed("Monospace");
    EXPECT_THAT(Windows.Warned, IsEmpty());
}

TEST_F(FrmMainWarnings, AFontThatCanNotBeStoredIsReportedAlone)
{
    StartOnShop();
    Windows.InOptions = [](frmOptions& options) {
        options.UseFontNamed("Courier");
        EXPECT_FALSE(options.OK());
    };
    World.UserSettings.Fails = true;
    Form.actbar_Click("Options");
    EXPECT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_THAT(Windows.Warned, IsEmpty());
}

TEST_F(FrmMainWarnings, AnotherDataSourceForAProjectWithClassesIsExplainedOnceItIsShown)
{
    StartWithCustomer();
    ChooseJetFile("/books.mdb");
    Windows.InWarning = [&](frmWarning& /*warning*/) {
        EXPECT_THAT(Rows(), ElementsAre(":ADD", "Customers", "Orders", "Countries"));
        EXPECT_EQ(Form.Status().Status(), kReadyStatus);
    };
    Form.actbar_Click("OpenDatasource");
    EXPECT_THAT(Windows.Opened, ElementsAre("frmODBCLogon", "frmWarning"));
    EXPECT_THAT(Windows.Warned, ElementsAre(kDataSourceChanged));
    EXPECT_EQ(Form.Classes().Item("Customer")->TableName, "Customers");
}

TEST_F(FrmMainWarnings, ADataSourceThatIsTheFirstOneOrTheSameOneNeedsNoWord)
{
    StartWithCustomer();
    Form.actbar_Click("OpenDatasource"); // and Cancel
    ChooseJetFile("/books.mdb");
    World.Messages.Add(Answer::Yes);
    Form.actbar_Click("EditDataSource"); // its own question has warned
    Form.actbar_Click("OpenDatasource"); // the same one
    Form.Project().SetConnectionString("");
    Form.actbar_Click("OpenDatasource");
    EXPECT_THAT(Windows.Warned, IsEmpty());
    EXPECT_EQ(Titles(), std::vector<std::string>{"Edit DataSource Message"});
}

TEST_F(FrmMainWarnings, AnotherDataSourceForAProjectWithoutClassesOfTablesNeedsNoWord)
{
    StartOnShop();
    const auto item = std::make_shared<KZMClass>();
    item->ClassName = "Basket";
    Form.Classes().AddExisting(item, "Basket");
    ChooseJetFile("/books.mdb");
    Form.actbar_Click("OpenDatasource");
    EXPECT_THAT(Windows.Warned, IsEmpty());
    EXPECT_NE(Form.Project().ConnectionString(), testing::kShopString);
}

TEST_F(FrmMainWarnings, AProcedureThatIsOpenedIsExplained)
{
    StartWithCustomer();
    Form.lst_DblClick(Row("Orders"));
    EXPECT_THAT(Windows.Warned, IsEmpty());
    Form.tabDatasource_Click(DataSourceTab::StoredProcedures);
    Form.lst_DblClick(Row("GetTotals"));
    EXPECT_THAT(Windows.Warned, ElementsAre(kProcedureOpened));
    EXPECT_FALSE(Form.Project().Modified());
    Form.Project().SetConnectionString("");
    Form.lst_DblClick(Row("NONE"));
    EXPECT_EQ(Windows.Warned.size(), 1U);
}

TEST_F(FrmMainWarnings, AnotherDataTypeOfAFieldIsExplained)
{
    StartWithCustomer();
    Windows.ClassEditors.FieldProperties = [](frmFieldProperties& form) {
        form.Data.cmbDataType_Click(form.Data.cmbDataType() == 0 ? 1 : 0);
        return form.cmdOK_Click();
    };
    Windows.ClassEditors.Class = [](frmAddEditClass& form) {
        form.Select(ClassList::lstProperties, {0});
        form.actBar_Click("FieldProperties");
        return form.cmdOK_Click();
    };
    Form.treMain_DblClick(Node(OfClass("Customer")));
    EXPECT_THAT(Windows.Warned, ElementsAre(kDataTypeChanged));
}

TEST_F(FrmMainWarnings, EachComesNoMoreOnceItsBoxWasTicked)
{
    StartWithCustomer();
    Form.tabDatasource_Click(DataSourceTab::StoredProcedures);
    TickTheBox();
    for (const char* choice : {"a", "b"}) {
        ChooseFont(choice);
        Form.actbar_Click("Options");
        ChooseJetFile(std::string("/") + choice + ".mdb");
        Form.actbar_Click("OpenDatasource");
        Form.lst_DblClick(Row("GetTotals"));
    }
    EXPECT_THAT(Windows.Warned, ElementsAre(kFontChanged, kDataSourceChanged, kProcedureOpened));
    using ::testing::Pair;
    EXPECT_THAT(Help(), ElementsAre(Pair("warnPreviewPaneFontChange", "1"), Pair("warnOpenDatasource", "1"),
                                    Pair("warnSPsAsMethodsInPro", "1")));
}

TEST_F(FrmMainWarnings, ABoxThatCanNotBeKeptIsReportedAndTheCommandIsDone)
{
    StartWithCustomer();
    ChooseJetFile("/books.mdb");
    TickTheBox();
    World.UserSettings.Fails = true;
    Form.actbar_Click("OpenDatasource");
    ASSERT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(World.Errors.Reported[0].Place.ModuleName, "frmWarning");
    EXPECT_THAT(Form.Project().ConnectionString(), ::testing::HasSubstr("/books.mdb"));
}

} // namespace
} // namespace veldrane
