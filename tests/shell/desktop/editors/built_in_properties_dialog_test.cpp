#include "shell/desktop/editors/built_in_properties_dialog.h"

#include "property_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct TheBuiltInPropertiesWindow : PropertyDialogFixture
{
    QWidget& Show()
    {
        form.emplace(surroundings);
        return Open<BuiltInPropertiesDialog>(*form);
    }

    std::optional<frmBuiltInProperties> form;
};

TEST_F(TheBuiltInPropertiesWindow, AddsWhatIsTickedByTheMouse)
{
    QWidget& window = Show();
    EXPECT_THAT(Rows("lstProperties"),
                ElementsAre("Modified Reflects 'True' when any property value in this class has changed.",
                            "Deleted Reflects 'True' when the database record is marked for deletion.",
                            "FormatProperties Turn Property Formatting on or off for this class. (Default = On)"));
    EditorList& list = List("lstProperties");
    const QRect row = list.visualItemRect(list.topLevelItem(1));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(row.height() / 2, row.height() / 2));
    EXPECT_THAT(Rows("lstProperties")[1], HasSubstr("+Deleted"));
    Photograph(window, "frmBuiltInProperties");
    Click(window, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_THAT(PropertyNames(), ElementsAre("Deleted"));
}

TEST_F(TheBuiltInPropertiesWindow, AddsSeveralRowsByTheKeyboardAlone)
{
    Show();
    EXPECT_EQ(Focused(), "lstProperties");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Space);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "lstPreview");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "cmdOK");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_THAT(PropertyNames(), ElementsAre("Modified", "Deleted", "FormatProperties"));
}

TEST_F(TheBuiltInPropertiesWindow, LeavesTheClassAsItWasWhenItIsCancelled)
{
    const std::string before = Saved();
    Show();
    Press(Qt::Key_Space);
    EXPECT_THAT(Rows("lstProperties")[0], HasSubstr("+Modified"));
    Press(Qt::Key_Escape);
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(Members(), IsEmpty());
}

TEST_F(TheBuiltInPropertiesWindow, FiltersByWhatIsTyped)
{
    QWidget& window = Show();
    Type(window, "txtFilter", "RECORD");
    EXPECT_THAT(Rows("lstProperties"),
                ElementsAre("Deleted Reflects 'True' when the database record is marked for deletion."));
    Press(Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Rows("lstProperties").size(), 3U);
}

TEST_F(TheBuiltInPropertiesWindow, ShowsTheCodeOfTheRowInHand)
{
    Show();
    EXPECT_THAT(Code(), Contains("Public Property Get Modified() as Boolean"));
    Press(Qt::Key_Down);
    EXPECT_THAT(Code(), Contains("Public Property Get Deleted() as Boolean"));
}

TEST_F(TheBuiltInPropertiesWindow, LocksWhatTheClassHas)
{
    item->TTCMembers.Add("Modified", "Modified");
    item->TTCProperties.Add({.PropertyName = "Modified", .PlusProperty = true}, "Modified");
    AddMethod("Deleted");
    QWidget& window = Show();
    EditorList& list = List("lstProperties");
    EXPECT_THAT(Rows("lstProperties")[0], HasSubstr("+Modified"));
    EXPECT_TRUE(list.topLevelItem(0)->isDisabled());
    EXPECT_TRUE(list.topLevelItem(1)->isDisabled());
    EXPECT_THAT(list.topLevelItem(1)->toolTip(0).toStdString(), HasSubstr("can't be added"));
    EXPECT_THAT(Code(), Contains("Public Property Get FormatProperties() as Boolean"));
    Photograph(window, "frmBuiltInProperties-locked");
}

} // namespace
} // namespace veldrane::testing
