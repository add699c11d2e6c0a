#include "generation_fixture.h"

#include <algorithm>

namespace veldrane::testing {
namespace {

using ClassHeader = GenerationTest;

// The lines that hold the text.
std::string LinesWith(const TTCOutputs& lines, std::string_view text)
{
    std::string found;
    for (const TTCOutput& line : lines)
        if (line.LineText.find(text) != std::string::npos)
            found += line.LineText + "\n";
    return found;
}

TEST_F(ClassHeader, OfAPlainClass)
{
    KZMClass& customer = AddClass("Customer");
    project.ClassPrefix = "cls";
    EXPECT_EQ(Lines(generation.WriteClassHeader(customer, classes)), R"(
hidden|VERSION 1.0 CLASS|
hidden|BEGIN|
hidden|  MultiUse = -1  'True|
hidden|  Persistable = 0  'NotPersistable|
hidden|  DataBindingBehavior = 0  'vbNone|
hidden|  DataSourceBehavior = 0   'vbNone|
hidden|  MTSTransactionMode = 0   'NotAnMTSObject|
hidden|END|
hidden|Attribute VB_Name = "Customer"|
hidden|Attribute VB_GlobalNameSpace = False|
hidden|Attribute VB_Creatable = False|
hidden|Attribute VB_PredeclaredId = False|
hidden|Attribute VB_Exposed = True|
hidden|Attribute VB_Ext_KEY = "SavedWithClassBuilder", "Yes"|
hidden|Attribute VB_Ext_KEY = "SavedWithClassBuilder6", "Yes"|
hidden|Attribute VB_Ext_KEY = "GeneratedByVeldraneKit" ,"Yes"|
hidden|Attribute VB_Ext_KEY = "Top_Level", "Yes"|
head|Option Explicit|
)");
}

TEST_F(ClassHeader, ForVisualBasic5LeavesOutWhatOnly6Knows)
{
    KZMClass& customer = AddClass("Customer");
    project.VBVersion = visual_basic_version::kVisualBasic5;
    const TTCOutputs lines = generation.WriteClassHeader(customer, classes);
    EXPECT_EQ(lines.Item(3).LineText, "  MultiUse = -1  'True");
    EXPECT_EQ(lines.Item(4).LineText, "END");
}

TEST_F(ClassHeader, NumbersTheChildrenFromZeroByTheirCollections)
{
    KZMClass& order = AddClass("Order");
    AddClass("Line", "Order");
    AddClass("Stranger");
    AddClass("Note", "Order");
    EXPECT_EQ(LinesWith(generation.WriteClassHeader(order, classes), "Member"), "Attribute VB_Ext_KEY = \"Member0\" ,\"Lines\"\nAttribute VB_Ext_KEY = \"Member1\" ,\"Notes\"\n");
}

TEST_F(ClassHeader, OfAClassWithoutChildrenNamesNone)
{
    EXPECT_EQ(LinesWith(generation.WriteClassHeader(AddClass("Order"), classes), "Member"), "");
}

TEST_F(ClassHeader, OfAChildIsNotTopLevel)
{
    EXPECT_EQ(LinesWith(generation.WriteClassHeader(AddClass("Line", "Order"), classes), "Top_Level"), "Attribute VB_Ext_KEY = \"Top_Level\", \"No\"\n");
}

TEST_F(ClassHeader, CreatesWhatHasCloneAndChildrenWithoutACollection)
{
    struct Case
    {
        std::string Parent;
        bool CreateCollection;
        bool HasClone;
        std::string Creatable;
    };
    const std::vector<Case> cases{
        {"", false, false, "False"}, {"", true, true, "True"}, {"Order", false, false, "True"}, {"Order", false, true, "True"}, {"Order", true, false, "False"}, {"Order", true, true, "True"},
    };
    for (const Case& one : cases) {
        KZMClass& line = AddClass("Line", one.Parent);
        line.CreateCollection = one.CreateCollection;
        if (one.HasClone)
            AddMethod(line, "Clone", true);
        EXPECT_EQ(LinesWith(generation.WriteClassHeader(line, classes), "VB_Creatable"), "Attribute VB_Creatable = " + one.Creatable + "\n") << one.Parent << one.CreateCollection << one.HasClone;
        classes.Remove("Line");
    }
}

TEST_F(ClassHeader, TellsTheModuleTextWithoutItsMethods)
{
    KZMClass& customer = AddClass("Customer");
    AddMethod(customer, "Clone", true);
    AddProperty(customer, "Name", "String");
    const std::string text = generation.GeneratedClassModuleText(customer, classes);
    EXPECT_TRUE(text.starts_with("VERSION 1.0 CLASS\r\nBEGIN\r\n"));
    EXPECT_NE(text.find("Option Explicit\r\nPrivate mstrName as String\r\nPublic Property Get Name() as String\r\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("End Property\r\n"));
    EXPECT_EQ(text.find("Function Clone"), std::string::npos);
}

} // namespace
} // namespace veldrane::testing
