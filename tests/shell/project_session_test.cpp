#include "shell/project_session.h"

#include "datasource/data_source_error.h"
#include "support/memory_application.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using Texts = std::vector<std::string>;

// A connection that holds nothing and tells when it goes.
class EmptyConnection : public DataSourceConnection
{
  public:
    EmptyConnection(std::string text, Texts& log) : text_(std::move(text)), log_(log) {}
    ~EmptyConnection() override { log_.push_back("close " + text_); }

    void Open(const std::string& connectionString) override { text_ = connectionString; }
    void Close() override {}
    [[nodiscard]] bool IsOpen() const override { return true; }
    [[nodiscard]] const std::string& ConnectionString() const override { return text_; }
    [[nodiscard]] const std::vector<ADOError>& Errors() const override { return errors_; }
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog() override { return nullptr; }
    void Execute(const std::string& /*statement*/) override {}

  private:
    std::string text_;
    Texts& log_;
    std::vector<ADOError> errors_;
};

class ProjectSessionTest : public ::testing::Test
{
  protected:
    ProjectSessionTest()
    {
        world.Connect = [this](const std::string& text, StringOrigin origin) { return Connect(text, origin); };
    }

    // Writes a project that names the data source, and opens it.
    bool OpenProjectOn(const std::string& connectionString, DataSourceOnOpen dataSource = DataSourceOnOpen::Connect)
    {
        ProjectSession writer(world.World);
        writer.New(DataSourceOnOpen::LeaveClosed);
        writer.Project().FullPath = "/shop.kzm";
        writer.Project().SetConnectionString(connectionString);
        return writer.Save() && session.Open("/shop.kzm", dataSource);
    }

    // Writes down the session's events from now on.
    void Listen()
    {
        connections.push_back(session.DocumentReplaced.Connect([&] { Log.emplace_back("document"); }));
        connections.push_back(session.DataSourceChanged.Connect([&] { Log.emplace_back("data source"); }));
        connections.push_back(
            session.FileUsed.Connect([&](const std::string& path) { Log.push_back("file " + path); }));
    }

    [[nodiscard]] std::unique_ptr<DataSourceConnection> Connect(const std::string& text, StringOrigin origin)
    {
        LoadingWhileConnecting = world.Loading.Current;
        Log.push_back((origin == StringOrigin::ProjectFile ? "open " : "open for the user ") + text);
        if (Fails)
            throw DataSourceError(data_source_error::kFailed, "ODBC", "[SQLite]connect failed");
        return std::make_unique<EmptyConnection>(text, Log);
    }

    Texts Log;
    bool Fails = false;
    Visibility LoadingWhileConnecting = Visibility::Shown;
    testing::MemoryApplication world;
    ProjectSession session{world.World};
    std::vector<Connection> connections;
};

TEST_F(ProjectSessionTest, OpeningAProjectOpensItsDataSource)
{
    EXPECT_TRUE(OpenProjectOn("PROVIDER=MSDASQL;DSN=Shop;"));
    EXPECT_EQ(Log, Texts{"open PROVIDER=MSDASQL;DSN=Shop;"});
    ASSERT_TRUE(session.ActiveConnection());
    EXPECT_EQ(session.ActiveConnection()->ConnectionString(), "PROVIDER=MSDASQL;DSN=Shop;");
}

TEST_F(ProjectSessionTest, AProjectWithoutADataSourceOpensNone)
{
    EXPECT_TRUE(OpenProjectOn(""));
    EXPECT_TRUE(Log.empty());
    EXPECT_FALSE(session.ActiveConnection());
    EXPECT_TRUE(world.Errors.Reported.empty());
}

TEST_F(ProjectSessionTest, ADataSourceStaysClosedOnRequest)
{
    EXPECT_TRUE(OpenProjectOn("DSN=Shop;", DataSourceOnOpen::LeaveClosed));
    session.Project().SetConnectionString("DSN=Other;");
    EXPECT_TRUE(Log.empty());
}

TEST_F(ProjectSessionTest, AnotherStringClosesTheOpenConnectionFirst)
{
    OpenProjectOn("DSN=Shop;");
    session.Project().SetConnectionString("DSN=Other;");
    EXPECT_EQ(Log, (Texts{"open DSN=Shop;", "close DSN=Shop;", "open DSN=Other;"}));
    EXPECT_EQ(session.ActiveConnection()->ConnectionString(), "DSN=Other;");
}

TEST_F(ProjectSessionTest, TheSameStringLeavesTheConnectionAsItIs)
{
    OpenProjectOn("DSN=Shop;");
    session.Project().SetConnectionString("DSN=Shop;");
    EXPECT_EQ(Log, Texts{"open DSN=Shop;"});
    EXPECT_TRUE(session.ActiveConnection());
}

