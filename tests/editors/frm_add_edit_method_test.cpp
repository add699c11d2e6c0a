#include "editors/frm_add_edit_method.h"

#include "editors/frm_add_edit_argument.h"
#include "member_fixture.h"

namespace veldrane {
namespace {

using testing::Texts;

class AddEditMethodTest : public testing::MemberTest
{
  protected:
    // A method with an argument of each kind, between two others.
    TTCMethod& AddPayMethod()
    {
        AddOwnMethod("First");
        TTCMethod& method = AddOwnMethod("Pay");
        method.ReturnDataType = "Currency";
        method.Scope = "Friend";
        StoreArguments({Argument("anAmount", "Currency"), OptionalArgument("aNote", "String")}, method.Arguments);
        AddOwnMethod("Last");
        return method;
    }

    void AnswerArgument(const std::string& name)
    {
        dialogs.Argument = [name](frmAddEditArgument& form) {
            form.txtArgumentName = name;
            return form.cmdOK_Click();
        };
    }
};

TEST_F(AddEditMethodTest, TheTitleNamesTheMethod)
{
    AddPayMethod();
    EXPECT_EQ(frmAddEditMethod(surroundings).Caption(), "Add New Method");
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.txtMethodName = "Other";
    EXPECT_EQ(form.Caption(), "Edit Pay Method");
}

TEST_F(AddEditMethodTest, TheControlsShowTheMethod)
{
    AddPayMethod().DefaultMethod = true;
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    EXPECT_EQ(form.txtMethodName, "Pay");
    EXPECT_EQ(form.cmbReturnType, ":4");
    EXPECT_EQ(form.cmbScope, "Friend");
    EXPECT_TRUE(form.chkDefault());
    EXPECT_EQ(form.lstArguments().Signature(), "anAmount as Currency, Optional aNote as String");
    EXPECT_EQ(form.ReturnTypes().front().Text, "(None)");
}

TEST_F(AddEditMethodTest, ANewMethodIsAPublicSub)
{
    frmAddEditMethod form(surroundings);
    EXPECT_EQ(form.cmbReturnType, ":0");
    EXPECT_EQ(form.cmbScope, "Public");
    form.txtMethodName = "Pay";
    AnswerArgument("anAmount");
    form.lstArguments().New();
    ASSERT_TRUE(form.cmdOK_Click());
    const auto method = item.TTCMethods.Item("Pay");
    ASSERT_NE(method, nullptr);
    EXPECT_EQ(method->ReturnDataType, "");
    EXPECT_EQ(method->Scope, "Public");
    EXPECT_FALSE(method->PlusMethod);
    EXPECT_EQ(method->Arguments.Item("anAmount")->Index, 1);
    EXPECT_TRUE(item.TTCMembers.Contains("Pay"));
    EXPECT_EQ(item.TTCMethods.LastIndex(), "Pay");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditMethodTest, OkChangesTheMethodWhereItStands)
{
    AddPayMethod();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("pay"));
    form.cmbReturnType = ":9";
    form.cmbScope = "Private";
    AnswerArgument("aRemark");
    form.lstArguments().Select({1});
    form.lstArguments().Edit();
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), (Texts{"First", "Pay", "Last"}));
    const auto method = item.TTCMethods.Item("Pay");
    EXPECT_EQ(method->ReturnDataType, "Boolean");
    EXPECT_EQ(method->Scope, "Private");
    EXPECT_EQ(method->Arguments.Count(), 2U);
    EXPECT_EQ(method->Arguments.Item("aRemark")->Index, 2);
}

TEST_F(AddEditMethodTest, ARenamedMethodKeepsItsPlaceAndFreesItsName)
{
    AddPayMethod();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.txtMethodName = "Settle";
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), (Texts{"First", "Settle", "Last"}));
    EXPECT_EQ(item.TTCMethods.Item("Settle")->MethodName, "Settle");
    EXPECT_FALSE(item.TTCMethods.Contains("Pay"));
    EXPECT_FALSE(item.TTCMembers.Contains("Pay"));
    EXPECT_TRUE(item.TTCMembers.Contains("Settle"));
}

