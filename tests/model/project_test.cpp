#include "model/project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

class Project : public ::testing::Test
{
  protected:
    TTCProject project_;
    std::vector<std::string> events_;
    std::vector<Connection> connections_;

    Project()
    {
        connections_.push_back(
            project_.ProjectNameChanged.Connect([&](const auto& name) { events_.push_back("name:" + name); }));
        connections_.push_back(
            project_.MTSProjectNameChanged.Connect([&](const auto& name) { events_.push_back("mts:" + name); }));
        connections_.push_back(project_.ProjectModified.Connect([&] { events_.emplace_back("modified"); }));
        connections_.push_back(project_.ProjectConnectionChanged.Connect(
            [&](const auto& text) { events_.push_back("connection:" + text); }));
    }
};

TEST_F(Project, BeginsEmpty)
{
    for (const std::string& text : {project_.ConnectionString(),
                                    project_.ProjectName(),
                                    project_.DataSourceName,
                                    project_.FileName,
                                    project_.FullPath,
                                    project_.ProjectDescription,
                                    project_.DataSourceServerName,
                                    project_.DataSourceDatabaseName,
                                    project_.DataSourceLogin,
                                    project_.DataSourceDriver,
                                    project_.Author,
                                    project_.TempFileName,
                                    project_.VBProjectName,
                                    project_.VBProjectDescription,
                                    project_.WrapperClassName,
                                    project_.OutputPath,
                                    project_.DataSourcePassword,
                                    project_.DataSourceDatabasePassword,
                                    project_.ClassPrefix,
                                    project_.ModulePrefix,
                                    project_.FormPrefix,
                                    project_.PrefixBoolean,
                                    project_.PrefixByte,
                                    project_.PrefixCollection,
                                    project_.PrefixCurrency,
                                    project_.PrefixDate,
                                    project_.PrefixDouble,
                                    project_.PrefixInteger,
                                    project_.PrefixLong,
                                    project_.PrefixObject,
                                    project_.PrefixOther,
                                    project_.PrefixSingle,
                                    project_.PrefixString,
                                    project_.PrefixVariant,
                                    project_.LogDatabaseConnection,
                                    project_.LogTableName})
        EXPECT_EQ(text, "");
    for (const bool flag :
         {project_.Modified(), project_.UseTransactions, project_.WriteErrorsToApplicationLog, project_.AutosaveProject,
          project_.WrapClasses, project_.Recovered, project_.UseGlobalADOObject, project_.IncludeGlobalsBas,
          project_.MakeWebCompatible, project_.MTSEnabled, project_.FormsEnabled, project_.MTSDontRetrieve,
          project_.LogTransactions, project_.DoNotExposeChildrenMethods, project_.TrackPropertyChanges,
          project_.AllowLogTargetChange, project_.ConnectSameDirectory, project_.UseADOR})
        EXPECT_FALSE(flag);
    for (const std::int32_t number : {project_.DataSource(), project_.AutosaveProjectInterval,
                                      project_.AutosaveCurrentInterval, project_.VBVersion, project_.LoggingLevel})
        EXPECT_EQ(number, 0);
    EXPECT_EQ(project_.AttachedTables.Count() + project_.AttachedSPs.Count() + project_.ClassCollectionNames.Count(),
              0U);
}

TEST_F(Project, RaisesAChangedNameOnly)
{
    project_.SetProjectName("Desk");
    project_.SetProjectName("Desk");
    project_.SetProjectName("desk");
    EXPECT_THAT(events_, ElementsAre("name:Desk", "name:desk"));
}

TEST_F(Project, RaisesModifiedOnlyWhenTheFlagBecomesTrue)
{
    project_.SetModified(false);
    project_.SetModified(true);
    project_.SetModified(true);
    EXPECT_THAT(events_, ElementsAre("modified"));
    project_.SetModified(false);
    EXPECT_THAT(events_, ElementsAre("modified"));
    EXPECT_FALSE(project_.Modified());
}

