#include "datasource/pick_procedures.h"

#include "support/fake_catalog.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

using Texts = std::vector<std::string>;

CatalogParameter Parameter(const std::string& procedure, const std::string& name,
                           std::int32_t direction = parameter_direction::kInput)
{
    CatalogParameter row{.ProcedureName = procedure, .Parameter = {}};
    row.Parameter.ParameterName = name;
    row.Parameter.DataType = "int";
    row.Parameter.DataTypeNumber = adInteger;
    row.Parameter.Direction = direction;
    return row;
}

class PickStoredProceduresTest : public ::testing::Test
{
  protected:
    // The dialog with these rows ticked.
    void Pick(const std::optional<Texts>& ticked)
    {
        PickStoredProcedures(picker, methods, selected, [&](const std::vector<ListRow>& rows) {
            lstSPs = rows;
            ++timesShown;
            return ticked;
        });
    }

    [[nodiscard]] Texts ParametersOf(const std::string& procedure) const
    {
        Texts names;
        for (const SPParameter& parameter : FindProcedure(selected, procedure)->SPParameters)
            names.push_back(parameter.ParameterName);
        return names;
    }

    [[nodiscard]] Texts MethodNames() const
    {
        Texts names;
        for (const SP& procedure : selected)
            names.push_back(procedure.SPMethodName);
        return names;
    }

    testing::FakeCatalog catalog;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    ProcedurePicker picker{.Source = &catalog, .Messages = messages, .Errors = errors};
    TTCMethods methods;
    SPs selected;
    std::vector<ListRow> lstSPs;
    int timesShown = 0;
};

TEST_F(PickStoredProceduresTest, ListsEveryProcedureUnderItsNameWithTheIconOfProcedures)
{
    catalog.ProcedureNames = {"GetOrders;1", "Ten Most Expensive"};
    Pick(Texts{});
    ASSERT_EQ(lstSPs.size(), 2U);
    EXPECT_EQ(lstSPs.at(0).Key, "GetOrders;1");
    EXPECT_EQ(lstSPs.at(0).Text, "GetOrders;1");
    EXPECT_EQ(lstSPs.at(0).Icon, "SP");
    EXPECT_EQ(lstSPs.at(1).Text, "Ten Most Expensive");
    ASSERT_NE(selected.Item("GetOrders;1"), nullptr);
    EXPECT_EQ(selected.Item("GetOrders;1")->SPName, "GetOrders;1");
}

TEST_F(PickStoredProceduresTest, TickedProceduresAloneGetAMethodName)
{
    catalog.ProcedureNames = {"GetOrders;1", "hr.raise_pay", "Ten Most Expensive"};
    Pick(Texts{"GetOrders;1", "Ten Most Expensive"});
    EXPECT_EQ(MethodNames(), (Texts{"GetOrders", "", "Ten Most Expensive"}));
}