TEST_F(ProjectSessionTest, AnEmptyStringClosesTheConnectionAndIsTold)
{
    OpenProjectOn("DSN=Shop;");
    int told = 0;
    const Connection listening = session.DataSourceChanged.Connect([&] { ++told; });
    session.Project().SetConnectionString("");
    EXPECT_EQ(Log, (Texts{"open DSN=Shop;", "close DSN=Shop;"}));
    EXPECT_FALSE(session.ActiveConnection());
    EXPECT_EQ(told, 1);
}

TEST_F(ProjectSessionTest, AStringThatIsOpenAlreadyIsNotOpenedAgain)
{
    OpenProjectOn("DSN=Shop;");
    world.State.ActiveConnection = Connect("DSN=Other;", StringOrigin::CommandLine);
    session.Project().SetConnectionString("DSN=Other;");
    EXPECT_EQ(Log, (Texts{"open DSN=Shop;", "open for the user DSN=Other;", "close DSN=Shop;"}));
    EXPECT_EQ(session.ActiveConnection()->ConnectionString(), "DSN=Other;");
}

TEST_F(ProjectSessionTest, AProjectWhoseDataSourceFailsStaysOpenWithoutOne)
{
    Fails = true;
    EXPECT_TRUE(OpenProjectOn("DSN=Shop;"));
    EXPECT_FALSE(session.ActiveConnection());
    EXPECT_EQ(session.Project().ConnectionString(), "DSN=Shop;");
    ASSERT_EQ(world.Errors.Reported.size(), 1U);
    EXPECT_EQ(world.Errors.Reported.front().Error.Description(), "[SQLite]connect failed");
    const ErrorPlace& place = world.Errors.Reported.front().Place;
    EXPECT_EQ(place.ModuleName, world.World.State.Generation.AppTitle);
    EXPECT_EQ(place.RoutineName, "Open Datasource");
    EXPECT_EQ(
        place.Hint,
        "If you would like to modify your DataSource, you may do so by selecting Project|Edit DataSource from the menu.");
}

TEST_F(ProjectSessionTest, AFailureLeavesNoConnectionOfBefore)
{
    OpenProjectOn("DSN=Shop;");
    Fails = true;
    session.Project().SetConnectionString("DSN=Other;");
    EXPECT_FALSE(session.ActiveConnection());
    EXPECT_EQ(Log, (Texts{"open DSN=Shop;", "close DSN=Shop;", "open DSN=Other;"}));
}

TEST_F(ProjectSessionTest, ANewProjectClosesTheConnection)
{
    OpenProjectOn("DSN=Shop;");
    session.New();
    EXPECT_FALSE(session.ActiveConnection());
    EXPECT_EQ(Log.back(), "close DSN=Shop;");
}

TEST_F(ProjectSessionTest, ANewProjectOpensTheDataSourceThatItIsGiven)
{
    session.New();
    EXPECT_TRUE(Log.empty());
    session.Project().SetConnectionString("DSN=Shop;");
    EXPECT_EQ(Log, Texts{"open DSN=Shop;"});
    EXPECT_TRUE(session.ActiveConnection());
}

TEST_F(ProjectSessionTest, ANewProjectLeavesItsDataSourceClosedOnRequest)
{
    session.New(DataSourceOnOpen::LeaveClosed);
    session.Project().SetConnectionString("DSN=Shop;");
    EXPECT_TRUE(Log.empty());
}

TEST_F(ProjectSessionTest, AUsersOwnStringIsOpenedAsSuch)
{
    OpenProjectOn("DSN=Shop;", DataSourceOnOpen::LeaveClosed);
    EXPECT_TRUE(session.ConnectDataSource(StringOrigin::CommandLine));
    EXPECT_EQ(Log, Texts{"open for the user DSN=Shop;"});
}

TEST_F(ProjectSessionTest, AFileThatCanNotBeOpenedLeavesTheDocumentAndItsConnection)
{
    OpenProjectOn("DSN=Shop;");
    session.Project().Author = "Somebody";
    const TTCProject* const project = &session.Project();
    world.Files.Files["/broken.kzm"] =
        "Veldrane Professional 2000 Data File\r\nBegin Project\r\nMTSEnabled\2perhaps\r\n"
        "ConnectionString\2DSN=Other;\r\nEnd Project\r\n";
    world.Files.Files["/other.kzm"] = "no project";
    Listen();
    for (const char* path : {"/gone.kzm", "/other.kzm", "/broken.kzm"})
        EXPECT_FALSE(session.Open(path, DataSourceOnOpen::Connect)) << path;
    EXPECT_EQ(&session.Project(), project);
    EXPECT_EQ(session.Project().Author, "Somebody");
    EXPECT_EQ(session.Project().FullPath, "/shop.kzm");
    ASSERT_TRUE(session.ActiveConnection());
    EXPECT_EQ(session.ActiveConnection()->ConnectionString(), "DSN=Shop;");
    EXPECT_EQ(Log, Texts{"open DSN=Shop;"});
    EXPECT_EQ(world.Messages.Asked().size(), 2U);
    EXPECT_EQ(world.Errors.Reported.size(), 1U);
    session.Project().SetConnectionString("DSN=Third;");
    EXPECT_EQ(session.ActiveConnection()->ConnectionString(), "DSN=Third;");
}

