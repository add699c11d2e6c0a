#include "model/enumerations.h"
#include "model/events.h"
#include "model/methods.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(Method, BeginsEmpty)
{
    const TTCMethod method;
    EXPECT_EQ(method.MethodName + method.ReturnDataType + method.Scope, "");
    EXPECT_FALSE(method.DefaultMethod || method.PlusMethod || method.MethodIsSP || method.SPReturnValuesOnly);
    EXPECT_EQ(method.Arguments.Count(), 0U);
    EXPECT_EQ(method.StoredProcedure, nullptr);
}

TEST(Event, BeginsEmpty)
{
    const ttcEvent event;
    EXPECT_EQ(event.EventName, "");
    EXPECT_FALSE(event.PlusEvent);
    EXPECT_EQ(event.TTCEventParameters.Count(), 0U);
}

TEST(Parameter, BeginsEmpty)
{
    const TTCParameter parameter;
    EXPECT_EQ(parameter.VariableName + parameter.ParameterDataType + parameter.DefaultValue + parameter.ColumnName, "");
    EXPECT_FALSE(parameter.ByValIndicator || parameter.OptionalIndicator || parameter.IsArray);
    EXPECT_EQ(parameter.Index, 0);
}

TEST(Methods, TakeWhatTheyAreGiven)
{
    KZMArguments arguments;
    arguments.Add("ID", 3, true, "anID", "Long", true, "7", true, "anID");
    TTCMethods methods;
    const auto method = methods.Add("Load", true, std::move(arguments), "Boolean", "Friend", true, "Load");
    EXPECT_EQ(method->MethodName + method->ReturnDataType + method->Scope, "LoadBooleanFriend");
    EXPECT_TRUE(method->PlusMethod && method->DefaultMethod);
    EXPECT_FALSE(method->MethodIsSP);
    const auto argument = method->Arguments.Item("anID");
    EXPECT_EQ(argument->ColumnName, "ID");
    EXPECT_EQ(argument->Index, 3);
    EXPECT_EQ(argument->VariableName + argument->ParameterDataType + argument->DefaultValue, "anIDLong7");
    EXPECT_TRUE(argument->ByValIndicator && argument->OptionalIndicator && argument->IsArray);
    EXPECT_EQ(methods.LastIndex(), "Load");
}

TEST(Events, TakeWhatTheyAreGiven)
{
    TTCEventParameters parameters;
    parameters.Add(2, true, "aCity", "String", true, "x", true, "aCity");
    TTCEvents events;
    const auto event = events.Add("Changed", std::move(parameters), true, "Changed");
    EXPECT_EQ(event->EventName, "Changed");
    EXPECT_TRUE(event->PlusEvent);
    const auto parameter = event->TTCEventParameters.Item("aCity");
    EXPECT_EQ(parameter->Index, 2);
    EXPECT_EQ(parameter->VariableName + parameter->ParameterDataType + parameter->DefaultValue, "aCityStringx");
    EXPECT_TRUE(parameter->ByValIndicator && parameter->OptionalIndicator && parameter->IsArray);
    EXPECT_EQ(parameter->ColumnName, "");
    EXPECT_EQ(events.LastIndex(), "Changed");
}

TEST(CloneOfAParameter, HasNoColumn)
{
    KZMArguments arguments;
    const auto clone = arguments.Add("ID", 3, true, "anID", "Long", true, "7", true, "anID")->Clone();
    EXPECT_EQ(clone->ColumnName, "");
    EXPECT_EQ(clone->Index, 3);
    EXPECT_EQ(clone->VariableName + clone->ParameterDataType + clone->DefaultValue, "anIDLong7");
    EXPECT_TRUE(clone->ByValIndicator && clone->OptionalIndicator && clone->IsArray);
}

TEST(CloneOfAMethod, KeepsTheColumnsOfItsArguments)
{
    TTCMethods methods;
    const auto method = methods.Add("Load", true, {}, "Boolean", "Friend", true, "Load");
    method->MethodIsSP = method->SPReturnValuesOnly = true;
    method->Arguments.Add("ID", 3, true, "anID", "Long", true, "7", true, "other key");
    const auto clone = method->Clone();
    EXPECT_EQ(clone->MethodName + clone->ReturnDataType + clone->Scope, "LoadBooleanFriend");
    EXPECT_TRUE(clone->PlusMethod && clone->DefaultMethod && clone->MethodIsSP && clone->SPReturnValuesOnly);
    EXPECT_EQ(clone->Arguments.Item("anID")->ColumnName, "ID");
    clone->Arguments.Item("anID")->DefaultValue = "8";
    EXPECT_EQ(method->Arguments.Item(1)->DefaultValue, "7");
}

TEST(CloneOfAMethod, SharesTheStoredProcedure)
{
    TTCMethod method;
    method.StoredProcedure = std::make_shared<SP>();
    method.StoredProcedure->SPName = "Load;1";
    method.StoredProcedure->SPMethodName = "Load";
    method.StoredProcedure->SPParameters.Add("@a", "int", 3, "@a");
    const auto clone = method.Clone();
    EXPECT_EQ(clone->StoredProcedure, method.StoredProcedure);
    EXPECT_EQ(clone->StoredProcedure->SPName, "Load;1");
    EXPECT_EQ(clone->StoredProcedure->SPMethodName, "Load");
    clone->StoredProcedure->SPParameters.Item("@a")->DataType = "money";
    EXPECT_EQ(method.StoredProcedure->SPParameters.Item("@a")->DataType, "money");
}

TEST(CloneOfAnEvent, KeysItsArgumentsByTheirNames)
{
    ttcEvent event;
    event.EventName = "Changed";
    event.PlusEvent = true;
    event.TTCEventParameters.Add(1, true, "aCity", "String", true, "x", true, "");
    const auto clone = event.Clone();
    EXPECT_EQ(clone->EventName, "Changed");
    EXPECT_TRUE(clone->PlusEvent);
    EXPECT_EQ(clone->TTCEventParameters.Item("aCity")->DefaultValue, "x");
    clone->TTCEventParameters.Clear();
    EXPECT_EQ(event.TTCEventParameters.Count(), 1U);
}

TEST(EnumValues, HoldANumberOrTheObjectItself)
{
    TTCEnumerations enumerations;
    TTCEnumValues& values = enumerations.Add("Kind", "Kind")->EnumValues;
    EXPECT_TRUE(std::holds_alternative<std::monostate>(TTCEnumValue().Value));
    values.Add("Whole", std::int64_t{7}, "Whole");
    values.Add("Half", 0.5, "Half");
    const auto object = std::make_shared<TTCParameter>();
    values.Add("Thing", std::shared_ptr<void>(object), "Thing");
    EXPECT_EQ(std::get<std::int64_t>(values.Item("whole")->Value), 7);
    EXPECT_EQ(std::get<double>(values.Item("half")->Value), 0.5);
    EXPECT_EQ(std::get<std::shared_ptr<void>>(values.Item("thing")->Value), object);
    EXPECT_EQ(values.Item(1)->VariableName, "Whole");
    EXPECT_EQ(enumerations.Item("KIND")->EnumName, "Kind");
}

} // namespace
} // namespace veldrane
