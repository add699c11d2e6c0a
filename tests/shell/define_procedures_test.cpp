#include "shell/define_procedures.h"

#include "datasource/procedure_method.h"
#include "model/xml_assist.h"
#include "support/fake_catalog.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"
#include "text/case_folding.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DefineProceduresTest : public ::testing::Test
{
  protected:
    DefineProceduresTest()
    {
        project.VBProjectName = "Shop";
        AddClass("Order", "Orders");
    }

    KZMClass& AddClass(const std::string& name, const std::string& table)
    {
        const auto item = std::make_shared<KZMClass>();
        item->ClassName = name;
        item->TableName = table;
        EXPECT_TRUE(AddClassToProject(item, names));
        return *item;
    }

    void AddProcedure(const std::string& name, const std::vector<std::string>& parameters = {})
    {
        catalog.ProcedureNames.push_back(name);
        for (const std::string& parameter : parameters) {
            CatalogParameter row{.ProcedureName = name, .Parameter = {}};
            row.Parameter.ParameterName = parameter;
            row.Parameter.Direction = parameter_direction::kInput;
            catalog.Parameters.push_back(row);
        }
    }

    void Define(const std::vector<std::string>& requests)
    {
        DefineProcedures({.Source = catalog,
                          .Names = names,
                          .ClassCalled =
                              [this](const std::string& name) {
                                  for (const KZMClass& item : classes)
                                      if (text::EqualFolded(item.ClassName, name) ||
                                          text::EqualFolded(item.TableName, name))
                                          return item.ClassName;
                                  return std::string{};
                              },
                          .Refuse = [this](const std::string& line) { refused.push_back(line); }},
                         requests);
    }

    // "method=procedure(parameters)" of each method of the class that calls a procedure.
    [[nodiscard]] std::vector<std::string> Bound(const std::string& className) const
    {
        std::vector<std::string> bound;
        const auto item = classes.Item(className);
        for (std::size_t i = 1; item && i <= item->TTCMethods.Count(); ++i) {
            const auto method = item->TTCMethods.Item(i);
            std::string parameters;
            for (const SPParameter& parameter : method->StoredProcedure->SPParameters)
                parameters += (parameters.empty() ? "" : ",") + parameter.ParameterName;
            EXPECT_EQ(method->StoredProcedure->SPMethodName, method->MethodName);
            EXPECT_TRUE(item->TTCMembers.Contains(method->MethodName));
            bound.push_back(method->MethodName + "=" + method->StoredProcedure->SPName + "(" + parameters + ")");
        }
        return bound;
    }

    testing::FakeCatalog catalog;
    TTCProject project;
    KZMClasses classes;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    text::CodePage codePage;
    ProjectNames names{
        .Project = project, .Classes = classes, .Messages = messages, .Errors = errors, .CodePage = codePage};
    std::vector<std::string> refused;
};

TEST_F(DefineProceduresTest, AProcedureGoesIntoTheClassOrTheClassOfTheTable)
{
    AddProcedure("GetOrders;1", {"@CustomerID", "@Since"});
    AddProcedure("CountOrders");
    project.SetModified(false);
    Define({"GetOrders;1=order", "countorders=ORDERS"});
    EXPECT_THAT(Bound("Order"), ElementsAre("GetOrders=GetOrders;1(@CustomerID,@Since)", "CountOrders=CountOrders()"));
    EXPECT_EQ(classes.Count(), 1U);
    EXPECT_THAT(refused, IsEmpty());
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_TRUE(project.Modified());
}

TEST_F(DefineProceduresTest, WithoutAClassItGoesIntoOneThatHoldsNothingElse)
{
    AddProcedure("Ping");
    AddProcedure("Pong", {"n"});
    Define({"Ping", "Pong="});
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("Ping=Ping()", "Pong=Pong(n)"));
    const auto own = classes.Item("StoredProcedures");
    EXPECT_EQ(own->TableName, "");
    EXPECT_EQ(own->ParentClassName, "");
    EXPECT_FALSE(own->CreateCollection);
    EXPECT_EQ(own->CollectionName, "");
    EXPECT_FALSE(own->IsDomainTable);
    EXPECT_EQ(own->TTCProperties.Count() + own->TTCEvents.Count() + own->TTCKeys.Count(), 0U);
    EXPECT_EQ(own->TTCMembers.Count(), 2U);
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("StoredProcedures"));
    EXPECT_EQ(classes.Count(), 2U);
    EXPECT_THAT(refused, IsEmpty());
}

