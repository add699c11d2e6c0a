#include "logon_fixture.h"

namespace veldrane {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kJetString = "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/a.mdb;USER ID=ann;PASSWORD=;";

class LogonFinish : public LogonTest
{
  protected:
    void OpenShared(const std::string& text)
    {
        auto connection = std::make_unique<LoggedConnection>(text, log);
        sharedFake = connection.get();
        shared = std::move(connection);
    }

    std::unique_ptr<frmODBCLogon> JetDialog(LogonMode mode = LogonMode::Normal)
    {
        auto dialog = Loaded(mode);
        dialog->Page().txtDatabase = "/a.mdb";
        dialog->Page().txtUID = "ann";
        return dialog;
    }

    void ExpectUntouchedProject()
    {
        EXPECT_EQ(project.ConnectionString(), "");
        EXPECT_EQ(project.DataSourceName + project.DataSourceDriver + project.DataSourceDatabaseName +
                      project.DataSourceLogin,
                  "");
        EXPECT_FALSE(project.ConnectSameDirectory);
        EXPECT_FALSE(project.Modified());
    }

    LoggedConnection* sharedFake = nullptr;
};

TEST_F(LogonFinish, GivesTheProjectTheStringAndWhatItTells)
{
    Texts heard;
    const Connection listening = project.ProjectConnectionChanged.Connect([&](const std::string& text) {
        heard.push_back(text);
        EXPECT_EQ(project.DataSourceLogin, "ann");
        EXPECT_FALSE(project.Modified());
        ASSERT_TRUE(shared);
        EXPECT_EQ(shared->ConnectionString(), text);
    });
    project.DataSourceName = "Old";
    const auto dialog = JetDialog();
    dialog->chkConnectSameDirectory = true;
    dialog->cmdOK_Click();
    EXPECT_EQ(dialog->State(), DialogState::Closed);
    EXPECT_EQ(log, Texts{"open " + std::string(kJetString)});
    EXPECT_EQ(heard, Texts{kJetString});
    EXPECT_EQ(project.ConnectionString(), kJetString);
    EXPECT_EQ(project.DataSourceName, "");
    EXPECT_EQ(project.DataSourceDriver, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(project.DataSourceDatabaseName, "/a.mdb");
    EXPECT_EQ(project.DataSourceLogin, "ann");
    EXPECT_TRUE(project.ConnectSameDirectory);
    EXPECT_TRUE(project.Modified());
    EXPECT_EQ(project.DataSource(), data_source_kind::kJet);
}

TEST_F(LogonFinish, KeepsTheFactsOfADataSource)
{
    project.ConnectSameDirectory = true;
    const auto dialog = LoadedAt("MSDASQL");
    SelectDSN(*dialog, "Old Files");
    dialog->Page().txtDatabase = "main";
    dialog->Page().txtUID = "ann";
    dialog->cmdOK_Click();
    EXPECT_EQ(project.DataSourceName, "Old Files");
    EXPECT_EQ(project.DataSourceDriver, kAccess);
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    EXPECT_EQ(project.DataSourceLogin, "ann");
    EXPECT_FALSE(project.ConnectSameDirectory);
}

TEST_F(LogonFinish, KeepsTheFactsOfADriver)
{
    project.DataSourceName = "Old";
    const auto dialog = LoadedAt("MSDASQL");
    dialog->optDSNLess_Click();
    SelectDriver(*dialog, "MariaDB Unicode");
    dialog->Page().txtDatabase = "main";
    dialog->Page().txtUID = "ann";
    dialog->cmdOK_Click();
    EXPECT_EQ(project.DataSourceName, "");
    EXPECT_EQ(project.DataSourceDriver, "MariaDB Unicode");
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    EXPECT_EQ(project.DataSourceLogin, "ann");
    EXPECT_EQ(project.DataSource(), data_source_kind::kOdbc);
}

TEST_F(LogonFinish, KeepsTheSelectedDriverOfSqlServer)
{
    project.ConnectSameDirectory = true;
    const auto dialog = LoadedAt("SQLOLEDB");
    SelectDSN(*dialog, "Ledger");
    SelectDriver(*dialog, "FreeTDS");
    dialog->Page().txtDatabase = "main";
    dialog->Page().txtUID = "ann";
    dialog->cmdOK_Click();
    EXPECT_EQ(project.DataSourceName, "Ledger");
    EXPECT_EQ(project.DataSourceDriver, "FreeTDS");
    EXPECT_EQ(project.DataSourceDatabaseName, "main");
    EXPECT_EQ(project.DataSourceLogin, "ann");
    EXPECT_EQ(project.DataSource(), data_source_kind::kSqlServer);
    EXPECT_FALSE(project.ConnectSameDirectory);
}

TEST_F(LogonFinish, KeepsNoDataSourceBesideADriverOfSqlServer)
{
    project.DataSourceName = "Old";
    const auto dialog = LoadedAt("SQLOLEDB");
    dialog->optDSNLess_Click();
    SelectDriver(*dialog, "FreeTDS");
    dialog->cmdOK_Click();
    EXPECT_EQ(project.DataSourceName, "");
    EXPECT_EQ(project.DataSourceDriver, "FreeTDS");
}

TEST_F(LogonFinish, AFailureOfWhoeverHearsOfTheStringIsReported)
{
    const Connection listening = project.ProjectConnectionChanged.Connect(
        [](const std::string&) { throw DataSourceError(data_source_error::kFailed, "ODBC", "can't list"); });
    const auto dialog = JetDialog();
    dialog->cmdOK_Click();
    EXPECT_EQ(dialog->State(), DialogState::Shown);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Description(), "can't list");
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "frmODBCLogon");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "cmdOK_Click");
}

