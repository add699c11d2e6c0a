#include "shell/desktop/editors/pick_procedures_dialog.h"

#include "editors/frm_pick_sp.h"
#include "member_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ThePickProceduresWindow : public MemberDialogTest
{
  protected:
    ThePickProceduresWindow()
    {
        catalog.ProcedureNames = {"GetOrders;1", "Ping", "GetClients"};
        AddParameter("@CustomerID", "int", parameter_direction::kInput);
        AddParameter("@Found", "int", parameter_direction::kOutput);
    }

    void AddParameter(const std::string& name, const std::string& type, std::int32_t direction)
    {
        CatalogParameter row{.ProcedureName = "GetOrders;1", .Parameter = {}};
        row.Parameter.ParameterName = name;
        row.Parameter.DataType = type;
        row.Parameter.Direction = direction;
        catalog.Parameters.push_back(row);
    }

    // Whether it was left by OK.
    bool Pick(const Act& act)
    {
        bool isAccepted = false;
        WithDialogs([&] { isAccepted = frmPickSP(surroundings).PickStoredProcedures(item.TTCMethods, selected); },
                    {act});
        return isAccepted;
    }

    [[nodiscard]] Texts Named() const { return NamesOf(selected, &SP::SPMethodName); }

    SPs selected;
};

TEST_F(ThePickProceduresWindow, AProcedureThatCanBecomeNoMethodSaysSo)
{
    catalog.ProcedureNames.insert(catalog.ProcedureNames.begin(), "(#);1");
    EXPECT_TRUE(Pick([](QWidget& dialog) {
        EXPECT_THAT(TroubleIn(dialog, "lblTrouble"), HasSubstr("'(#);1' can't become a method"));
        EXPECT_EQ(Code(dialog), "");
        auto& list = Find<EditorList>(dialog, "lstSPs");
        list.setFocus();
        list.selectAll();
        QTest::keyClick(&list, Qt::Key_Space);
        EXPECT_EQ(Find<QLabel>(dialog, "lblTicked").text(), u"3 of 4 ticked"_s);
        Photograph(dialog, "frmPickSP-trouble");
        ClickRow(dialog, "lstSPs", 1);
        EXPECT_EQ(TroubleIn(dialog, "lblTrouble"), "");
        Click(dialog, "cmdOK");
    }));
    EXPECT_EQ(Named(), (Texts{"", "GetOrders", "Ping", "GetClients"}));
}

TEST_F(ThePickProceduresWindow, ListsProceduresAndNamesTheTickedOnes)
{
    EXPECT_TRUE(Pick([](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), u"frmPickSP"_s);
        EXPECT_THAT(Rows(dialog, "lstSPs"), ElementsAre("GetOrders;1|GetOrders", "Ping|Ping", "GetClients|GetClients"));
        EXPECT_THAT(Rows(dialog, "lstParameters"), ElementsAre("@CustomerID|Input|int", "@Found|Output|int"));
        EXPECT_THAT(Code(dialog), HasSubstr("Public Function GetOrders(ByVal CustomerID as Long, "));
        ClickRow(dialog, "lstSPs", 0);
        QTest::keyClick(&Find<EditorList>(dialog, "lstSPs"), Qt::Key_Space);
        EXPECT_EQ(Find<QLabel>(dialog, "lblTicked").text(), u"1 of 3 ticked"_s);
        Photograph(dialog, "frmPickSP");
        ClickRow(dialog, "lstSPs", 1);
        EXPECT_TRUE(Rows(dialog, "lstParameters").empty());
        EXPECT_THAT(Code(dialog), HasSubstr("Public Function Ping("));
        Click(dialog, "cmdOK");
    }));
    EXPECT_THAT(Named(), ElementsAre("GetOrders", "", ""));
}

TEST_F(ThePickProceduresWindow, IsUsedByTheKeyboardAlone)
{
    EXPECT_TRUE(Pick([](QWidget& dialog) {
        BringToFront(dialog);
        EXPECT_THAT(TabOrder(),
                    ElementsAre("txtFilter", "lstSPs", "lstParameters", "lstPreview", "cmdOK", "cmdCancel"));
        Write("GET");
        EXPECT_EQ(Rows(dialog, "lstSPs").size(), 2U);
        Press(Qt::Key_Down);
        EXPECT_EQ(Focused(), "lstSPs");
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_Space);
        EXPECT_EQ(Find<QLabel>(dialog, "lblTicked").text(), u"2 of 3 ticked"_s);
        Press(Qt::Key_F, Qt::AltModifier);
        Press(Qt::Key_Escape);
        EXPECT_EQ(Rows(dialog, "lstSPs").size(), 3U);
        Press(Qt::Key_Return);
        EXPECT_EQ(Focused(), "lstSPs");
        Press(Qt::Key_Return);
    }));
    EXPECT_THAT(Named(), ElementsAre("GetOrders", "", "GetClients"));
}

TEST_F(ThePickProceduresWindow, CancelNamesNone)
{
    const std::string before = Saved();
    EXPECT_FALSE(Pick([](QWidget& dialog) {
        ClickRow(dialog, "lstSPs", 0);
        QTest::keyClick(&Find<EditorList>(dialog, "lstSPs"), Qt::Key_Space);
        Click(dialog, "cmdCancel");
    }));
    EXPECT_THAT(Named(), ElementsAre("", "", ""));
    EXPECT_EQ(Saved(), before);
}

TEST_F(ThePickProceduresWindow, NothingIsInHandWhereNothingIsLeft)
{
    EXPECT_FALSE(Pick([](QWidget& dialog) {
        Type(dialog, "txtFilter", "no such procedure");
        EXPECT_TRUE(Rows(dialog, "lstParameters").empty());
        EXPECT_EQ(Code(dialog), "");
        Find<QLineEdit>(dialog, "txtFilter").clear();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    }));
}

TEST_F(ThePickProceduresWindow, ADataSourceWithoutProceduresShowsAnEmptyList)
{
    catalog.ProcedureNames.clear();
    catalog.Parameters.clear();
    EXPECT_TRUE(Pick([](QWidget& dialog) {
        EXPECT_TRUE(Rows(dialog, "lstSPs").empty());
        EXPECT_EQ(Find<QLabel>(dialog, "lblTicked").text(), u"0 of 0 ticked"_s);
        Click(dialog, "cmdOK");
    }));
}

TEST_F(ThePickProceduresWindow, ThousandsCanBeTickedAtOnce)
{
    constexpr int kMany = 5000;
    catalog.ProcedureNames.clear();
    for (int number = 0; number < kMany; ++number)
        catalog.ProcedureNames.push_back("Procedure" + std::to_string(number));
    EXPECT_TRUE(Pick([](QWidget& dialog) {
        Type(dialog, "txtFilter", "Procedure49");
        auto& list = Find<EditorList>(dialog, "lstSPs");
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&list, Qt::Key_Space);
        EXPECT_EQ(Find<QLabel>(dialog, "lblTicked").text(), u"111 of 5000 ticked"_s);
        Click(dialog, "cmdOK");
    }));
    const Texts named = Named();
    EXPECT_EQ(std::count(named.begin(), named.end(), ""), kMany - 111);
}

} // namespace
} // namespace veldrane::testing