TEST_F(DefineProceduresTest, AClassOfThatNameIsUsedAsItIs)
{
    AddClass("StoredProcedures", "StoredProcedures");
    AddProcedure("Ping");
    Define({"Ping"});
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("Ping=Ping()"));
    EXPECT_EQ(classes.Count(), 2U);
}

TEST_F(DefineProceduresTest, AWordThatIsAProceduresNameIsThatProcedure)
{
    AddProcedure("a=Order");
    AddProcedure("a");
    AddProcedure("c=b");
    Define({"a=Order", "c=b=Order", "a=Orders"});
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("aOrder=a=Order()"));
    EXPECT_THAT(Bound("Order"), ElementsAre("cb=c=b()", "a=a()"));
}

TEST_F(DefineProceduresTest, LettersOfEitherCaseTellProceduresApart)
{
    AddProcedure("Total", {"a"});
    AddProcedure("total", {"b"});
    Define({"total=Order", "Total", "TOTAL"});
    EXPECT_THAT(Bound("Order"), ElementsAre("total=total(b)"));
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("Total=Total(a)"));
    EXPECT_THAT(refused, IsEmpty());
    catalog.Parameters.at(1).Parameter.ParameterName = "c";
    Define({});
    EXPECT_THAT(Bound("Order"), ElementsAre("total=total(c)"));
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("Total=Total(a)"));
    Define({"Total=Order"});
    EXPECT_THAT(
        refused,
        ElementsAre(
            "the stored procedure 'Total' is left out, for the class Order has a member named Total already: rename that, or name another class, as in --procedure 'Total=CLASS'."));
}

TEST_F(DefineProceduresTest, AMethodStaysThatOfAProcedureWhoseLettersChangedTheirCase)
{
    AddProcedure("Ping", {"a"});
    Define({"Ping=Order"});
    catalog.ProcedureNames = {"ping"};
    catalog.Parameters.front() = {.ProcedureName = "ping", .Parameter = catalog.Parameters.front().Parameter};
    catalog.Parameters.front().Parameter.ParameterName = "b";
    Define({"PING=Order"});
    EXPECT_THAT(Bound("Order"), ElementsAre("Ping=Ping(b)"));
    EXPECT_THAT(refused, IsEmpty());
}

TEST_F(DefineProceduresTest, AnUnknownProcedureMakesNoClass)
{
    Define({"Nothing", "Nothing=Order", "="});
    EXPECT_THAT(
        refused,
        ElementsAre("the data source has no stored procedure named 'Nothing': veldrane tables lists those that it has.",
                    "the data source has no stored procedure named 'Nothing': veldrane tables lists those that it has.",
                    "the data source has no stored procedure named '': veldrane tables lists those that it has."));
    EXPECT_EQ(classes.Count(), 1U);
    EXPECT_THAT(Bound("Order"), IsEmpty());
}

TEST_F(DefineProceduresTest, AnUnknownClassLeavesTheProcedureOutAndTheRestIsDone)
{
    AddProcedure("Ping");
    Define({"Ping=Nobody", "Ping=Order"});
    EXPECT_THAT(
        refused,
        ElementsAre(
            "the stored procedure 'Ping' is left out, for there is no class or table 'Nobody' in the project: make one with --table, or name another class, as in --procedure 'Ping=CLASS'."));
    EXPECT_THAT(Bound("Order"), ElementsAre("Ping=Ping()"));
}