TEST_F(ProjectSessionTest, AnotherFileClosesTheConnectionOfTheFormer)
{
    OpenProjectOn("DSN=Shop;");
    EXPECT_TRUE(session.Open("/shop.kzm", DataSourceOnOpen::Connect));
    EXPECT_EQ(Log, (Texts{"open DSN=Shop;", "close DSN=Shop;", "open DSN=Shop;"}));
    world.Files.Files["/bare.kzm"] = "Veldrane Professional 2000 Data File\r\nBegin Project\r\nProjectName\2Bare\r\n"
                                     "End Project\r\nBegin Classes\r\nEnd Classes\r\n";
    EXPECT_TRUE(session.Open("/bare.kzm", DataSourceOnOpen::Connect));
    EXPECT_FALSE(session.ActiveConnection());
}

TEST_F(ProjectSessionTest, TellsOfADocumentThenOfItsDataSourceThenOfItsFile)
{
    Listen();
    OpenProjectOn("DSN=Shop;");
    EXPECT_EQ(Log, (Texts{"open DSN=Shop;", "document", "data source", "file /shop.kzm"}));
    Log.clear();
    session.New();
    EXPECT_EQ(Log, (Texts{"close DSN=Shop;", "document", "data source"}));
}

TEST_F(ProjectSessionTest, TellsOfEachDataSourceThatTheDocumentIsGiven)
{
    session.New();
    Listen();
    session.Project().SetConnectionString("DSN=Shop;");
    world.State.ActiveConnection = Connect("DSN=Other;", StringOrigin::CommandLine);
    session.Project().SetConnectionString("DSN=Other;");
    Fails = true;
    EXPECT_FALSE(session.ConnectDataSource(StringOrigin::ProjectFile));
    EXPECT_EQ(Log, (Texts{"open DSN=Shop;", "data source", "open for the user DSN=Other;", "close DSN=Shop;",
                          "data source", "close DSN=Other;", "open DSN=Other;", "data source"}));
}

TEST_F(ProjectSessionTest, ListenersFindTheNewDocumentInPlace)
{
    session.Project().FullPath = "/former.kzm";
    Texts seen;
    const auto note = [&] { seen.push_back(session.Project().FullPath + "|" + session.Project().ConnectionString()); };
    connections.push_back(session.DocumentReplaced.Connect(note));
    connections.push_back(session.DataSourceChanged.Connect(note));
    OpenProjectOn("DSN=Shop;");
    EXPECT_EQ(seen, (Texts{"/shop.kzm|DSN=Shop;", "/shop.kzm|DSN=Shop;"}));
}

TEST_F(ProjectSessionTest, AsksForTheFileToOpenInTheFolderOfTheFormer)
{
    OpenProjectOn("");
    world.Files.Folders.insert("/folder");
    world.Files.Files["/folder/shop.kzm"] = world.Files.Files["/shop.kzm"];
    world.Dialogs.Add("/folder/shop.kzm");
    EXPECT_TRUE(session.Open("", DataSourceOnOpen::Connect));
    EXPECT_EQ(world.Dialogs.AskedToOpen().at(0).StartFolder, "/");
    EXPECT_EQ(session.Project().FullPath, "/folder/shop.kzm");
}

TEST_F(ProjectSessionTest, ACancelledDialogLeavesTheDocument)
{
    OpenProjectOn("DSN=Shop;");
    Listen();
    EXPECT_FALSE(session.Open("", DataSourceOnOpen::Connect));
    EXPECT_FALSE(session.Save(SaveKind::SaveAs));
    EXPECT_EQ(session.Project().FullPath, "/shop.kzm");
    EXPECT_EQ(Log, Texts{"open DSN=Shop;"});
}

TEST_F(ProjectSessionTest, TellsUnderWhichFileTheDocumentIsSaved)
{
    OpenProjectOn("");
    Listen();
    world.Dialogs.Add("/copy.kzm");
    EXPECT_TRUE(session.Save());
    EXPECT_TRUE(session.Save(SaveKind::SaveAs));
    EXPECT_TRUE(session.Save());
    EXPECT_EQ(Log, (Texts{"file /shop.kzm", "file /copy.kzm", "file /copy.kzm"}));
}

TEST_F(ProjectSessionTest, TheLoadingFormMakesRoomWhileADataSourceOpens)
{
    OpenProjectOn("DSN=Shop;");
    EXPECT_EQ(LoadingWhileConnecting, Visibility::Hidden);
    EXPECT_EQ(world.Loading.Log, (Texts{"Opening Datasource Connection...Please wait", "shown", "Opening Project...",
                                        "hidden", "shown", "hidden"}));
    world.Loading.Log.clear();
    session.Project().SetConnectionString("DSN=Other;");
    EXPECT_TRUE(world.Loading.Log.empty());
}

} // namespace
} // namespace veldrane