TEST_F(Project, RaisesAChangedConnectionStringOnly)
{
    project_.SetConnectionString("DSN=A;");
    project_.SetConnectionString("DSN=A;");
    project_.SetConnectionString("");
    project_.SetConnectionString("");
    EXPECT_THAT(events_, ElementsAre("connection:DSN=A;", "connection:"));
}

TEST_F(Project, DerivesTheKindOfConnectionFromItsProvider)
{
    const std::vector<std::pair<std::string, std::int32_t>> cases = {
        {"PROVIDER=MSDASQL;DSN=A;", 0},
        {"provider=sqloledb;x", 1},
        {"Provider=Microsoft.JET.oledb.4.0;x", 2},
        {"PROVIDER=SQLOLEDB;Extended=MSDASQL;", 1},
        {"A=Microsoft.Jet.OLEDB.4.0;B=MSDASQL;", 2},
        {"A=SQLOLEDB;B=Microsoft.Jet.OLEDB.4.0;", 1},
    };
    for (const auto& [text, kind] : cases) {
        project_.SetConnectionString(text);
        EXPECT_EQ(project_.DataSource(), kind) << text;
    }
}

TEST_F(Project, KeepsTheKindOfConnectionWhenNoProviderIsNamed)
{
    project_.SetConnectionString("PROVIDER=SQLOLEDB;");
    for (const auto* text : {"DSN=A;", "", "=SQLOLEDB", "SQLOLEDB;", "= MSDASQL;"}) {
        project_.SetConnectionString(text);
        EXPECT_EQ(project_.DataSource(), data_source_kind::kSqlServer) << text;
    }
}

TEST_F(Project, DerivesTheKindBeforeItTellsOfTheConnection)
{
    std::int32_t seen = -1;
    const Connection listener =
        project_.ProjectConnectionChanged.Connect([&](const auto&) { seen = project_.DataSource(); });
    project_.SetConnectionString("PROVIDER=Microsoft.Jet.OLEDB.4.0;");
    EXPECT_EQ(seen, data_source_kind::kJet);
}

TEST_F(Project, ForgetsSomeOfItsMembersWhenItIsCleared)
{
    project_.SetConnectionString("PROVIDER=SQLOLEDB;");
    project_.SetProjectName("Desk");
    project_.SetModified(true);
    for (std::string* text :
         {&project_.DataSourceName, &project_.FileName, &project_.FullPath, &project_.ProjectDescription,
          &project_.DataSourceServerName, &project_.DataSourceDatabaseName, &project_.DataSourceLogin,
          &project_.DataSourceDriver, &project_.Author, &project_.VBProjectName, &project_.VBProjectDescription,
          &project_.WrapperClassName})
        *text = "set";
    project_.UseTransactions = project_.WriteErrorsToApplicationLog = project_.WrapClasses = true;
    project_.AutosaveProjectInterval = 9;
    project_.ClassCollectionNames.Add("Order", "Order");
    events_.clear();

    project_.Clear();

    EXPECT_THAT(events_, ElementsAre("name:", "connection:", "modified"));
    for (const std::string& text :
         {project_.ConnectionString(), project_.ProjectName(), project_.DataSourceName, project_.FileName,
          project_.FullPath, project_.ProjectDescription, project_.DataSourceServerName,
          project_.DataSourceDatabaseName, project_.DataSourceLogin, project_.DataSourceDriver, project_.Author,
          project_.VBProjectName, project_.VBProjectDescription, project_.WrapperClassName})
        EXPECT_EQ(text, "");
    EXPECT_FALSE(project_.Modified() || project_.UseTransactions || project_.WriteErrorsToApplicationLog ||
                 project_.WrapClasses);
    EXPECT_TRUE(project_.AutosaveProject);
    EXPECT_EQ(project_.AutosaveProjectInterval, 5);
    EXPECT_EQ(project_.ClassCollectionNames.Count(), 0U);
}

