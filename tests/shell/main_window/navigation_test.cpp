#include "shell/main_window/navigation.h"

#include "preview/preview.h"
#include "project_fixture.h"
#include "support/manual_clock.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/recorded_processes.h"
#include "support/scripted_messages.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// "row caption icon" of each.
std::vector<std::string> Entries(const std::vector<TTCOutputs>& blocks)
{
    std::vector<std::string> entries;
    for (const NavigationRow& row : NavigationRows(blocks))
        entries.push_back(std::to_string(row.Row) + " " + row.Caption + " " + row.Icon);
    return entries;
}

// "caption icon" of each.
std::vector<std::string> Captions(const std::vector<TTCOutputs>& blocks)
{
    std::vector<std::string> captions;
    for (const NavigationRow& row : NavigationRows(blocks))
        captions.push_back(row.Caption + " | " + row.Icon);
    return captions;
}

std::vector<TTCOutputs> OneBlock(const std::vector<std::pair<std::string, LineClass>>& lines)
{
    std::vector<TTCOutputs> blocks;
    TTCOutputs& block = blocks.emplace_back();
    for (const auto& [text, lineClass] : lines)
        block.Add(text, lineClass);
    return blocks;
}

TEST(Navigation, ListsTheRoutinesAndEventsThatATextDeclares)
{
    EXPECT_THAT(Entries(OneBlock({{"Option Explicit", LineClass::Head},
                                  {"Public Event RecordAdded(anOrder as Order)", LineClass::MarkPlusEvent},
                                  {"Event Shipped()", LineClass::MarkEvent},
                                  {"Private mlngID as Long", LineClass::Code},
                                  {"Public Property Get ID() as Long", LineClass::HeadProperty},
                                  {"    ID = mlngID", LineClass::Code},
                                  {"End Property", LineClass::Head},
                                  {"Friend Property Let ID(ByVal vData as Long)", LineClass::HeadProperty},
                                  {"Public Property Set Lines(ByRef vData as Lines)", LineClass::HeadProperty},
                                  {"Public Function Add() as Long", LineClass::HeadPlusMethod},
                                  {"    Exit Function", LineClass::Code},
                                  {"End Function", LineClass::Head},
                                  {"Private Sub Class_Initialize()", LineClass::HeadSub},
                                  {"Public Sub Ship(ByVal When as Date)", LineClass::Head}})),
                ElementsAre("1 RecordAdded PlusEvent", "2 Shipped Event", "4 ID (Get) Property", "7 ID (Let) Property",
                            "8 Lines (Set) Property", "9 Add PlusMethod", "12 Class_Initialize Sub", "13 Ship Sub"));
}

TEST(Navigation, CountsTheRowsOfAllBlocks)
{
    std::vector<TTCOutputs> blocks = OneBlock({{"Class Name: Order", LineClass::Head}, {"", LineClass::Code}});
    blocks.push_back(std::move(OneBlock({{"Private Sub Class_Initialize()", LineClass::HeadSub}}).front()));
    EXPECT_THAT(Entries(blocks), ElementsAre("2 Class_Initialize Sub"));
}

TEST(Navigation, ALongDeclarationIsOneEntry)
{
    TTCOutputs lines;
    testing::ScriptedMessages messages;
    std::string arguments;
    for (int i = 0; i < 60; ++i)
        arguments += "ByVal Argument" + std::to_string(i) + " as String, ";
    AddSplitLine("Public Function GetOrders(" + arguments + ") as ADODB.Recordset", lines, LineClass::HeadSP, messages);
    ASSERT_GT(lines.Count(), 2U);
    std::vector<TTCOutputs> blocks;
    blocks.push_back(std::move(lines));
    EXPECT_THAT(Entries(blocks), ElementsAre("0 GetOrders SP"));
}

TEST(Navigation, OfNothingIsEmpty)
{
    EXPECT_THAT(Entries({}), IsEmpty());
}

// A preview writes no file.
class NoConflicts : public ConflictResolver
{
  public:
    ConflictAnswer ResolveConflict(const FileConflict& /*conflict*/) override { return ConflictAnswer::Leave; }
};

class NavigationOf : public testing::ProjectFixture
{
  protected:
    [[nodiscard]] std::vector<std::string> Preview(NodeType type, KZMClass* item = nullptr)
    {
        CodeGeneration generation(Project, {messages, errors, files, clock, processes, conflicts});
        const auto text = PreviewOf({.Type = type, .Class = item}, {Project, Classes, generation, errors});
        return Captions(text->Blocks);
    }

    testing::MemoryFileSystem files;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    testing::ManualClock clock;
    testing::RecordedProcesses processes;
    NoConflicts conflicts;
};

TEST_F(NavigationOf, AClassListsItsMembers)
{
    const auto item = AddClass({.Name = "Clerk", .Table = ""});
    item->TTCProperties.Add({.AddToClass = true,
                             .PropertyName = "City",
                             .DataType = "String",
                             .Scope = "Public",
                             .PropertyGet = true,
                             .PropertyLetSet = true},
                            "City");
    EXPECT_THAT(Preview(NodeType::Class, item.get()),
                ElementsAre("Class Name: Clerk | Class", "City (Get) | Property", "City (Let) | Property",
                            "Class_Initialize | Sub", "Class_Terminate | Sub"));
}

TEST_F(NavigationOf, ASummaryListsItsHeadings)
{
    AddClass({.Name = "Customer", .Table = "Customers"});
    AddClass({.Name = "Order", .Table = "Orders"});
    EXPECT_THAT(Preview(NodeType::ParentClasses),
                ElementsAre("Class Name:  Customer | Class", "Class Name:  Order | Class"));
    EXPECT_THAT(Preview(NodeType::ProjectSummary),
                ElementsAre("Project Summary | Root", "Code Generation Settings | Project", "File Prefixes | File",
                            "Variable Prefixes | Variables",
                            "Microsoft Component Services Settings (MTS Settings) | MTS",
                            "Form Generation Settings | Form", "DataSource Connection Information: | DSN",
                            "AutoSave Information | Save", "Class Members | Class"));
}

} // namespace
} // namespace veldrane