TEST_F(DefineProceduresTest, ANameThatAMemberHasIsRefused)
{
    classes.Item("Order")->TTCMembers.Add("ping", "ping");
    AddProcedure("Ping");
    Define({"Ping=Order"});
    EXPECT_THAT(
        refused,
        ElementsAre(
            "the stored procedure 'Ping' is left out, for the class Order has a member named Ping already: rename that, or name another class, as in --procedure 'Ping=CLASS'."));
    EXPECT_THAT(Bound("Order"), IsEmpty());
}

TEST_F(DefineProceduresTest, TheClassOfComponentServicesTakesNoProcedure)
{
    ASSERT_TRUE(AddXmlAssist(project, classes));
    const std::size_t before = classes.Item("xmlAssist")->TTCMethods.Count();
    AddProcedure("Ping");
    Define({"Ping=xmlassist"});
    EXPECT_THAT(
        refused,
        ElementsAre(
            "the stored procedure 'Ping' is left out, for the class xmlAssist belongs to component services: name another class, as in --procedure 'Ping=CLASS'."));
    EXPECT_EQ(classes.Item("xmlAssist")->TTCMethods.Count(), before);
}

TEST_F(DefineProceduresTest, NamesThatTheFileCannotHoldAreRefusedAndMakeNoClass)
{
    AddProcedure("łódź");
    AddProcedure("Twins", {"n", "N"});
    Define({"łódź", "Twins"});
    EXPECT_THAT(
        refused,
        ElementsAre(
            "the stored procedure 'łódź' is left out, for a name in it can't enter the project or is too long.",
            "the stored procedure 'Twins' is left out, for a name in it can't enter the project or is too long."));
    ASSERT_EQ(messages.Asked().size(), 2U);
    EXPECT_EQ(messages.Asked().at(0).Title, "Name Not Writable");
    EXPECT_EQ(messages.Asked().at(1).Title, "Duplicate Parameter Name");
    EXPECT_EQ(classes.Count(), 1U);
}

TEST_F(DefineProceduresTest, TheNameOfTheOwnClassIsCheckedAsAnyClassIs)
{
    AddProcedure("Ping");
    project.VBProjectName = "AProjectWithQuiteALongName";
    Define({"Ping"});
    project.VBProjectName = "StoredProcedures";
    Define({"Ping"});
    const std::string line =
        "the stored procedure 'Ping' is left out, for the project can't have a class named StoredProcedures: name another class, as in --procedure 'Ping=CLASS'.";
    EXPECT_THAT(refused, ElementsAre(line, line));
    ASSERT_EQ(messages.Asked().size(), 2U);
    EXPECT_EQ(messages.Asked().at(0).Title, "Programmatic ID Too Long");
    EXPECT_EQ(messages.Asked().at(1).Title, "Duplicate Name in Project");
    EXPECT_EQ(classes.Count(), 1U);
    EXPECT_FALSE(project.ClassCollectionNames.ClassNameExists("StoredProcedures"));
}

TEST_F(DefineProceduresTest, RunAgainItReadsTheParametersAnewAndKeepsTheMethodsName)
{
    AddProcedure("GetOrders;1", {"@CustomerID"});
    Define({"GetOrders;1=Order"});
    const auto item = classes.Item("Order");
    item->TTCMethods.Item(1)->Scope = "Friend";
    frmAddEditSP form({.Mode = ProcedureMode::Edit,
                       .Procedure = item->TTCMethods.Item(1)->StoredProcedure,
                       .Class = *item,
                       .Key = "GetOrders",
                       .Messages = messages,
                       .Errors = errors,
                       .CodePage = codePage});
    form.txtMethodName = "Fetch";
    ASSERT_TRUE(form.cmdOK_Click());
    catalog.Parameters.clear();
    catalog.ProcedureNames.clear();
    AddProcedure("GetOrders;1", {"@Since", "@Until"});
    Define({"GetOrders;1=Order"});
    EXPECT_THAT(Bound("Order"), ElementsAre("Fetch=GetOrders;1(@Since,@Until)"));
    EXPECT_EQ(item->TTCMethods.Item(1)->Scope, "Friend");
    EXPECT_THAT(refused, IsEmpty());
}