TEST_F(LogonFinish, AValueThatWouldPassForTheProviderIsReportedAndOpensNothing)
{
    OpenShared("DSN=Old;");
    const auto dialog = LoadedAt("MSDASQL");
    dialog->Page().txtPWD = "a=SQLOLEDB;b";
    dialog->cmdOK_Click();
    EXPECT_EQ(dialog->State(), DialogState::Shown);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Description(),
              "The value of \"PWD\" can't be written: a part of it would pass for the provider.");
    EXPECT_TRUE(log.empty());
    ExpectUntouchedProject();
}

TEST_F(LogonFinish, ClosesTheSharedConnectionFirstWhateverThatSays)
{
    OpenShared("DSN=Old;");
    sharedFake->CloseFails = true;
    JetDialog()->cmdOK_Click();
    EXPECT_EQ(log, (Texts{"close DSN=Old;", "open " + std::string(kJetString)}));
    EXPECT_EQ(shared->ConnectionString(), kJetString);
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(LogonFinish, ShowsTheHourglassWhileItOpens)
{
    JetDialog()->cmdOK_Click();
    EXPECT_EQ(shapeWhileOpening, PointerShape::Hourglass);
    EXPECT_EQ(pointer.Current, PointerShape::Default);
}

TEST_F(LogonFinish, AnOpenedStringThatIsTheOldOneRaisesNothing)
{
    int raised = 0;
    const Connection listening = project.ProjectConnectionChanged.Connect([&](const std::string&) { ++raised; });
    JetDialog()->cmdOK_Click();
    project.SetModified(false);
    const auto again = Loaded();
    again->cmdOK_Click();
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(again->State(), DialogState::Closed);
    EXPECT_TRUE(project.Modified());
    EXPECT_TRUE(shared->IsOpen());
}

TEST_F(LogonFinish, AFailureIsReportedAndLeavesTheDialogOpen)
{
    fails = true;
    const auto dialog = JetDialog();
    dialog->chkConnectSameDirectory = true;
    dialog->cmdOK_Click();
    EXPECT_EQ(dialog->State(), DialogState::Shown);
    EXPECT_FALSE(shared);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Description(), "refused");
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "frmODBCLogon");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "cmdOK_Click");
    EXPECT_EQ(pointer.Current, PointerShape::Default);
    EXPECT_EQ(dialog->Page().txtDatabase, "/a.mdb");
    ExpectUntouchedProject();
}

TEST_F(LogonFinish, CancelAfterAFailureOpensWhatWasOpenBefore)
{
    OpenShared("DSN=Old;");
    fails = true;
    const auto dialog = JetDialog();
    dialog->cmdOK_Click();
    EXPECT_FALSE(shared->IsOpen());
    dialog->cmdOK_Click();
    dialog->cmdCancel_Click();
    EXPECT_EQ(dialog->State(), DialogState::Closed);
    EXPECT_EQ(log.back(), "reopen DSN=Old;");
    EXPECT_EQ(shared->ConnectionString(), "DSN=Old;");
    EXPECT_EQ(pointer.Current, PointerShape::Default);
}

TEST_F(LogonFinish, CancelReportsThatNothingIsOpenAnyMore)
{
    OpenShared("DSN=Old;");
    sharedFake->OpenFails = true;
    fails = true;
    const auto dialog = JetDialog();
    dialog->cmdOK_Click();
    errors.Reported.clear();
    dialog->cmdCancel_Click();
    EXPECT_EQ(dialog->State(), DialogState::Closed);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Description(), "can't reopen");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "cmdCancel_Click");
    EXPECT_EQ(pointer.Current, PointerShape::Default);
}

