#include "datasource/attach_by_hand.h"

#include "support/fake_connection.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <deque>

namespace veldrane {
namespace {

using Texts = std::vector<std::string>;

class AttachByHand : public ::testing::Test
{
  protected:
    // A person who types the names one after the other, and then cancels.
    static AskForName Typing(std::deque<std::string> names)
    {
        return [names = std::move(names)]() mutable -> std::optional<std::string> {
            if (names.empty())
                return std::nullopt;
            std::string name = names.front();
            names.pop_front();
            return name;
        };
    }

    void ExpectTold(std::size_t times, const std::string& title, const std::string& text)
    {
        ASSERT_EQ(messages.Asked().size(), times);
        for (const Question& question : messages.Asked()) {
            EXPECT_EQ(question.Title, title);
            EXPECT_EQ(question.Text, text);
            EXPECT_EQ(question.Offered, Buttons::Ok);
        }
    }

    testing::FakeConnection connection;
    testing::ScriptedMessages messages;
    TTCProject project;
    text::CodePage codePage;
    int refreshed = 0;
    NameSource source{.Connection = &connection, .Messages = messages};
    Attachment attachment{
        .Source = source, .Project = project, .CodePage = codePage, .RefreshLists = [this] { ++refreshed; }};
};

TEST_F(AttachByHand, ATableIsAskedForUntilItCanBeOpened)
{
    connection.Content.Add("Orders");
    connection.Content.Add("");
    EXPECT_EQ(GetTableName(source, Typing({"Ordres", "", "Orders", "Never asked"})), "Orders");
    ExpectTold(2, "Table Validation Failed", "Invalid Table Name, please try again.");
}

TEST_F(AttachByHand, CancelGivesNoName)
{
    EXPECT_EQ(GetTableName(source, Typing({})), "");
    EXPECT_EQ(GetStoredProcedureName(source, Typing({})), "");
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_EQ(GetTableName(source, Typing({"Nowhere"})), "");
    EXPECT_EQ(messages.Asked().size(), 1U);
}

TEST_F(AttachByHand, AnyFailureOfATableIsAWrongName)
{
    connection.Content.Add("Orders");
    for (const long number : {data_source_error::kNoOpenConnection, data_source_error::kPermissionDenied,
                              data_source_error::kNotSupported, data_source_error::kFailed}) {
        messages.Forget();
        connection.Content.Failures["Fields"] = number;
        EXPECT_EQ(GetTableName(source, Typing({"Orders"})), "");
        ExpectTold(1, "Table Validation Failed", "Invalid Table Name, please try again.");
    }
}

TEST_F(AttachByHand, AProcedureIsAskedForUntilTheSourceListsIt)
{
    connection.Content.ProcedureNames = {"GetOrders;1", "it's"};
    EXPECT_EQ(GetStoredProcedureName(source, Typing({"GetOrders", "", "it's"})), "it's");
    ExpectTold(2, "Stored Procedure Validation Failed", "Invalid Stored Procedure Name, please try again.");
}

TEST_F(AttachByHand, AProcedureIsFoundInAnyLettersAndNamedAsTheSourceNamesIt)
{
    connection.Content.ProcedureNames = {"GetOrders", "getorders"};
    EXPECT_EQ(GetStoredProcedureName(source, Typing({"getorders"})), "getorders");
    EXPECT_EQ(GetStoredProcedureName(source, Typing({"GETORDERS"})), "GetOrders");
}

TEST_F(AttachByHand, ASourceWithoutProceduresHasNone)
{
    connection.Content.Failures["Procedures"] = data_source_error::kNotSupported;
    EXPECT_EQ(GetStoredProcedureName(source, Typing({"GetOrders"})), "");
    ExpectTold(1, "Stored Procedure Validation Failed", "Invalid Stored Procedure Name, please try again.");
}

TEST_F(AttachByHand, NoNameIsGoodWithoutADataSource)
{
    connection.Content.Add("Orders");
    connection.Close();
    EXPECT_EQ(GetTableName(source, Typing({"Orders"})), "");
    EXPECT_EQ(GetTableName({.Connection = nullptr, .Messages = messages}, Typing({"Orders"})), "");
    ExpectTold(2, "Table Validation Failed", "Invalid Table Name, please try again.");
}

TEST_F(AttachByHand, WhatWasMadeMeanwhileIsFound)
{
    Texts typed;
    const AskForName ask = [&]() -> std::optional<std::string> {
        if (typed.size() == 1)
            connection.Content.ProcedureNames = {"New"};
        typed.emplace_back("New");
        return "New";
    };
    EXPECT_EQ(GetStoredProcedureName(source, ask), "New");
    EXPECT_EQ(typed.size(), 2U);
}

TEST_F(AttachByHand, AnAttachedTableModifiesTheProjectAndRefreshesTheLists)
{
    connection.Content.Add("Orders");
    EXPECT_EQ(AttachTable(attachment, Typing({"Orders"})), "Orders");
    EXPECT_TRUE(project.AttachedTables.Contains("Orders"));
    EXPECT_TRUE(project.Modified());
    EXPECT_EQ(refreshed, 1);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AttachByHand, ATableThatIsAttachedAlreadyIsAskedForAgain)
{
    connection.Content.Add("Orders");
    connection.Content.Add("orders");
    connection.Content.Add("Items");
    project.AttachedTables.Add("Orders", "Orders");
    EXPECT_EQ(AttachTable(attachment, Typing({"Orders", "orders", "Items"})), "Items");
    EXPECT_EQ(project.AttachedTables.Count(), 2U);
    EXPECT_EQ(refreshed, 1);
}

TEST_F(AttachByHand, CancelAttachesNothing)
{
    connection.Content.Add("Orders");
    project.AttachedTables.Add("Orders", "Orders");
    project.SetModified(false);
    EXPECT_EQ(AttachTable(attachment, Typing({"Orders"})), "");
    EXPECT_EQ(AttachStoredProcedure(attachment, Typing({})), "");
    EXPECT_FALSE(project.Modified());
    EXPECT_EQ(refreshed, 0);
}

TEST_F(AttachByHand, AnAttachedProcedureModifiesTheProjectAndRefreshesTheLists)
{
    connection.Content.ProcedureNames = {"GetOrders;1", "GetItems"};
    EXPECT_EQ(AttachStoredProcedure(attachment, Typing({"getorders;1"})), "GetOrders;1");
    EXPECT_TRUE(project.AttachedSPs.Contains("GetOrders;1"));
    EXPECT_TRUE(project.Modified());
    EXPECT_EQ(refreshed, 1);
    EXPECT_EQ(AttachStoredProcedure(attachment, Typing({"GetOrders;1", "GetItems"})), "GetItems");
    EXPECT_EQ(project.AttachedSPs.Count(), 2U);
    EXPECT_EQ(refreshed, 2);
}

TEST_F(AttachByHand, ANameThatTheFileCannotHoldIsToldAndAskedForAgain)
{
    connection.Content.Add("łódź");
    connection.Content.Add("Lodz");
    EXPECT_EQ(AttachTable(attachment, Typing({"łódź", "Lodz"})), "Lodz");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Name Not Writable");
    EXPECT_EQ(project.AttachedTables.Count(), 1U);
}

} // namespace
} // namespace veldrane