// A file may have two members of one name.
TEST_F(AddEditMethodTest, ANameThatALookupFieldHasTooStaysInTheRegister)
{
    AddPayMethod();
    AddProperty(item, "CustomerID", "Long").TTCLookupFields.Add("Pay", "Currency", "Pay", "Pay");
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.txtMethodName = "Settle";
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(item.TTCMembers.Contains("Pay"));
    EXPECT_TRUE(item.TTCMembers.Contains("Settle"));
}

TEST_F(AddEditMethodTest, TheLettersOfANameCanChangeTheirCase)
{
    AddPayMethod();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.txtMethodName = "PAY";
    EXPECT_EQ(form.Trouble("txtMethodName"), "");
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), (Texts{"First", "PAY", "Last"}));
    EXPECT_EQ(item.TTCMembers.Item("pay")->MemberName, "PAY");
}

TEST_F(AddEditMethodTest, ANameThatIsNoneIsMadeOneAndTold)
{
    for (const std::string name :
         {"", "a~b`c!d@e#f$g%h^i&j*k(l)m-n=o+p\\q|r]s}t[u{v'w;x:y/z?1.2>3,4<5 6\"7", "Print"}) {
        messages.Forget();
        frmAddEditMethod form(surroundings);
        form.txtMethodName_Change(name);
        const std::string trouble = form.Trouble("txtMethodName");
        EXPECT_TRUE(form.cmdOK_Click());
        EXPECT_EQ(Titles(), Texts{"Invalid Name Detected"}) << name;
        EXPECT_EQ(Told(), Texts{trouble});
    }
    EXPECT_EQ(MethodNames(),
              (Texts{"InvalidName", "a_b_c_d_e_f_g_h_i_j_k_l_m_n_o_p_q_r_s_t_u_v_w_x_y_z_1_2_3_4_5_6_7", "aPrint"}));
}

TEST_F(AddEditMethodTest, ANewMethodDoesNotBeginWithAComplaint)
{
    frmAddEditMethod form(surroundings);
    EXPECT_EQ(form.Trouble("txtMethodName"), "");
    form.txtMethodName_Change("P");
    form.txtMethodName_Change("");
    EXPECT_NE(form.Trouble("txtMethodName"), "") << "it was emptied";
    AddOwnMethod("InvalidName");
    frmAddEditMethod pressed(surroundings);
    EXPECT_FALSE(pressed.cmdOK_Click());
    EXPECT_NE(pressed.Trouble("txtMethodName"), "");
    pressed.txtMethodName = "";
    EXPECT_NE(pressed.Trouble("txtMethodName"), "") << "OK was pressed";
    AddPayMethod();
    frmAddEditMethod edited(surroundings, item.TTCMethods.Item("Pay"));
    edited.txtMethodName = "";
    EXPECT_NE(edited.Trouble("txtMethodName"), "");
}

TEST_F(AddEditMethodTest, TheDialogStaysWhileAMemberHasTheName)
{
    AddPayMethod();
    AddOwnEvent("Paid");
    const std::string told =
        "The method name 'PAID' conflicts with an existing member of the Order class. Please enter another name.";
    const std::string before = Saved();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    Texts focus;
    const Connection listening =
        form.FocusWanted.Connect([&](std::string_view control) { focus.emplace_back(control); });
    form.txtMethodName = "PAID";
    form.cmbReturnType = ":1";
    EXPECT_EQ(form.Trouble("txtMethodName"), told);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(Titles(), Texts{"Duplicate Method Name"});
    EXPECT_EQ(Told(), Texts{told});
    EXPECT_EQ(form.txtMethodName, "PAID");
    EXPECT_EQ(form.cmbReturnType, ":1");
    EXPECT_EQ(focus, Texts{"txtMethodName"});
    EXPECT_EQ(Saved(), before);
    EXPECT_EQ(form.Trouble("cmbScope"), "");
}