TEST_F(PickStoredProceduresTest, CancelTicksNothing)
{
    catalog.ProcedureNames = {"GetOrders"};
    Pick(std::nullopt);
    EXPECT_EQ(timesShown, 1);
    EXPECT_EQ(MethodNames(), Texts{""});
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(PickStoredProceduresTest, OverloadedProceduresAppearOnce)
{
    catalog.ProcedureNames = {"total", "total"};
    catalog.Parameters = {Parameter("total", "a"), Parameter("TOTAL", "b")};
    Pick(Texts{});
    EXPECT_EQ(lstSPs.size(), 1U);
    EXPECT_EQ(selected.Count(), 1U);
    EXPECT_EQ(ParametersOf("total"), Texts{"a"}) << "the parameters of a name in other letters are not its own";
}

TEST_F(PickStoredProceduresTest, NamesThatDifferInLetterCaseKeepTheirOwnParametersAndTheFirstIsListed)
{
    catalog.ProcedureNames = {"Total", "total", "TOTAL", "total"};
    catalog.Parameters = {Parameter("Total", "a"), Parameter("total", "b"), Parameter("TOTAL", "c")};
    Pick(Texts{"Total"});
    ASSERT_EQ(lstSPs.size(), 1U);
    EXPECT_EQ(lstSPs.front().Key, "Total");
    EXPECT_EQ(MethodNames(), (Texts{"Total", "", ""}));
    for (const char* name : {"Total", "total", "TOTAL"})
        EXPECT_EQ(FindProcedure(selected, name)->SPName, name);
    EXPECT_EQ(FindProcedure(selected, "tOTAL")->SPName, "Total");
    EXPECT_EQ(FindProcedure(selected, "Totals"), nullptr);
    EXPECT_EQ(ParametersOf("Total"), Texts{"a"});
    EXPECT_EQ(ParametersOf("total"), Texts{"b"});
    EXPECT_EQ(ParametersOf("TOTAL"), Texts{"c"});
}

TEST_F(PickStoredProceduresTest, ParametersComeWithAllThatTheCatalogTells)
{
    catalog.ProcedureNames = {"GetOrders;1"};
    CatalogParameter row = Parameter("GetOrders;1", "@CustomerID", parameter_direction::kInputOutput);
    row.Parameter.CharacterMaximumLength = "5";
    row.Parameter.DefaultValue = "'ALFKI'";
    row.Parameter.Description = "whose";
    row.Parameter.IsNullable = true;
    row.Parameter.LocalDataTypeName = "nchar";
    row.Parameter.NumericPrecision = "10";
    row.Parameter.NumericScale = "2";
    row.Parameter.OrdianalPosition = 1;
    row.Parameter.ParameterHasDefault = true;
    catalog.Parameters = {Parameter("Unknown", "@Nobody"), row};
    Pick(Texts{});
    const auto parameter = selected.Item("GetOrders;1")->SPParameters.Item("@customerid");
    EXPECT_EQ(parameter->ParameterName, "@CustomerID");
    EXPECT_EQ(parameter->ParameterCleanName(), "CustomerID");
    EXPECT_EQ(parameter->DataType, "int");
    EXPECT_EQ(parameter->DataTypeNumber, adInteger);
    EXPECT_EQ(parameter->Direction, 2);
    EXPECT_EQ(parameter->CharacterMaximumLength, "5");
    EXPECT_EQ(parameter->DefaultValue, "'ALFKI'");
    EXPECT_EQ(parameter->Description, "whose");
    EXPECT_TRUE(parameter->IsNullable);
    EXPECT_EQ(parameter->LocalDataTypeName, "nchar");
    EXPECT_EQ(parameter->NumericPrecision, "10");
    EXPECT_EQ(parameter->NumericScale, "2");
    EXPECT_EQ(parameter->OrdianalPosition, 1);
    EXPECT_TRUE(parameter->ParameterHasDefault);
    EXPECT_EQ(selected.Count(), 1U);
}

TEST_F(PickStoredProceduresTest, ParametersOfAProcedureThatIsAMethodAlreadyAreLeftOut)
{
    catalog.ProcedureNames = {"Bound", "Free"};
    catalog.Parameters = {Parameter("Bound", "a"), Parameter("Free", "b")};
    methods.Add("Fetch", false, KZMArguments{}, "", "Public", false, "Fetch");
    ReadProcedures(catalog, selected);
    selected.Item("Bound")->SPMethodName = "fetch";
    ReadParameters(catalog, methods, selected);
    EXPECT_EQ(ParametersOf("Bound"), Texts{});
    EXPECT_EQ(ParametersOf("Free"), Texts{"b"});
}

TEST_F(PickStoredProceduresTest, ParametersWhoseCleanNamesAreOneBothStay)
{
    catalog.ProcedureNames = {"Sum"};
    catalog.Parameters = {Parameter("Sum", "@Total"), Parameter("Sum", "@@Total")};
    Pick(Texts{});
    EXPECT_EQ(ParametersOf("Sum"), (Texts{"@Total", "@@Total"}));
    EXPECT_EQ(selected.Item("Sum")->SPParameters.Item(2)->ParameterCleanName(), "Total");
}

TEST_F(PickStoredProceduresTest, ASecondParameterOfOneNameIsNotLost)
{
    catalog.ProcedureNames = {"Sum"};
    catalog.Parameters = {Parameter("Sum", "n"), Parameter("Sum", "N")};
    Pick(Texts{});
    EXPECT_EQ(ParametersOf("Sum"), (Texts{"n", "N"}));
}

TEST_F(PickStoredProceduresTest, WhatIsToldOfAParameterStaysOnOneLine)
{
    catalog.ProcedureNames = {"Greet"};
    CatalogParameter row = Parameter("Greet", "words");
    row.Parameter.DefaultValue = "'Grüße\r\nEnd Method\2'";
    row.Parameter.Description = "one\ntwo";
    row.Parameter.DataType = "our\ttype";
    row.Parameter.LocalDataTypeName = "\"our\ntype\"";
    catalog.Parameters = {row};
    Pick(Texts{});
    const auto parameter = selected.Item("Greet")->SPParameters.Item(1);
    EXPECT_EQ(parameter->DefaultValue, "'Grüße  End Method '");
    EXPECT_EQ(parameter->Description, "one two");
    EXPECT_EQ(parameter->DataType, "our type");
    EXPECT_EQ(parameter->LocalDataTypeName, "\"our type\"");
}

TEST_F(PickStoredProceduresTest, AProviderThatRefusesParametersIsToldOfAndTheChoiceGoesOn)
{
    catalog.ProcedureNames = {"GetOrders"};
    catalog.Parameters = {Parameter("GetOrders", "a")};
    for (const long failure : {data_source_error::kNotSupported, data_source_error::kPermissionDenied}) {
        messages.Forget();
        selected = SPs{};
        catalog.Failures["ProcedureParameters"] = failure;
        Pick(Texts{"GetOrders"});
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked().front().Title, "OLE DB Provider Limitation");
        EXPECT_EQ(
            messages.Asked().front().Text,
            "Parameters are not supported by the OLE DB Provider you are currently using.  NO Parameters will be included in the Stored Procedure Definition.");
        EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Warning);
        EXPECT_EQ(MethodNames(), Texts{"GetOrders"});
        EXPECT_EQ(ParametersOf("GetOrders"), Texts{});
    }
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(PickStoredProceduresTest, AnyOtherFailureIsReportedAndNothingIsShown)
{
    catalog.ProcedureNames = {"GetOrders"};
    catalog.Failures["ProcedureParameters"] = data_source_error::kNoOpenConnection;
    Pick(Texts{"GetOrders"});
    catalog.Failures = {{"Procedures", data_source_error::kFailed}};
    Pick(Texts{"GetOrders"});
    PickStoredProcedures({.Source = nullptr, .Messages = messages, .Errors = errors}, methods, selected,
                         [&](const std::vector<ListRow>&) {
                             ++timesShown;
                             return std::nullopt;
                         });
    ASSERT_EQ(errors.Reported.size(), 3U);
    for (const auto& [error, place] : errors.Reported) {
        EXPECT_EQ(place.ModuleName, "frmPickSP");
        EXPECT_EQ(place.RoutineName, "PickStoredProcedures");
    }
    EXPECT_EQ(timesShown, 0);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(PickStoredProceduresTest, WhoeverWatchesTheReadingDoesNotWatchThePersonTick)
{
    catalog.ProcedureNames = {"Ping"};
    catalog.Failures["ProcedureParameters"] = data_source_error::kNotSupported;
    bool isWatched = false;
    bool isRead = false;
    const ProcedurePicker watched{.Source = &catalog,
                                  .Messages = messages,
                                  .Errors = errors,
                                  .Watched = [&](const std::function<void()>& reading) {
                                      isWatched = true;
                                      reading();
                                      isRead = !catalog.Calls.empty() && messages.Asked().empty();
                                      isWatched = false;
                                  }};
    PickStoredProcedures(watched, methods, selected, [&](const std::vector<ListRow>& rows) {
        EXPECT_FALSE(isWatched);
        EXPECT_EQ(rows.size(), 1U);
        return std::nullopt;
    });
    EXPECT_TRUE(isRead) << "the box about the parameters stands outside of it";
    EXPECT_EQ(messages.Asked().size(), 1U);
}

} // namespace
} // namespace veldrane
