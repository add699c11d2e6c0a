#include "datasource/procedure_method.h"

#include "class_fixture.h"

namespace veldrane {
namespace {

using testing::Texts;

class NameProcedureMethod : public testing::ClassFixture
{
  protected:
    static std::shared_ptr<SP> Procedure(const std::string& name)
    {
        auto procedure = std::make_shared<SP>();
        procedure->SPName = name;
        procedure->SPMethodName = procedure->SPCleanName();
        return procedure;
    }

    static void AddParameter(SP& procedure, const std::string& name, std::int32_t direction)
    {
        procedure.SPParameters.Add(name, "int", 3, name)->Direction = direction;
    }

    frmAddEditSP Form(ProcedureMode mode, const std::shared_ptr<SP>& procedure, const std::string& key = "")
    {
        return frmAddEditSP({.Mode = mode,
                             .Procedure = procedure,
                             .Class = item,
                             .Key = key,
                             .Messages = messages,
                             .Errors = errors,
                             .CodePage = codePage});
    }

    // A method bound to the procedure under the name.
    std::shared_ptr<SP> Bind(const std::string& name)
    {
        std::shared_ptr<SP> procedure = Procedure(name);
        EXPECT_TRUE(Form(ProcedureMode::Add, procedure).cmdOK_Click());
        return procedure;
    }

    text::CodePage codePage;
};

TEST_F(NameProcedureMethod, CaptionsNameTheMethod)
{
    const auto procedure = Procedure("GetOrders;1");
    EXPECT_EQ(Form(ProcedureMode::Add, procedure).Caption(), "Add New Stored Procedure: GetOrders");
    EXPECT_EQ(Form(ProcedureMode::Edit, procedure, "Fetch").Caption(), "Edit Fetch");
    EXPECT_EQ(Form(ProcedureMode::Edit, procedure, "Fetch").txtMethodName, "Fetch");
}

TEST_F(NameProcedureMethod, ParametersShowTheirDirectionsInWords)
{
    const auto procedure = Procedure("p");
    for (int direction = 0; direction <= 5; ++direction)
        AddParameter(*procedure, "@p" + std::to_string(direction), direction);
    std::vector<std::string> shown;
    for (const ParameterRow& row : Form(ProcedureMode::Add, procedure).lstParameters())
        shown.push_back(row.Name + ":" + row.Direction + ":" + row.DataType);
    EXPECT_EQ(shown, (std::vector<std::string>{"@p0::int", "@p1:Input:int", "@p2:In/Out:int", "@p3:Output:int",
                                               "@p4:Return:int", "@p5::int"}));
}

TEST_F(NameProcedureMethod, OkAddsAPublicMethodThatHoldsTheProcedure)
{
    const auto procedure = Bind("GetOrders;1");
    const auto method = item.TTCMethods.Item("GetOrders");
    ASSERT_NE(method, nullptr);
    EXPECT_EQ(method->MethodName, "GetOrders");
    EXPECT_EQ(method->Scope, "Public");
    EXPECT_EQ(method->ReturnDataType, "");
    EXPECT_FALSE(method->PlusMethod);
    EXPECT_FALSE(method->DefaultMethod);
    EXPECT_EQ(method->Arguments.Count(), 0U);
    EXPECT_TRUE(method->MethodIsSP);
    EXPECT_EQ(method->StoredProcedure, procedure);
    EXPECT_EQ(procedure->SPName, "GetOrders;1") << "the procedure is called by its whole name";
    EXPECT_TRUE(item.TTCMembers.Contains("getorders"));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(NameProcedureMethod, ATypedNameBecomesThatOfTheFunctionToo)
{
    const auto procedure = Procedure("GetOrders;1");
    frmAddEditSP form = Form(ProcedureMode::Add, procedure);
    form.txtMethodName = "Fetch";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(procedure->SPMethodName, "Fetch");
}

TEST_F(NameProcedureMethod, ANameThatIsNoneIsMadeOneAndTold)
{
    const std::vector<std::pair<std::string, std::string>> cases{{"Ten Most Expensive", "Ten_Most_Expensive"},
                                                                 {"2004 sales", "A2004_sales"},
                                                                 {"print", "aprint"},
                                                                 {";1", "InvalidName"}};
    for (const auto& [name, expected] : cases) {
        messages.Forget();
        EXPECT_EQ(Bind(name)->SPMethodName, expected);
        ASSERT_EQ(Titles(), std::vector<std::string>{"Invalid Name Detected"}) << name;
    }
    EXPECT_EQ(MethodNames(), (std::vector<std::string>{"Ten_Most_Expensive", "A2004_sales", "aprint", "InvalidName"}));
}

TEST_F(NameProcedureMethod, TheDialogStaysWhileAMemberHasTheName)
{
    item.TTCMembers.Add("GetOrders", "GetOrders");
    const auto procedure = Procedure("getorders");
    frmAddEditSP form = Form(ProcedureMode::Add, procedure);
    EXPECT_EQ(form.NameMethod(), ProcedureNaming::NameTaken);
    EXPECT_EQ(item.TTCMethods.Count(), 0U);
    EXPECT_EQ(item.TTCMembers.Count(), 1U);
    form.txtMethodName = "FetchOrders";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), std::vector<std::string>{"FetchOrders"});
}

TEST_F(NameProcedureMethod, ARenamedMethodIsACloneUnderTheNewNameAndTheProcedureFollows)
{
    const auto procedure = Bind("GetOrders");
    Bind("Other");
    const auto before = item.TTCMethods.Item("GetOrders");
    before->Scope = "Friend";
    frmAddEditSP form = Form(ProcedureMode::Edit, procedure, "GetOrders");
    form.txtMethodName = "Fetch Orders";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), (std::vector<std::string>{"Other", "Fetch_Orders"}));
    const auto after = item.TTCMethods.Item("Fetch_Orders");
    EXPECT_NE(after, before);
    EXPECT_EQ(after->MethodName, "Fetch_Orders");
    EXPECT_EQ(after->Scope, "Friend");
    EXPECT_TRUE(after->MethodIsSP);
    EXPECT_EQ(after->StoredProcedure, procedure);
    EXPECT_EQ(procedure->SPMethodName, "Fetch_Orders");
    EXPECT_FALSE(item.TTCMembers.Contains("GetOrders")) << "the old name is free again";
    EXPECT_TRUE(item.TTCMembers.Contains("Fetch_Orders"));
    EXPECT_EQ(form.Caption(), "Edit Fetch_Orders");
}