TEST_F(AddEditMethodTest, AMethodThatTheRegisterHasLostIsNotOverwritten)
{
    AddMethod(item, "Pay", false);
    frmAddEditMethod form(surroundings);
    form.txtMethodName = "pay";
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), Texts{"Pay"});
}

TEST_F(AddEditMethodTest, AnUntouchedDefaultLeavesTheClassItsOtherOne)
{
    AddPayMethod().DefaultMethod = true;
    AddProperty(item, "Total", "Long");
    item.TTCProperties.Item("Total")->DefaultProperty = true;
    const std::string before = Saved();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Saved(), before);
}

TEST_F(AddEditMethodTest, AMethodWithoutAScopeCanGetAny)
{
    TTCMethod& method = AddPayMethod();
    method.Scope = "";
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    EXPECT_EQ(form.cmbScope, "");
    form.cmbScope = "Public";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(item.TTCMethods.Item("Pay")->Scope, "Public");
}

TEST_F(AddEditMethodTest, AnUntouchedMethodStaysByteForByte)
{
    TTCMethod& method = AddPayMethod();
    method.ReturnDataType = "3"; // as the key of another type
    method.Scope = "";
    method.Arguments.Item("anAmount")->ParameterDataType = "2";
    method.Arguments.Item("aNote")->Index = 7;
    method.Arguments.Item("aNote")->ColumnName = "Note";
    const std::string before = Saved();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    dialogs.Argument = [](frmAddEditArgument& argument) { return argument.cmdOK_Click(); };
    form.lstArguments().Select({0});
    form.lstArguments().Edit();
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Saved(), before);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditMethodTest, ABuiltInMethodStaysOneAndKeepsItsName)
{
    item.TTCMembers.Add("Retrieve", "Retrieve");
    TTCMethod& method = AddMethod(item, "Retrieve", true);
    TTCParameter bound = Argument("anID", "Long");
    bound.ColumnName = "ID";
    StoreArguments({bound}, method.Arguments);
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Retrieve"));
    EXPECT_FALSE(form.txtMethodName_Enabled());
    form.txtMethodName = "Fetch";
    EXPECT_EQ(form.Trouble("txtMethodName"), "");
    AnswerArgument("theID");
    form.lstArguments().Select({0});
    form.lstArguments().Edit();
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), Texts{"Retrieve"});
    EXPECT_TRUE(method.PlusMethod);
    EXPECT_EQ(method.Arguments.Item("theID")->ColumnName, "ID") << "the argument is bound as before";
}

TEST_F(AddEditMethodTest, WhatTheCodeOfABuiltInMethodDoesNotFollowCannotBeChanged)
{
    const std::vector<std::pair<std::string, Texts>> cases{
        {"Add", {"txtMethodName", "chkDefault", "lstArguments"}},
        {"Retrieve", {"txtMethodName", "chkDefault"}},
        {"Delete", {"txtMethodName", "chkDefault"}},
        {"Update", {"txtMethodName", "cmbReturnType", "cmbScope", "chkDefault", "lstArguments"}},
        {"Clone", {"txtMethodName", "cmbReturnType", "cmbScope", "chkDefault", "lstArguments"}},
        {"Clear", {"txtMethodName", "cmbReturnType", "cmbScope", "chkDefault", "lstArguments"}},
        {"RetrieveIdentity", {"txtMethodName", "cmbReturnType", "cmbScope", "chkDefault", "lstArguments"}},
        {"RetrieveList", {"txtMethodName", "cmbReturnType", "cmbScope", "chkDefault", "lstArguments"}},
        {"Own", {}}};
    for (const auto& [name, expected] : cases) {
        AddMethod(item, name, name != "Own");
        frmAddEditMethod form(surroundings, item.TTCMethods.Item(name));
        Texts disabled;
        for (const char* control : {"txtMethodName", "cmbReturnType", "cmbScope", "chkDefault"})
            if (!form.WhyDisabled(control).empty())
                disabled.emplace_back(control);
        if (!form.lstArguments().WhyFixed().empty())
            disabled.emplace_back("lstArguments");
        EXPECT_EQ(disabled, expected) << name;
    }
    const frmAddEditMethod clear(surroundings, item.TTCMethods.Item("Clear"));
    EXPECT_EQ(clear.WhyDisabled("cmbScope"), "The code of the Clear method is generated without regard to this.");
    EXPECT_EQ(clear.WhyDisabled("txtMethodName"), "The code of this method is generated by its name, which stays.");
}

