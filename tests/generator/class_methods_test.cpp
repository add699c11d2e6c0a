#include "generation_fixture.h"

namespace veldrane::testing {
namespace {

class ClassMethods : public GenerationTest
{
  protected:
    std::string Methods() { return Lines(generation.WriteClassMethods(order, classes)); }

    // Without the two routines that every class begins with.
    std::string OwnMethods()
    {
        const std::string all = Methods();
        const std::string lastOfLifecycle = "head|End Sub|\n";
        const std::size_t first = all.find(lastOfLifecycle);
        const std::size_t second = all.find(lastOfLifecycle, first + 1);
        return "\n" + all.substr(second + lastOfLifecycle.size());
    }

    // How often the built-in Clear stands in the text.
    static int ClearsIn(const std::string& lines)
    {
        const std::string_view kFirstLine = "head:PlusMethod|Public Sub Clear()|";
        int found = 0;
        for (std::size_t at = lines.find(kFirstLine); at != std::string::npos; at = lines.find(kFirstLine, at + 1))
            ++found;
        return found;
    }

    KZMClass& order = AddClass("Order");
};

TEST_F(ClassMethods, OfAClassWithoutClearLeaveItsBothEndsEmpty)
{
    EXPECT_EQ(Methods(), R"(
head:Sub|Private Sub Class_Initialize()|
head|End Sub|
head:Sub|Private Sub Class_Terminate()|
head|End Sub|
)");
}

TEST_F(ClassMethods, MakeChildrenAndClearAtBothEnds)
{
    AddClass("Line", "Order");
    AddBuiltInProperty(order, "FormatProperties");
    AddMethod(order, "Clear", true);
    EXPECT_TRUE(Methods().starts_with(R"(
head:Sub|Private Sub Class_Initialize()|
code|    Set mcolLines = New Lines|
code|    mblnFormatProperties = True|
code|    Clear|
head|End Sub|
head:Sub|Private Sub Class_Terminate()|
code|    Set mcolLines = Nothing|
code|    Clear|
head|End Sub|
)"));
}

TEST_F(ClassMethods, HaveNoBeginAndEndWhereThereAreNoClasses)
{
    KZMClass alone;
    alone.ClassName = "Alone";
    EXPECT_EQ(Lines(generation.WriteClassMethods(alone, KZMClasses{})), "\n");
}

TEST_F(ClassMethods, OfTheUserAreStubs)
{
    AddMethod(order, "Ship", false).DefaultMethod = true;
    TTCMethod& weigh = AddMethod(order, "Weigh", false);
    weigh.ReturnDataType = "Double";
    weigh.Scope = "Friend";
    weigh.Arguments.Add("", 1, true, "Unit", "String", true, "\"kg\"", false, "Unit");
    EXPECT_EQ(OwnMethods(), R"(
head|Public Sub Ship()|
hidden|Attribute Ship.VB_UserMemId = 0|
head|End Sub|
head|Friend Function Weigh(Optional ByVal Unit as String="kg") as Double|
head|End Function|
)");
}

TEST_F(ClassMethods, ThatCallAStoredProcedureAreNoStubs)
{
    TTCMethod& ship = AddMethod(order, "Ship", false);
    ship.MethodIsSP = true;
    ship.StoredProcedure = std::make_shared<SP>();
    EXPECT_EQ(OwnMethods().find("Sub Ship"), std::string::npos);
}

TEST_F(ClassMethods, OfAnUnknownBuiltInNameAreNone)
{
    AddMethod(order, "clear", true);
    EXPECT_EQ(OwnMethods(), "\n");
}

TEST_F(ClassMethods, AddAMissingClearForItsCallersAndWriteItTwice)
{
    const std::vector<std::pair<std::string, std::string>> callers{
        {"Delete", "The Delete Method requires the clear method which was not included in the class definition. It has been added."},
        {"Retrieve", "The Retrieve Method requires the clear method which was not included in the class definition. It has been added."},
    };
    for (const auto& [name, message] : callers) {
        generation.ErrorText.clear();
        AddMethod(order, name, true);
        EXPECT_EQ(ClearsIn(OwnMethods()), 2) << name;
        EXPECT_EQ(generation.ErrorText, message);
        const auto clear = order.TTCMethods.Item(2);
        ASSERT_NE(clear, nullptr);
        EXPECT_EQ(clear->MethodName, "Clear");
        EXPECT_TRUE(clear->PlusMethod);
        EXPECT_EQ(clear->Scope, "Public");
        order.TTCMethods.Remove("Clear");
        order.TTCMethods.Remove(name);
    }
}

TEST_F(ClassMethods, AddAMissingClearOnceForAllItsCallersOfAClass)
{
    AddMethod(order, "Retrieve", true);
    AddMethod(order, "Delete", true);
    EXPECT_EQ(ClearsIn(OwnMethods()), 2);
    EXPECT_EQ(order.TTCMethods.Count(), 3U);
    EXPECT_EQ(generation.ErrorText, "The Retrieve Method requires the clear method which was not included in the class definition. It has been added.");
}

TEST_F(ClassMethods, GatherTheMessagesOfAllClasses)
{
    AddMethod(order, "Delete", true);
    KZMClass& customer = AddClass("Customer");
    AddMethod(customer, "Retrieve", true);
    static_cast<void>(generation.WriteClassMethods(order, classes));
    static_cast<void>(generation.WriteClassMethods(customer, classes));
    EXPECT_EQ(generation.ErrorText, "The Delete Method requires the clear method which was not included in the class definition. It has been added."
                                    "The Retrieve Method requires the clear method which was not included in the class definition. It has been added.");
}

TEST_F(ClassMethods, AddNoClearForTheUsersOwnRetrieveAndDelete)
{
    AddMethod(order, "Retrieve", false);
    AddMethod(order, "Delete", false);
    EXPECT_EQ(OwnMethods(), R"(
head|Public Sub Retrieve()|
head|End Sub|
head|Public Sub Delete()|
head|End Sub|
)");
    EXPECT_EQ(generation.ErrorText, "");
}

TEST_F(ClassMethods, KeepTheAddedClearForTheNextTime)
{
    AddMethod(order, "Retrieve", true);
    static_cast<void>(OwnMethods());
    generation.ErrorText.clear();
    EXPECT_EQ(ClearsIn(OwnMethods()), 1);
    EXPECT_EQ(generation.ErrorText, "");
}

TEST_F(ClassMethods, AreContentWithTheUsersOwnClear)
{
    AddMethod(order, "Retrieve", true);
    AddMethod(order, "Clear", false);
    EXPECT_TRUE(OwnMethods().ends_with("head|Public Sub Clear()|\nhead|End Sub|\n"));
    EXPECT_EQ(ClearsIn(OwnMethods()), 0);
    EXPECT_EQ(generation.ErrorText, "");
}

TEST_F(ClassMethods, ClearPropertiesTheirLookupFieldsChildrenAndKeys)
{
    AddMethod(order, "Clear", true);
    AddClass("Line", "Order");
    AddLookupField(AddProperty(order, "No", "Long"), "NoText", "String");
    AddLookupField(AddProperty(order, "Owner", "Customer"), "Face", "Picture");
    AddProperty(order, "RowID", "String").FieldDataType = "GUID";
    AddProperty(order, "Unused", "Long").AddToClass = false;
    AddKey(order, key_type::kPrimaryKey, {"No", "Owner", "RowID"});
    order.RetrieveByPrimaryKey = true;
    EXPECT_EQ(OwnMethods(), R"(
head:PlusMethod|Public Sub Clear()|
code|    mlngNo = 0|
code|    mstrNoText = ""|
code|    Set mothOwner = Nothing|
code|    Set mothOwner = New Customer|
code|    Set mothFace = Nothing|
code|    Set mothFace = New Picture|
code|    mstrRowID = "{00000000-0000-0000-0000-000000000000}"|
code|    Set mcolLines = Nothing|
code|    Set mcolLines = New Lines|
code|    pushNo=0|
code|    SET pushOwner=Object|
code|    pushRowID="{00000000-0000-0000-0000-000000000000}"|
head|End Sub|
)");
}

TEST_F(ClassMethods, ClearTheFlagsOfTrackedChangesDownToTheChildren)
{
    project.TrackPropertyChanges = true;
    AddMethod(order, "Clear", true);
    AddClass("Line", "Order");
    AddBuiltInProperty(order, "Modified");
    AddProperty(order, "No", "Long").AddToClass = false;
    AddProperty(order, "Total", "Long").PropertyLetSet = false;
    EXPECT_TRUE(OwnMethods().ends_with(R"(
head:Sub|Friend Sub ClearPropertyTracking(Optional ByVal IncludeChildren as Boolean = False)|
code|    Dim qLine as Line|
code|    mblnzNo = False|
code|    If IncludeChildren then|
code|        For Each qLine in mcolLines|
code|            qLine.ClearPropertyTracking IncludeChildren|
code|        Next|
code|    End If|
code|    mblnModified = False|
head|End Sub|
)"));
}

TEST_F(ClassMethods, CloneValuesObjectsAndKeys)
{
    AddMethod(order, "Clone", true);
    AddLookupField(AddProperty(order, "No", "Long"), "NoText", "String");
    AddLookupField(AddProperty(order, "Owner", "Customer"), "Face", "Picture");
    AddKey(order, key_type::kPrimaryKey, {"No", "Owner"});
    order.RetrieveByPrimaryKey = true;
    EXPECT_EQ(OwnMethods(), R"(
head:PlusMethod|Public Function Clone() as Order|
code|    Dim c as New Order|
code||
code|    c.No = mlngNo|
code|    c.NoText = mstrNoText|
code|    Set c.Owner = mothOwner|
code|    c.SaveNo=pushNo|
code|    SET c.SaveOwner=pushOwner|
code|    Set Clone = c|
head|End Function|
)");
}

TEST_F(ClassMethods, LeaveTheKeyAloneThatTheClassIsNotFoundBy)
{
    AddProperty(order, "No", "Long");
    AddKey(order, key_type::kPrimaryKey, {"No"});
    for (const std::string_view method : {"Clear", "Clone"}) {
        AddMethod(order, std::string(method), true);
        EXPECT_EQ(OwnMethods().find("push"), std::string::npos) << method;
        order.TTCMethods.Remove(method);
    }
}

TEST_F(ClassMethods, ClearAndCloneEveryPropertyOnAColumnOfTheKey)
{
    AddProperty(order, "No", "Long");
    AddProperty(order, "SameNo", "String").FieldName = "No";
    AddKey(order, key_type::kPrimaryKey, {"No"});
    order.RetrieveByPrimaryKey = true;
    AddMethod(order, "Clear", true);
    AddMethod(order, "Clone", true);
    const std::string methods = OwnMethods();
    EXPECT_NE(methods.find("code|    pushNo=0|\ncode|    pushSameNo=\"\"|\nhead|End Sub|\n"), std::string::npos) << methods;
    EXPECT_NE(methods.find("code|    c.SaveNo=pushNo|\ncode|    c.SaveSameNo=pushSameNo|\ncode|    Set Clone = c|\n"), std::string::npos) << methods;
}

TEST_F(ClassMethods, CloneChildrenUnderTheirKeys)
{
    AddMethod(order, "Clone", true);
    order.TableName = "Orders";
    KZMClass& line = AddClass("Line", "Order");
    AddProperty(line, "No", "Long");
    AddProperty(line, "Year", "Long");
    AddKey(line, key_type::kPrimaryKey, {"No", "Year"});
    line.RetrieveByPrimaryKey = true;
    EXPECT_EQ(OwnMethods(), R"(
head:PlusMethod|Public Function Clone() as Order|
code|    Dim c as New Order|
code|    Dim aLine as Line|
code|    Dim NewLine as Line|
code||
code|    For Each aLine in mcolLines|
code|        Set NewLine = Nothing|
code|        Set NewLine = New Line|
code|        Set NewLine = aLine.Clone|
code|        c.Lines.AddExisting NewLine, ":" & NewLine.No & ":" & NewLine.Year|
code|    Next|
code|    Set Clone = c|
head|End Function|
)");
}

} // namespace
} // namespace veldrane::testing
