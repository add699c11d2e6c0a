// Jet files through the whole program.

#include "opened_project.h"
#include "program.h"
#include "support/sample_data.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::ElementsAre;
using testing::Ended;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::OpenedProject;
using testing::Program;
using ::testing::SizeIs;
using ::testing::StartsWith;

std::string ConnectionTo(const std::string& path, const std::string& more = "")
{
    return "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + path + ";" + more;
}

const std::string kPassword = "Jet OLEDB:Database Password=geheim ß;";

// Sample files with what they need to be opened.
struct Sample
{
    const char* Name;
    std::size_t Tables; // counted in the facts of the file
    const char* More = "";
};

void PrintTo(const Sample& sample, std::ostream* stream)
{
    *stream << sample.Name;
}

const Sample kSamples[] = {
    {"adox_jet4", 0},
    {"bigIndexTestV2000", 1},
    {"compIndexTestV2003", 1},
    {"delColTestV2003", 1},
    {"empty", 0},
    {"fixedNumericTestV2003", 1},
    {"indexTestV1997", 3},
    {"indexTestV2003", 3},
    {"indexTestV2003-encoded", 3},
    {"indexTestV2003-password", 3, kPassword.c_str()},
    {"queryTestV1997", 3},
    {"queryTestV2003", 3},
    {"test2V1997", 1},
    {"testIndexPropertiesV2003", 6},
    {"testPromotionV2000", 1},
    {"testUnicodeCompV2003", 1},
    {"testV1997", 4},
};

struct DefinedClass
{
    std::string Name;
    std::string TableName;
    std::vector<std::string> Fields;
};

class JetFiles : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        if (folder_.empty())
            GTEST_SKIP() << testing::kNoSampleData;
    }

    [[nodiscard]] std::string ConnectionToSample(const Sample& sample) const
    {
        return ConnectionTo(folder_ + sample.Name + ".mdb", sample.More);
    }

    [[nodiscard]] std::string ConnectionToSample(const char* name) const
    {
        return ConnectionToSample(Sample{.Name = name, .Tables = 0});
    }

    [[nodiscard]] Ended Define(const std::string& connection, const std::vector<std::string>& more) const
    {
        std::vector<std::string> arguments{"define", Project, "--connection", connection};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Workspace.Run(arguments);
    }

    // The classes of the project that have a table.
    [[nodiscard]] std::vector<DefinedClass> ClassesOfTables() const
    {
        const OpenedProject opened(Project, Workspace.ReadFile("Sample.kzm"));
        std::vector<DefinedClass> classes;
        for (const KZMClass& item : opened.Classes) {
            if (item.TableName.empty())
                continue;
            DefinedClass& defined = classes.emplace_back();
            defined.Name = item.ClassName;
            defined.TableName = item.TableName;
            for (const TTCProperty& property : item.TTCProperties)
                if (!property.FieldName.empty())
                    defined.Fields.push_back(property.FieldName);
        }
        return classes;
    }

    Program Workspace;
    const std::string Project = Workspace.Path("Sample.kzm");

  private:
    std::string folder_ = testing::SampleDataFolder("jet");
};

class EachJetFile : public JetFiles, public ::testing::WithParamInterface<Sample>
{};

TEST_P(EachJetFile, IsListedDefinedAndGenerated)
{
    const std::string connection = ConnectionToSample(GetParam());
    const Ended listed = Workspace.Run({"tables", "--connection", connection});
    EXPECT_EQ(listed.ExitCode, 0) << listed.ErrorOutput;
    EXPECT_EQ(listed.ErrorOutput, "");
    EXPECT_THAT(listed.Output, AllOf(Not(HasSubstr("MSys")), Not(HasSubstr("LINK"))));

    const Ended defined = Define(connection, {"--all", "--collections", "--set", "VBProjectName=Sample"});
    EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    const std::vector<DefinedClass> classes = ClassesOfTables();
    EXPECT_THAT(classes, SizeIs(GetParam().Tables));
    for (const DefinedClass& item : classes)
        EXPECT_THAT(listed.Output, HasSubstr("TABLE\t" + item.TableName + "\n"));

    fs::create_directory(Workspace.Path("out"));
    const Ended generated = Workspace.Run({"generate", Project, Workspace.Path("out")});
    EXPECT_EQ(generated.ExitCode, 0) << generated.ErrorOutput;
    for (const DefinedClass& item : classes)
        EXPECT_TRUE(fs::exists(Workspace.Path("out/" + item.Name + ".cls"))) << item.Name;
}

INSTANTIATE_TEST_SUITE_P(SampleFiles, EachJetFile, ::testing::ValuesIn(kSamples), [](const auto& sample) {
    std::string word = sample.param.Name;
    std::replace(word.begin(), word.end(), '-', '_');
    return word;
});