TEST_F(AddEditMethodTest, ABuiltInMethodThatIsTheDefaultCanCeaseToBeIt)
{
    TTCMethod& clear = AddMethod(item, "Clear", true);
    EXPECT_FALSE(frmAddEditMethod(surroundings, item.TTCMethods.Item("Clear")).chkDefault_Enabled());
    clear.DefaultMethod = true;
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Clear"));
    EXPECT_TRUE(form.chkDefault_Enabled());
    EXPECT_EQ(form.WhyDisabled("chkDefault"), "");
    form.chkDefault_Click(false);
    EXPECT_TRUE(form.chkDefault_Enabled()) << "until OK it can be ticked again";
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_FALSE(clear.DefaultMethod);
}

TEST_F(AddEditMethodTest, AMethodThatCallsAProcedureKeepsIt)
{
    TTCMethod& method = AddOwnMethod("GetOrders");
    method.MethodIsSP = true;
    method.SPReturnValuesOnly = true;
    method.StoredProcedure = std::make_shared<SP>();
    method.StoredProcedure->SPName = "GetOrders;1";
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("GetOrders"));
    EXPECT_FALSE(form.txtMethodName_Enabled());
    form.cmbScope = "Friend";
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(method.Scope, "Friend");
    EXPECT_TRUE(method.MethodIsSP);
    EXPECT_TRUE(method.SPReturnValuesOnly);
    EXPECT_EQ(method.StoredProcedure->SPName, "GetOrders;1");
}

TEST_F(AddEditMethodTest, ChangingTheDefaultMethodIsAskedFor)
{
    AddPayMethod();
    item.TTCMethods.Item("First")->DefaultMethod = true;
    AnswerWith({Answer::No, Answer::Yes});
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.txtMethodName = "Settle All";
    form.chkDefault_Click(true);
    EXPECT_FALSE(form.chkDefault());
    form.chkDefault_Click(true);
    EXPECT_TRUE(form.chkDefault());
    const std::string told =
        "The First method is currently set as the default method.\r\nAre you sure you want to change the default method to Settle_All";
    EXPECT_EQ(Told(), (Texts{told, told}));
    EXPECT_EQ(Titles().front(), "Confirm Change Default Method");
    EXPECT_TRUE(item.TTCMethods.Item("First")->DefaultMethod) << "until OK";
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_FALSE(item.TTCMethods.Item("First")->DefaultMethod);
    EXPECT_TRUE(item.TTCMethods.Item("Settle_All")->DefaultMethod);
}

TEST_F(AddEditMethodTest, ADefaultPropertyGivesWayToAMethod)
{
    AddPayMethod();
    AddProperty(item, "Total", "Currency").DefaultProperty = true;
    AnswerWith({Answer::Yes});
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.chkDefault_Click(true);
    EXPECT_EQ(
        Told(),
        Texts{
            "The Total property is currently set as the default property.\r\nAre you sure you want to change the default interface to Pay"});
    EXPECT_EQ(Titles(), Texts{"Confirm Change Default Method"});
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_FALSE(item.TTCProperties.Item("Total")->DefaultProperty);
    EXPECT_TRUE(item.TTCMethods.Item("Pay")->DefaultMethod);
}

