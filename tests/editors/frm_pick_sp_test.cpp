#include "editors/frm_pick_sp.h"

#include "member_fixture.h"

namespace veldrane {
namespace {

using testing::Texts;

class PickSPTest : public testing::MemberTest
{
  protected:
    PickSPTest()
    {
        catalog.ProcedureNames = {"GetOrders;1", "Ping"};
        CatalogParameter row{.ProcedureName = "GetOrders;1", .Parameter = {}};
        row.Parameter.ParameterName = "@CustomerID";
        row.Parameter.DataType = "int";
        row.Parameter.Direction = parameter_direction::kInput;
        catalog.Parameters = {row};
    }

    [[nodiscard]] Texts MethodNamesOfSelected() const { return NamesOf(selected, &SP::SPMethodName); }

    SPs selected;
};

TEST_F(PickSPTest, ListsTheProceduresAndNamesTheTickedOnes)
{
    dialogs.PickSP = [](frmPickSP& form) {
        EXPECT_EQ(form.lstSPs().size(), 2U);
        EXPECT_EQ(form.lstSPs().at(0).Row.Text, "GetOrders;1");
        EXPECT_EQ(form.lstSPs().at(0).Row.Icon, "SP");
        EXPECT_EQ(form.lstSPs().at(0).MethodName, "GetOrders");
        EXPECT_FALSE(form.lstSPs().at(0).Ticked);
        form.lstSPs_ItemCheck({0, 1}, true);
        form.lstSPs_ItemCheck({1}, false);
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
    EXPECT_EQ(MethodNamesOfSelected(), (Texts{"GetOrders", ""}));
}

TEST_F(PickSPTest, CancelNamesNone)
{
    dialogs.PickSP = [](frmPickSP& form) {
        form.lstSPs_ItemCheck({0, 1}, true);
        return !form.cmdCancel_Click();
    };
    EXPECT_FALSE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
    EXPECT_EQ(MethodNamesOfSelected(), (Texts{"", ""}));
}

TEST_F(PickSPTest, ARowShowsItsParametersAndItsFunction)
{
    dialogs.PickSP = [](frmPickSP& form) {
        EXPECT_EQ(form.lstParameters(0).size(), 1U);
        EXPECT_EQ(form.lstParameters(0).front().Direction, "Input");
        EXPECT_TRUE(form.lstParameters(1).empty());
        const TTCOutputs lines = form.Preview(0);
        EXPECT_TRUE(lines.Item(1).LineText.starts_with("Public Function GetOrders(ByVal CustomerID as Long, "))
            << lines.Item(1).LineText;
        return false;
    };
    EXPECT_FALSE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
    EXPECT_EQ(MethodNamesOfSelected(), (Texts{"", ""})) << "a preview names nothing";
}

TEST_F(PickSPTest, ARowHasTheNameThatItsMethodWouldGet)
{
    catalog.ProcedureNames = {"Ten Most", "Print", "2004;1"};
    catalog.Parameters.clear();
    dialogs.PickSP = [](frmPickSP& form) {
        Texts names;
        for (const ProcedureTick& row : form.lstSPs())
            names.push_back(row.MethodName + row.Trouble);
        EXPECT_EQ(names, (Texts{"Ten_Most", "aPrint", "A2004"}));
        EXPECT_TRUE(form.Preview(1).Item(1).LineText.starts_with("Public Function aPrint("));
        return false;
    };
    EXPECT_FALSE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
}

TEST_F(PickSPTest, AProcedureThatCanBecomeNoMethodSaysSoAndIsNotTicked)
{
    catalog.ProcedureNames = {"(#);1", "łódź", "Ping"};
    catalog.Parameters.clear();
    dialogs.PickSP = [](frmPickSP& form) {
        EXPECT_EQ(
            form.lstSPs().at(0).Trouble,
            "The stored procedure '(#);1' can't become a method: nothing in its name can stand in that of a method.");
        EXPECT_EQ(form.lstSPs().at(0).MethodName, "");
        EXPECT_TRUE(form.lstSPs().at(1).Trouble.starts_with("The name 'łódź' has letters that code page 1252 lacks"));
        EXPECT_EQ(form.lstSPs().at(2).Trouble, "");
        form.lstSPs_ItemCheck({0, 1, 2}, true);
        EXPECT_FALSE(form.lstSPs().at(0).Ticked || form.lstSPs().at(1).Ticked);
        EXPECT_EQ(form.Preview(0).Count(), 0U);
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
    EXPECT_EQ(MethodNamesOfSelected(), (Texts{"", "", "Ping"}));
}

TEST_F(PickSPTest, AnUnreachableDatabaseIsReportedAndNothingIsShown)
{
    catalog.Failures["Procedures"] = data_source_error::kNoOpenConnection;
    EXPECT_FALSE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
    edit.Source = nullptr;
    EXPECT_FALSE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
    ASSERT_EQ(errors.Reported.size(), 2U);
    for (const testing::RecordedError& reported : errors.Reported) {
        EXPECT_EQ(reported.Place.ModuleName, "frmPickSP");
        EXPECT_EQ(reported.Place.RoutineName, "PickStoredProcedures");
        EXPECT_EQ(reported.Error.Number, data_source_error::kNoOpenConnection);
    }
}

TEST_F(PickSPTest, MissingParametersAreToldAndTheDialogComesUp)
{
    catalog.Failures["ProcedureParameters"] = data_source_error::kNotSupported;
    dialogs.PickSP = [](frmPickSP&) { return false; };
    EXPECT_FALSE(frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected));
    EXPECT_EQ(Titles(), Texts{"OLE DB Provider Limitation"});
    EXPECT_EQ(
        Told(),
        Texts{
            "Parameters are not supported by the OLE DB Provider you are currently using.  NO Parameters will be included in the Stored Procedure Definition."});
}

} // namespace
} // namespace veldrane