TEST_F(NameProcedureMethod, ANameThatStaysNeedsNoPlaceAmongTheMembers)
{
    const auto procedure = Bind("GetOrders");
    const auto before = item.TTCMethods.Item("GetOrders");
    EXPECT_TRUE(Form(ProcedureMode::Edit, procedure, "GetOrders").cmdOK_Click());
    EXPECT_EQ(item.TTCMethods.Item("GetOrders"), before);
}

TEST_F(NameProcedureMethod, TheFunctionFollowsANameThatStays)
{
    const auto procedure = Bind("GetOrders");
    procedure->SPMethodName = "Fetch";
    EXPECT_TRUE(Form(ProcedureMode::Edit, procedure, "GetOrders").cmdOK_Click());
    EXPECT_EQ(procedure->SPMethodName, "GetOrders");
    EXPECT_EQ(MethodNames(), Texts{"GetOrders"});
}

TEST_F(NameProcedureMethod, ANameThatIsTooLongIsRefused)
{
    frmAddEditSP form = Form(ProcedureMode::Add, Procedure("GetOrders"));
    form.txtMethodName = std::string(256, 'n');
    EXPECT_EQ(form.NameMethod(), ProcedureNaming::NotWritable);
    EXPECT_EQ(Titles(), Texts{"Name Too Long"});
    EXPECT_EQ(form.Trouble("txtMethodName"), messages.Asked().front().Text);
    EXPECT_EQ(item.TTCMethods.Count(), 0U);
}

TEST_F(NameProcedureMethod, TheLettersOfANameCanChangeTheirCase)
{
    const auto procedure = Bind("getorders");
    frmAddEditSP form = Form(ProcedureMode::Edit, procedure, "getorders");
    form.txtMethodName = "GetOrders";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), std::vector<std::string>{"GetOrders"});
    EXPECT_EQ(item.TTCMembers.Item("getorders")->MemberName, "GetOrders");
    EXPECT_EQ(procedure->SPMethodName, "GetOrders");
}

TEST_F(NameProcedureMethod, ARenameToATakenNameChangesNothing)
{
    const auto procedure = Bind("GetOrders");
    Bind("Other");
    frmAddEditSP form = Form(ProcedureMode::Edit, procedure, "GetOrders");
    form.txtMethodName = "OTHER";
    EXPECT_EQ(form.NameMethod(), ProcedureNaming::NameTaken);
    EXPECT_EQ(MethodNames(), (std::vector<std::string>{"GetOrders", "Other"}));
    EXPECT_EQ(procedure->SPMethodName, "GetOrders");
    EXPECT_TRUE(item.TTCMembers.Contains("GetOrders"));
}

TEST_F(NameProcedureMethod, NamesThatTheFileCannotHoldAreRefused)
{
    EXPECT_EQ(Form(ProcedureMode::Add, Procedure("łódź")).NameMethod(), ProcedureNaming::NotWritable);
    const auto procedure = Procedure("łódź");
    frmAddEditSP renamed = Form(ProcedureMode::Add, procedure);
    renamed.txtMethodName = "Lodz";
    EXPECT_EQ(renamed.NameMethod(), ProcedureNaming::NotWritable) << "the name that is called is written too";
    frmAddEditSP typed = Form(ProcedureMode::Add, Procedure("p"));
    typed.txtMethodName = "łódź";
    EXPECT_EQ(typed.NameMethod(), ProcedureNaming::NotWritable) << "and so is the name of the method";
    const auto withParameter = Procedure("p");
    AddParameter(*withParameter, "ł", parameter_direction::kInput);
    EXPECT_EQ(Form(ProcedureMode::Add, withParameter).NameMethod(), ProcedureNaming::NotWritable);
    for (const Question& question : messages.Asked())
        EXPECT_EQ(question.Title, "Name Not Writable");
    EXPECT_EQ(messages.Asked().size(), 4U);
    EXPECT_EQ(item.TTCMethods.Count() + item.TTCMembers.Count(), 0U);
}