TEST_F(Project, HasForgottenEverythingWhenItTellsThatItIsCleared)
{
    project_.SetProjectName("Desk");
    project_.SetConnectionString("DSN=A;");
    project_.SetModified(true);
    project_.WrapperClassName = "Auto";
    project_.ClassCollectionNames.Add("Order", "Order");
    int heard = 0;
    const Connection listener = project_.ProjectNameChanged.Connect([&](const auto&) {
        ++heard;
        EXPECT_EQ(project_.ProjectName() + project_.ConnectionString() + project_.WrapperClassName, "");
        EXPECT_FALSE(project_.Modified());
        EXPECT_EQ(project_.ClassCollectionNames.Count(), 0U);
    });
    project_.Clear();
    EXPECT_EQ(heard, 1);
}

TEST_F(Project, KeepsTheOtherMembersWhenItIsCleared)
{
    project_.SetConnectionString("PROVIDER=SQLOLEDB;");
    const std::vector<std::string*> texts = {
        &project_.TempFileName,
        &project_.OutputPath,
        &project_.DataSourcePassword,
        &project_.DataSourceDatabasePassword,
        &project_.ClassPrefix,
        &project_.ModulePrefix,
        &project_.FormPrefix,
        &project_.PrefixBoolean,
        &project_.PrefixByte,
        &project_.PrefixCollection,
        &project_.PrefixCurrency,
        &project_.PrefixDate,
        &project_.PrefixDouble,
        &project_.PrefixInteger,
        &project_.PrefixLong,
        &project_.PrefixObject,
        &project_.PrefixOther,
        &project_.PrefixSingle,
        &project_.PrefixString,
        &project_.PrefixVariant,
        &project_.LogDatabaseConnection,
        &project_.LogTableName,
    };
    const std::vector<bool*> flags = {
        &project_.Recovered,
        &project_.UseGlobalADOObject,
        &project_.IncludeGlobalsBas,
        &project_.MakeWebCompatible,
        &project_.MTSEnabled,
        &project_.FormsEnabled,
        &project_.MTSDontRetrieve,
        &project_.LogTransactions,
        &project_.DoNotExposeChildrenMethods,
        &project_.TrackPropertyChanges,
        &project_.AllowLogTargetChange,
        &project_.ConnectSameDirectory,
        &project_.UseADOR,
    };
    for (std::string* text : texts)
        *text = "kept";
    for (bool* flag : flags)
        *flag = true;
    project_.AutosaveCurrentInterval = project_.VBVersion = project_.LoggingLevel = 1;
    project_.AttachedTables.Add("A", "A");
    project_.AttachedSPs.Add("P", "P");

    project_.Clear();

    for (const std::string* text : texts)
        EXPECT_EQ(*text, "kept");
    for (const bool* flag : flags)
        EXPECT_TRUE(*flag);
    EXPECT_EQ(project_.AutosaveCurrentInterval + project_.VBVersion + project_.LoggingLevel, 3);
    EXPECT_EQ(project_.DataSource(), data_source_kind::kSqlServer);
    EXPECT_EQ(project_.AttachedTables.Count() + project_.AttachedSPs.Count(), 2U);
}

TEST_F(Project, NeverRaisesTheNameOfTheServerProject)
{
    project_.SetProjectName("Desk");
    project_.Clear();
    for (const std::string& event : events_)
        EXPECT_FALSE(event.starts_with("mts:"));
}

TEST(LocalConnection, IsThereUnlessTheComponentRetrieves)
{
    TTCProject project;
    EXPECT_TRUE(LocalConnection(project));
    EXPECT_FALSE(RetrievesThroughComponent(project));
    project.MTSDontRetrieve = true;
    EXPECT_TRUE(LocalConnection(project));
    EXPECT_FALSE(RetrievesThroughComponent(project));
    project.MTSEnabled = true;
    EXPECT_TRUE(LocalConnection(project));
    EXPECT_FALSE(RetrievesThroughComponent(project));
    project.MTSDontRetrieve = false;
    EXPECT_FALSE(LocalConnection(project));
    EXPECT_TRUE(RetrievesThroughComponent(project));
}

} // namespace
} // namespace veldrane