TEST_F(LogonFinish, ClosingTheWindowAfterOkKeepsWhatOkOpened)
{
    OpenShared("DSN=Old;");
    const auto dialog = JetDialog();
    dialog->cmdOK_Click();
    dialog->cmdCancel_Click();
    EXPECT_EQ(log.back(), "open " + std::string(kJetString));
    EXPECT_EQ(shared->ConnectionString(), kJetString);
}

TEST_F(LogonFinish, CancelAloneLeavesEverythingAsItIs)
{
    OpenShared("DSN=Old;");
    const auto dialog = JetDialog();
    dialog->cmdCancel_Click();
    EXPECT_EQ(dialog->State(), DialogState::Closed);
    EXPECT_TRUE(log.empty());
    ExpectUntouchedProject();
}

TEST_F(LogonFinish, AJetPageWithoutAFileAsksForOneAndLeavesTheConnectionAsItIs)
{
    OpenShared("DSN=Old;");
    const auto dialog = Loaded();
    dialog->chkConnectSameDirectory = true;
    dialog->cmdOK_Click();
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Invalid Datasource Name");
    EXPECT_EQ(messages.Asked().front().Text, "Please select a datasource.");
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::None);
    EXPECT_EQ(dialog->State(), DialogState::Shown);
    EXPECT_TRUE(shared->IsOpen());
    EXPECT_TRUE(log.empty());
    ExpectUntouchedProject();
}

TEST_F(LogonFinish, WithoutADriverItSendsThePersonToTheList)
{
    for (const char* provider : {"MSDASQL", "SQLOLEDB"}) {
        messages.Forget();
        const auto dialog = LoadedAt(provider);
        dialog->optDSNLess_Click();
        dialog->Page().cmbDrivers.Selected.reset();
        dialog->cmdOK_Click();
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked().front().Title, "No Driver Specified");
        EXPECT_EQ(messages.Asked().front().Text, "Please select a database driver before continuing.");
        EXPECT_EQ(dialog->Focus(), "cmbDrivers");
        EXPECT_EQ(dialog->State(), DialogState::Shown);
        SelectDriver(*dialog, "FreeTDS");
        dialog->cmdOK_Click();
        EXPECT_EQ(dialog->Focus(), "");
        EXPECT_EQ(dialog->State(), DialogState::Closed);
    }
}

TEST_F(LogonFinish, ForACallerItKeepsTheStringAndLeavesProjectAndConnectionAlone)
{
    OpenShared("DSN=Old;");
    project.ConnectSameDirectory = false;
    const auto dialog = JetDialog(LogonMode::Return);
    dialog->chkConnectSameDirectory = true;
    dialog->cmdOK_Click();
    EXPECT_EQ(dialog->State(), DialogState::Hidden);
    EXPECT_EQ(dialog->ConnectionString, kJetString);
    EXPECT_EQ(log, Texts{"open " + std::string(kJetString)});
    EXPECT_EQ(shared->ConnectionString(), "DSN=Old;");
    ExpectUntouchedProject();
}

TEST_F(LogonFinish, ForACallerItChecksTheSame)
{
    const auto dialog = Loaded(LogonMode::Return);
    dialog->cmdOK_Click();
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Invalid Datasource Name");
    EXPECT_EQ(dialog->State(), DialogState::Shown);
    EXPECT_EQ(dialog->ConnectionString, "");
    EXPECT_TRUE(log.empty());
}

TEST_F(LogonFinish, ForACallerCancelIsToldFromOk)
{
    const auto dialog = JetDialog(LogonMode::Return);
    dialog->cmdCancel_Click();
    EXPECT_EQ(dialog->State(), DialogState::Closed);
    EXPECT_EQ(dialog->ConnectionString, "");
    EXPECT_TRUE(log.empty());
}

TEST_F(LogonFinish, ForACallerAFailureKeepsTheFormerString)
{
    fails = true;
    frmODBCLogon dialog(project, LogonPurpose::NewDataSource, LogonMode::Return, Surroundings());
    dialog.ConnectionString = kJetString;
    dialog.Load();
    dialog.Page().txtDatabase = "/b.mdb";
    dialog.cmdOK_Click();
    EXPECT_EQ(dialog.State(), DialogState::Shown);
    EXPECT_EQ(dialog.ConnectionString, kJetString);
    EXPECT_EQ(errors.Reported.size(), 1U);
}

} // namespace
} // namespace veldrane
