#include "editors/frm_built_in_properties.h"

#include "property_fixture.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Texts;

class BuiltInPropertiesTest : public testing::PropertyFixture
{
  protected:
    // "name", with a + for a tick and a - for a row that can't be used.
    static Texts Rows(const frmBuiltInProperties& form)
    {
        Texts rows;
        for (const BuiltInPropertyRow& row : form.lstProperties())
            rows.push_back((row.Ticked ? "+" : "") + std::string(row.Enabled ? "" : "-") + row.Name);
        return rows;
    }
};

TEST_F(BuiltInPropertiesTest, EachRowIsDescribed)
{
    const frmBuiltInProperties form(surroundings);
    Texts rows;
    for (const BuiltInPropertyRow& row : form.lstProperties())
        rows.push_back(row.Icon + ":" + row.Name + ":" + row.Description);
    EXPECT_THAT(rows,
                ElementsAre("PropertyPlus:Modified:Reflects 'True' when any property value in this class has changed.",
                            "PropertyPlus:Deleted:Reflects 'True' when the database record is marked for deletion.",
                            "PropertyPlus:FormatProperties:Turn Property Formatting on or off for this class. (Default "
                            "= On)"));
}

TEST_F(BuiltInPropertiesTest, WhatTheClassHasIsTickedForGood)
{
    item->TTCMembers.Add("Modified", "Modified");
    item->TTCProperties.Add({.PropertyName = "Modified", .PlusProperty = true}, "Modified");
    AddMethod("deleted");
    frmBuiltInProperties form(surroundings);
    EXPECT_THAT(Rows(form), ElementsAre("+-Modified", "-Deleted", "FormatProperties"));
    EXPECT_EQ(form.lstProperties()[0].Trouble, "");
    EXPECT_EQ(form.lstProperties()[1].Trouble,
              "The property 'Deleted' can't be added: an existing member of the Order class has that name.");
    form.lstProperties_ItemCheck({0}, false);
    form.lstProperties_ItemCheck({1, 2, 99}, true);
    EXPECT_THAT(Rows(form), ElementsAre("+-Modified", "-Deleted", "+FormatProperties"));
}

TEST_F(BuiltInPropertiesTest, APropertyOfAFieldIsNotTheBuiltInOne)
{
    AddField("Modified");
    AddField("Deleted");
    item->TTCMembers.Remove("Deleted");
    frmBuiltInProperties form(surroundings);
    EXPECT_THAT(Rows(form), ElementsAre("-Modified", "-Deleted", "FormatProperties"));
    for (const std::size_t row : {0U, 1U})
        EXPECT_EQ(form.lstProperties()[row].Trouble,
                  "The property '" + form.lstProperties()[row].Name +
                      "' can't be added: an existing member of the Order class has that name.");
    EXPECT_THAT(LinesOf(form.Preview(0)), IsEmpty());
    form.lstProperties_ItemCheck({0, 1}, true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(PropertyNames(), ElementsAre("Modified", "Deleted"));
}

TEST_F(BuiltInPropertiesTest, OKAddsTheTickedRows)
{
    frmBuiltInProperties form(surroundings);
    form.lstProperties_ItemCheck({0, 1, 2}, true);
    form.lstProperties_ItemCheck({1}, false);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(PropertyNames(), ElementsAre("Modified", "FormatProperties"));
    EXPECT_THAT(Members(), ElementsAre("Modified", "FormatProperties"));
    const auto modified = item->TTCProperties.Item("Modified");
    EXPECT_EQ(modified->DataType, "Boolean");
    EXPECT_EQ(modified->Scope, "Public");
    EXPECT_TRUE(modified->PlusProperty && modified->AddToClass);
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(BuiltInPropertiesTest, CancelAddsNothing)
{
    const std::string before = Saved();
    frmBuiltInProperties form(surroundings);
    form.lstProperties_ItemCheck({0}, true);
    static_cast<void>(form.Preview(0));
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(Members(), IsEmpty());
}

TEST_F(BuiltInPropertiesTest, ThePreviewShowsARowAsTheClassWouldHaveIt)
{
    item->TTCEvents.Add("RecordMarkedForDeletion", TTCEventParameters{}, true, "RecordMarkedForDeletion");
    const frmBuiltInProperties form(surroundings);
    EXPECT_THAT(LinesOf(form.Preview(1)),
                ElementsAre("Public Property Get Deleted() as Boolean", "    Deleted = mblnDeleted", "End Property",
                            "Public Property Let Deleted(ByVal vData as Boolean)", "    mblnDeleted = vData",
                            "    If vData = True Then RaiseEvent RecordMarkedForDeletion(Me)", "End Property"));
    EXPECT_THAT(LinesOf(form.Preview(99)), IsEmpty());
}

TEST_F(BuiltInPropertiesTest, WhereAMethodHasTheNameThereIsNothingToPreview)
{
    AddMethod("Deleted");
    EXPECT_THAT(LinesOf(frmBuiltInProperties(surroundings).Preview(1)), IsEmpty());
}

} // namespace
} // namespace veldrane