TEST_F(JetFiles, TablesViewsAndProceduresAreListed)
{
    EXPECT_EQ(Workspace.Run({"tables", "--connection", ConnectionToSample("queryTestV1997")}).Output,
              "TABLE\tTable1\nTABLE\tTable2\nTABLE\tTable3\nVIEW\tSelectQuery\nVIEW\tUnionQuery\n"
              "PROCEDURE\tAppendQuery\nPROCEDURE\tCrosstabQuery\nPROCEDURE\tDataDefinitionQuery\n"
              "PROCEDURE\tDeleteQuery\nPROCEDURE\tMakeTableQuery\nPROCEDURE\tPassthroughQuery\n"
              "PROCEDURE\tUpdateQuery\n");
}

TEST_F(JetFiles, AViewGivesAClassWithItsColumns)
{
    const Ended defined = Define(ConnectionToSample("queryTestV2003"), {"--table", "selectquery"});
    EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    const std::vector<DefinedClass> classes = ClassesOfTables();
    ASSERT_THAT(classes, SizeIs(1));
    EXPECT_EQ(classes[0].TableName, "SelectQuery");
    EXPECT_THAT(classes[0].Fields,
                ElementsAre("Table1.col1", "Table1.col2", "Table1.col3", "Table2.col1", "Table2.col2", "Table3.col3"));
}

TEST_F(JetFiles, AViewWhoseColumnsNobodyCanTellIsLeftOut)
{
    const Ended defined = Define(ConnectionToSample("queryTestV2003"), {"--table", "UnionQuery"});
    EXPECT_EQ(defined.ExitCode, 1);
    EXPECT_THAT(defined.ErrorOutput, AllOf(HasSubstr("The columns of \"UnionQuery\" can't be told without running it"),
                                           HasSubstr("veldrane: 'UnionQuery' is left out.")));
}

TEST_F(JetFiles, AProcedureIsAMethodWithoutParameters)
{
    const Ended defined = Define(ConnectionToSample("queryTestV2003"), {"--procedure", "UpdateQuery"});
    EXPECT_THAT(defined.ErrorOutput,
                HasSubstr("Parameters are not supported by the OLE DB Provider you are currently using."));
    EXPECT_THAT(Workspace.ReadFile("Sample.kzm"), HasSubstr("UpdateQuery"));
}

TEST_F(JetFiles, AProjectOpensItsOwnFileAgain)
{
    EXPECT_EQ(Define(ConnectionToSample("indexTestV2003"), {"--table", "Table1"}).ExitCode, 0);
    const Ended again = Workspace.Run({"define", Project, "--table", "Table2"});
    EXPECT_EQ(again.ExitCode, 0) << again.ErrorOutput;
    EXPECT_THAT(ClassesOfTables(), SizeIs(2));
}

TEST_F(JetFiles, APasswordThatIsMissingIsAskedForByTheNameOfItsKey)
{
    const Ended listed = Workspace.Run({"tables", "--connection", ConnectionToSample("indexTestV2003-password")});
    EXPECT_EQ(listed.ExitCode, 1);
    EXPECT_EQ(listed.Output, "");
    EXPECT_THAT(listed.ErrorOutput, HasSubstr("wants a password: give it as \"Jet OLEDB:Database Password\""));
}

TEST_F(JetFiles, ADamagedFileIsRefusedAndNoProjectIsMade)
{
    const Ended defined = Define(ConnectionToSample("test2V1997-damaged-hang"), {"--all"});
    EXPECT_EQ(defined.ExitCode, 1);
    EXPECT_THAT(defined.ErrorOutput, HasSubstr("test2V1997-damaged-hang.mdb\" is damaged"));
    EXPECT_FALSE(fs::exists(Project));
}

struct BadJetFile : ::testing::Test
{
    Program Workspace;

    [[nodiscard]] std::string FailureOn(const std::string& connection) const
    {
        const Ended ended = Workspace.Run({"tables", "--connection", connection});
        EXPECT_EQ(ended.ExitCode, 1);
        EXPECT_EQ(ended.Output, "");
        return ended.ErrorOutput.substr(0, ended.ErrorOutput.find('\n'));
    }
};

TEST_F(BadJetFile, IsNamedWithTheWayOut)
{
    const std::string missing = Workspace.Path("missing.mdb");
    EXPECT_EQ(FailureOn(ConnectionTo(missing)),
              "veldrane: There is no file \"" + missing + "\": check \"Data Source\" in the connection string.");
    Workspace.WriteFile("text.mdb", "no database\n");
    EXPECT_THAT(FailureOn(ConnectionTo(Workspace.Path("text.mdb"))),
                StartsWith("veldrane: Unrecognized database format: "));
    EXPECT_THAT(FailureOn(ConnectionTo(Workspace.Path(""))), HasSubstr("is not a file"));
}

TEST_F(BadJetFile, OfAnotherFormatIsRefusedByTheKey)
{
    EXPECT_THAT(FailureOn(ConnectionTo("a.xls", "Extended Properties=Excel 8.0;")),
                HasSubstr("take \"Extended Properties\" out of the connection string."));
}

TEST_F(BadJetFile, LeavesTheTerminalInPeace)
{
    Workspace.WriteFile("red\x1b[31m.mdb", "");
    EXPECT_THAT(FailureOn("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + Workspace.Path("red\x1b[31m.mdb") + ";"),
                Not(HasSubstr("\x1b")));
}

} // namespace
} // namespace veldrane
