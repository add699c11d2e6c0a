#include "preview_fixture.h"

namespace veldrane::testing {
namespace {

class ProjectSummary : public PreviewTest
{
  protected:
    [[nodiscard]] std::string Summary() { return Heading(NodeType::ProjectSummary); }
    [[nodiscard]] bool Holds(const std::string& lines) { return Summary().find("\n" + lines) != std::string::npos; }
};

TEST_F(ProjectSummary, OfAnEmptyProjectHasGapsInPlaceOfValues)
{
    TTCProject empty;
    CodeGeneration ofEmpty(empty, {messages, errors, files, clock, programs, conflicts});
    const auto text = PreviewOf({.Type = NodeType::ProjectSummary}, {empty, classes, ofEmpty, errors});
    ASSERT_TRUE(text.has_value());
    EXPECT_TRUE(text->Whole);
    EXPECT_EQ(text->Blocks.size(), 1U);
    EXPECT_EQ(PreviewLines(text->Blocks.at(0)), R"(
head Root|Project Summary|
code|Project Name:  |
code|Project Description:  |
code|Project Author:  |
code|Project File Name: |
code|Project Temp File Name (for AutoSave): |
code|Project Full Path: |
code|Project Generated Code Output Path: |
code|Project Generated Code Format: Visual Basic 6.0 (or greater)|
head Project|Code Generation Settings|
code|VB Project Name: |
code|VB Project Description: |
code|Wrapper Class Name: |
code|Use Database Transactions: False|
code|Write Application Errors To Application Log: False|
code|Make Code WEB Compatible: False|
code||
head File|File Prefixes|
code|Class Module File Prefix: |
code|Basic Module File Prefix: |
code||
head Variables|Variable Prefixes|
code|Boolean: |
code|Byte: |
code|Collection: |
code|Currency: |
code|Date: |
code|Double: |
code|Integer: |
code|Long: |
code|Object: |
code|Other: |
code|Single: |
code|String: |
code|Variant: |
code|Form Filename Prefix: |
code||
head MTS|Microsoft Component Services Settings (MTS Settings)|
code|Make Component Services Compatible: False|
code|Don't retrieve records using Component Services:False|
note|    Note: You may experience slight performance degradation when|
note|    you retrieve records through Component Services as opposed to|
note|    a direct connection.|
code||
head Form|Form Generation Settings|
code|Generate Forms that interface to Object: False|
code||
head DSN|DataSource Connection Information:|
code|DataSource Connection String:  |
code|DataSource Name:  |
code|DataSource Server Name:  |
code|DataSource Driver:  |
code|DataSource Database Name:  |
code|DataSource Login:  |
code||
head Save|AutoSave Information|
code|AutoSave Project: False|
code|AutoSave Interval: 0 minutes|
code||
head Class|Class Members|
code Project|Wrapper Class:  (.cls)|
)");
}

TEST_F(ProjectSummary, TellsEverySetting)
{
    project.SetProjectName("My Shop");
    project.ProjectDescription = "Sells";
    project.Author = "Ada";
    project.FileName = "Shop.kzm";
    project.TempFileName = "/tmp/x.kzm";
    project.FullPath = "/home/Shop.kzm";
    project.OutputPath = "/out";
    project.VBVersion = visual_basic_version::kVisualBasic5;
    project.SetModified(true);
    project.Recovered = true;
    project.VBProjectDescription = "Shop Object";
    project.UseTransactions = true;
    project.WriteErrorsToApplicationLog = true;
    project.LoggingLevel = 3;
    project.MakeWebCompatible = true;
    project.PrefixByte = "byt";
    project.PrefixCurrency = "cur";
    project.PrefixDate = "dat";
    project.PrefixDouble = "dbl";
    project.PrefixInteger = "int";
    project.PrefixSingle = "sng";
    project.FormPrefix = "f";
    project.MTSEnabled = true;
    project.MTSDontRetrieve = true;
    project.FormsEnabled = true;
    project.SetConnectionString("PROVIDER=MSDASQL;DSN=Shop;");
    project.DataSourceName = "Shop DSN";
    project.DataSourceServerName = "server";
    project.DataSourceDriver = "driver";
    project.DataSourceDatabaseName = "database";
    project.DataSourceLogin = "login";
    project.AutosaveProject = true;
    project.AutosaveProjectInterval = 5;
    EXPECT_EQ(Summary(), R"(
head Root|Project Summary|
code|Project Name:  My Shop|
code|Project Description:  Sells|
code|Project Author:  Ada|
code|Project File Name: Shop.kzm|
code|Project Temp File Name (for AutoSave): /tmp/x.kzm|
code|Project Full Path: /home/Shop.kzm|
code|Project Generated Code Output Path: /out|
code|Project Generated Code Format: Visual Basic 5.0 SP3 (or greater)|
code Save|Project Has Been Modified: True|
code File|Project Has Been Recovered: True|
head Project|Code Generation Settings|
code|VB Project Name: Shop|
code|VB Project Description: Shop Object|
code|Wrapper Class Name: Auto|
code|Use Database Transactions: True|
code|Write Application Errors To Application Log: True|
note|    Logging will be performed at both the client(s) and the Component Services Server(s).|
code|Make Code WEB Compatible: True|
code||
head File|File Prefixes|
code|Class Module File Prefix: c|
code|Basic Module File Prefix: m|
code||
head Variables|Variable Prefixes|
code|Boolean: bln|
code|Byte: byt|
code|Collection: col|
code|Currency: cur|
code|Date: dat|
code|Double: dbl|
code|Integer: int|
code|Long: lng|
code|Object: obj|
code|Other: oth|
code|Single: sng|
code|String: str|
code|Variant: vnt|
code|Form Filename Prefix: f|
code||
head MTS|Microsoft Component Services Settings (MTS Settings)|
code|Make Component Services Compatible: True|
code|Don't retrieve records using Component Services:True|
note|    Note: If you do not use Component Services to retrieve records|
note|    each instance of your COM Object will make a connection to your|
note|    database.|
code||
head Form|Form Generation Settings|
code|Generate Forms that interface to Object: True|
code||
head DSN|DataSource Connection Information:|
code|DataSource Connection String:  PROVIDER=MSDASQL;DSN=Shop;|
code|DataSource Name:  Shop DSN|
code|DataSource Server Name:  server|
code|DataSource Driver:  driver|
code|DataSource Database Name:  database|
code|DataSource Login:  login|
code||
head Save|AutoSave Information|
code|AutoSave Project: True|
code|AutoSave Interval: 5 minutes|
code||
head Class|Class Members|
code Project|Wrapper Class: Auto (cAuto.cls)|
)");
}

TEST_F(ProjectSummary, SaysWhereErrorsAreLogged)
{
    const std::vector<std::string> notes{
        "note|    Logging will not be performed at either the client(s) or the Component Services Server(s).|\n",
        "note|    Logging will only be performed at the Component Services Server(s).|\n",
        "note|    Logging will only be performed at the client(s).|\n",
        "note|    Logging will be performed at both the client(s) and the Component Services Server(s).|\n",
    };
    for (std::size_t level = 0; level < notes.size(); ++level) {
        project.LoggingLevel = static_cast<std::int32_t>(level);
        project.WriteErrorsToApplicationLog = true;
        EXPECT_TRUE(Holds("code|Write Application Errors To Application Log: True|\n" + notes[level] + "code|Make Code WEB Compatible: ")) << level;
        project.WriteErrorsToApplicationLog = false;
        EXPECT_FALSE(Holds(notes[level])) << level;
    }
}

TEST_F(ProjectSummary, SaysNothingOfALoggingLevelThatThereIsNot)
{
    project.WriteErrorsToApplicationLog = true;
    for (const std::int32_t level : {4, -1}) {
        project.LoggingLevel = level;
        EXPECT_TRUE(Holds("code|Write Application Errors To Application Log: True|\ncode|Make Code WEB Compatible: ")) << level;
    }
}

TEST_F(ProjectSummary, TakesEveryOtherVersionForVisualBasic6)
{
    project.VBVersion = 7;
    EXPECT_TRUE(Holds("code|Project Generated Code Format: Visual Basic 6.0 (or greater)|\n"));
}

TEST_F(ProjectSummary, ListsTheClassesWithTheirCollections)
{
    AddClass("xmlAssist").IsMTSRequiredClass = true;
    KZMClass& order = AddClass("Order");
    order.TableName = "Orders";
    order.CreateCollection = true;
    AddClass("Line").TableName = "Lines";
    AddClass("Basket").CreateCollection = true;
    EXPECT_TRUE(Summary().ends_with(R"(
head Class|Class Members|
code Project|Wrapper Class: Auto (cAuto.cls)|
code MTS|Class Name (File Name): xmlAssist (cxmlAssist.cls)|
code Collection|Collection Name (File Name): Orders (cOrders.cls)|
code TableClass|    Class Name (File Name): Order (cOrder.cls)|
code TableClass|Class Name (File Name): Line (cLine.cls)|
code Collection|Collection Name (File Name): Baskets (cBaskets.cls)|
code Class|    Class Name (File Name): Basket (cBasket.cls)|
)")) << Summary();
}

} // namespace
} // namespace veldrane::testing