TEST_F(NameProcedureMethod, TwoParametersOfOneNameAreRefused)
{
    const auto procedure = Procedure("Sum");
    AddParameter(*procedure, "n", parameter_direction::kInput);
    procedure->SPParameters.Add("N", "int", 3, "");
    EXPECT_EQ(Form(ProcedureMode::Add, procedure).NameMethod(), ProcedureNaming::NotWritable);
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(
        messages.Asked().front().Text,
        "The stored procedure 'Sum' has two parameters named 'N', letter case aside, so it can't enter the project. Rename one of them.");
    EXPECT_EQ(item.TTCMembers.Count(), 0U);
}

TEST_F(NameProcedureMethod, OkTellsOfATakenNameAndKeepsIt)
{
    item.ClassName = "Order";
    item.TTCMembers.Add("GetOrders", "GetOrders");
    const auto procedure = Procedure("getorders");
    frmAddEditSP form = Form(ProcedureMode::Add, procedure);
    std::vector<std::string> focus;
    const Connection listening =
        form.FocusWanted.Connect([&](std::string_view control) { focus.emplace_back(control); });
    EXPECT_FALSE(form.cmdOK_Click());
    ASSERT_EQ(Titles(), Texts{"Duplicate Method Name"});
    EXPECT_EQ(
        messages.Asked().front().Text,
        "The method name 'getorders' conflicts with an existing member of the Order class. Please enter another name.");
    EXPECT_EQ(form.txtMethodName, "getorders");
    EXPECT_EQ(focus, Texts{"txtMethodName"});
    EXPECT_EQ(item.TTCMethods.Count(), 0U);
    EXPECT_EQ(item.TTCMembers.Count(), 1U);
}

TEST_F(NameProcedureMethod, OkStaysWithoutAWordOfItsOwnWhereTheRefusalWasTold)
{
    frmAddEditSP form = Form(ProcedureMode::Add, Procedure("łódź"));
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(Titles(), Texts{"Name Not Writable"});
}

TEST_F(NameProcedureMethod, CancelClosesWithoutAQuestion)
{
    frmAddEditSP form = Form(ProcedureMode::Add, Procedure("GetOrders"));
    form.txtMethodName = "Fetch";
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_EQ(item.TTCMethods.Count() + item.TTCMembers.Count(), 0U);
}

TEST_F(NameProcedureMethod, TheTroubleOfANameIsToldWhileItIsTyped)
{
    item.ClassName = "Order";
    Bind("Other");
    frmAddEditSP form = Form(ProcedureMode::Edit, Bind("GetOrders"), "GetOrders");
    EXPECT_EQ(form.Trouble("txtMethodName"), "");
    form.txtMethodName = "getORDERS";
    EXPECT_EQ(form.Trouble("txtMethodName"), "") << "its own name";
    form.txtMethodName = "OTHER";
    EXPECT_EQ(
        form.Trouble("txtMethodName"),
        "The method name 'OTHER' conflicts with an existing member of the Order class. Please enter another name.");
    EXPECT_EQ(form.Trouble("lstParameters"), "");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(NameProcedureMethod, TheTroubleOfTheProcedureIsToldBeforeOkIsPressed)
{
    const auto withLetter = Procedure("Sum");
    AddParameter(*withLetter, "@ł", parameter_direction::kInput);
    const auto withTwins = Procedure("Sum");
    AddParameter(*withTwins, "n", parameter_direction::kInput);
    withTwins->SPParameters.Add("N", "int", 3, "");
    for (const auto& procedure : {withLetter, withTwins, Procedure("łódź")}) {
        messages.Forget();
        frmAddEditSP form = Form(ProcedureMode::Add, procedure);
        form.txtMethodName = "Print";
        EXPECT_FALSE(form.cmdOK_Click());
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(form.Trouble("txtMethodName"), messages.Asked().front().Text);
        EXPECT_EQ(form.txtMethodName, "Print") << "no name would help";
    }
    EXPECT_NE(Form(ProcedureMode::Add, withLetter).Trouble("txtMethodName").find("'@ł'"), std::string::npos);
}

TEST_F(NameProcedureMethod, TheEditedProcedureIsACopyUnderTheTypedName)
{
    const auto procedure = Bind("GetOrders");
    AddParameter(*procedure, "@CustomerID", parameter_direction::kInput);
    frmAddEditSP form = Form(ProcedureMode::Edit, procedure, "GetOrders");
    form.txtMethodName = "Fetch Orders";
    const auto edited = form.Edited();
    EXPECT_EQ(edited->SPMethodName, "Fetch_Orders");
    EXPECT_EQ(edited->SPParameters.Count(), 1U);
    EXPECT_EQ(procedure->SPMethodName, "GetOrders");
}

} // namespace
} // namespace veldrane