TEST_F(DefineProceduresTest, EveryBoundProcedureFollowsItsSourceWithoutBeingAskedFor)
{
    AddProcedure("Ping", {"a"});
    Define({"Ping=Order", "Ping"});
    catalog.Parameters.clear();
    catalog.ProcedureNames.clear();
    AddProcedure("Ping", {"b"});
    Define({});
    EXPECT_THAT(Bound("Order"), ElementsAre("Ping=Ping(b)"));
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("Ping=Ping(b)"));
}

TEST_F(DefineProceduresTest, AProcedureThatIsGoneLeavesItsMethodAsItWas)
{
    AddProcedure("Ping", {"a"});
    Define({"Ping=Order"});
    catalog.ProcedureNames.clear();
    Define({});
    EXPECT_THAT(
        refused,
        ElementsAre(
            "the method Ping of the class Order stays as it was: its stored procedure 'Ping' could not be read."));
    EXPECT_THAT(Bound("Order"), ElementsAre("Ping=Ping(a)"));
}

TEST_F(DefineProceduresTest, AMethodKeepsItsParametersWhileNewOnesCannotEnter)
{
    AddProcedure("Ping", {"a"});
    Define({"Ping=Order"});
    catalog.Parameters.front().Parameter.ParameterName = "ł";
    Define({});
    EXPECT_THAT(Bound("Order"), ElementsAre("Ping=Ping(a)"));
    EXPECT_EQ(refused.size(), 1U);
}

TEST_F(DefineProceduresTest, TwoMethodsOfOneProcedureHaveNamesOfTheirOwn)
{
    AddProcedure("Ping", {"a"});
    Define({"Ping=Order", "Ping"});
    classes.Item("Order")->TTCMethods.Item(1)->StoredProcedure->SPMethodName = "Other";
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("Ping=Ping(a)"));
}

TEST_F(DefineProceduresTest, WithoutProceduresAtWorkTheCatalogIsNotAsked)
{
    AddProcedure("Ping");
    Define({});
    EXPECT_THAT(catalog.Calls, IsEmpty());
    Define({"Ping=Order"});
    classes.Item("Order")->TTCMethods.Item("Ping")->MethodIsSP = false;
    catalog.Calls.clear();
    Define({});
    EXPECT_THAT(catalog.Calls, IsEmpty());
}

TEST_F(DefineProceduresTest, ASourceThatTellsNoParametersGivesMethodsWithoutThem)
{
    AddProcedure("Ping", {"a"});
    Define({"Ping=Order"});
    catalog.Failures["ProcedureParameters"] = data_source_error::kNotSupported;
    Define({});
    EXPECT_TRUE(messages.Asked().empty()) << "what is bound keeps its parameters, and nothing is missing";
    EXPECT_THAT(Bound("Order"), ElementsAre("Ping=Ping(a)"));
    Define({"Ping"});
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "OLE DB Provider Limitation");
    EXPECT_THAT(Bound("StoredProcedures"), ElementsAre("Ping=Ping()"));
    EXPECT_THAT(refused, ElementsAre("'Ping' is a method without parameters: the data source tells none."));
}

TEST_F(DefineProceduresTest, ASourceThatKnowsNoProceduresLeavesMethodsAlone)
{
    AddProcedure("Ping", {"a"});
    Define({"Ping=Order"});
    catalog.Failures["Procedures"] = data_source_error::kNotSupported;
    Define({});
    EXPECT_THAT(refused, IsEmpty());
    EXPECT_THAT(Bound("Order"), ElementsAre("Ping=Ping(a)"));
    Define({"Pong"});
    EXPECT_EQ(refused.size(), 1U);
}

TEST_F(DefineProceduresTest, AnyOtherFailureEndsIt)
{
    AddProcedure("Ping");
    catalog.Failures["ProcedureParameters"] = data_source_error::kNoOpenConnection;
    EXPECT_THROW(Define({"Ping"}), DataSourceError);
    EXPECT_EQ(classes.Count(), 1U);
}

} // namespace
} // namespace veldrane