TEST_F(AddEditMethodTest, TheDefaultIsNotAskedForWhereThereIsNone)
{
    AddPayMethod();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.chkDefault_Click(true);
    EXPECT_TRUE(form.chkDefault());
    form.chkDefault_Click(false);
    form.chkDefault_Click(true);
    ASSERT_TRUE(form.cmdOK_Click());
    frmAddEditMethod again(surroundings, item.TTCMethods.Item("Pay"));
    again.chkDefault_Click(false);
    ASSERT_TRUE(again.cmdOK_Click());
    EXPECT_FALSE(item.TTCMethods.Item("Pay")->DefaultMethod);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditMethodTest, CancelOfAChangedMethodAsks)
{
    AddPayMethod();
    const std::string before = Saved();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_TRUE(messages.Asked().empty()) << "nothing is changed";
    AnswerArgument("other");
    form.lstArguments().New();
    form.lstArguments().Select({1});
    form.lstArguments().Edit();
    EXPECT_FALSE(form.cmdCancel_Click());
    AnswerWith({Answer::Yes});
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_EQ(Titles(), Texts{"Discard Changes?"});
    EXPECT_EQ(Told(), Texts{"This method has been modified, do you want to discard all changes to this method?"});
    EXPECT_EQ(messages.Asked().front().Offered, Buttons::YesNo);
    EXPECT_EQ(Saved(), before);
}

TEST_F(AddEditMethodTest, EachControlCountsAsAChange)
{
    AddPayMethod();
    const std::vector<std::function<void(frmAddEditMethod&)>> changes{
        [](frmAddEditMethod& form) { form.txtMethodName = "Settle"; },
        [](frmAddEditMethod& form) { form.cmbReturnType = ":0"; },
        [](frmAddEditMethod& form) { form.cmbScope = "Public"; },
        [](frmAddEditMethod& form) { form.chkDefault_Click(true); },
        [](frmAddEditMethod& form) {
            form.lstArguments().Select({0});
            form.lstArguments().KeyDown(ArgumentKey::Delete);
        }};
    for (const auto& change : changes) {
        frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
        AnswerWith({});
        messages.Add(Answer::Ok); // of the deletion, else of nothing
        change(form);
        messages = testing::ScriptedMessages();
        EXPECT_FALSE(form.cmdCancel_Click());
        EXPECT_EQ(Titles(), Texts{"Discard Changes?"});
    }
}

TEST_F(AddEditMethodTest, ThePreviewIsWhatIsGeneratedForTheMethod)
{
    AddPayMethod();
    const std::string before = Saved();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    form.txtMethodName = "Pay All";
    form.lstArguments().Select({1});
    form.chkDefault_Click(true);
    EXPECT_EQ(OutputsToText(form.Preview()),
              "Friend Function Pay_All(ByRef anAmount as Currency, Optional ByRef aNote as String) as Currency\r\n"
              "Attribute Pay_All.VB_UserMemId = 0\r\n"
              "End Function\r\n");
    form.cmbReturnType = ":0";
    form.chkDefault_Click(false);
    EXPECT_EQ(OutputsToText(form.Preview()),
              "Friend Sub Pay_All(ByRef anAmount as Currency, Optional ByRef aNote as String)\r\nEnd Sub\r\n");
    EXPECT_EQ(Saved(), before);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditMethodTest, ThePreviewOfAnArgumentIsThatOfItsMethod)
{
    AddPayMethod();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Pay"));
    std::string shown;
    dialogs.Argument = [&](frmAddEditArgument& argument) {
        argument.txtArgumentName = "aPrice";
        argument.chkByVal = true;
        shown = OutputsToText(argument.Preview());
        return false;
    };
    form.lstArguments().Select({0});
    form.lstArguments().Edit();
    EXPECT_EQ(shown, "Friend Function Pay(ByVal aPrice as Currency, Optional ByRef aNote as String) as Currency\r\n"
                     "End Function\r\n");
}

TEST_F(AddEditMethodTest, ThePreviewOfABuiltInMethodLeavesTheClassAlone)
{
    item.TableName = "Orders";
    AddMethod(item, "Retrieve", true);
    const std::string before = Saved();
    frmAddEditMethod form(surroundings, item.TTCMethods.Item("Retrieve"));
    EXPECT_GT(form.Preview().Count(), 10U);
    EXPECT_EQ(Saved(), before) << "a Clear that it needs is added to a copy";
}

} // namespace
} // namespace veldrane
