#include "editors/field_controls.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

TTCProperty PropertyOfType(const std::string& type)
{
    TTCProperty property;
    property.DataType = type;
    property.PropertyLetSet = true;
    property.MaxLength = 50;
    return property;
}

void Choose(FieldControls& controls, std::string_view type)
{
    controls.cmbDataType_Click(RowOfType(controls.Types(), type));
    ASSERT_EQ(controls.DataType(), type);
}

// The letters of the controls that can be used: Frame, Enforce box, Display box, text and characters, formatting Tab,
// box for the Let.
std::string Usable(const FieldControls& controls)
{
    const auto& enabled = controls.Enabled();
    std::string usable;
    for (const auto& [letter, on] :
         {std::pair('F', enabled.fraFieldLength), std::pair('E', enabled.chkEnforceMaxLength),
          std::pair('D', enabled.chkDisplayTruncationMessage), std::pair('M', enabled.txtMaxLength),
          std::pair('C', enabled.lblChars), std::pair('T', enabled.tabFormatting),
          std::pair('L', enabled.chkFormatOnLet)})
        if (on)
            usable += letter;
    return usable;
}

TEST(FieldControlsTest, ShowTheProperty)
{
    TTCProperty property = PropertyOfType("Date");
    property.EnforceMaxLength = property.DisplayTruncationMessage = property.FormatOnGet = true;
    const FieldControls controls(property);
    EXPECT_EQ(controls.DataType(), "Date");
    EXPECT_EQ(controls.txtMaxLength, "50");
    EXPECT_TRUE(controls.chkPropertyLetSet());
    EXPECT_TRUE(controls.chkEnforceMaxLength());
    EXPECT_TRUE(controls.chkDisplayTruncationMessage);
    EXPECT_TRUE(controls.chkFormatOnGet);
    EXPECT_FALSE(controls.chkFormatOnLet);
    EXPECT_FALSE(controls.chkIsNullable());
}

TEST(FieldControlsTest, TypesOfTheLanguageComeWithClassAndCollection)
{
    const FieldControls controls(PropertyOfType("String"));
    std::string shown;
    for (const TypeItem& type : controls.Types())
        shown += type.Key + type.Text + " ";
    EXPECT_EQ(shown, ":2Byte :9Boolean :4Currency :8Date :7Double :5Integer :1String :3Long :10Object :6Single "
                     ":11Variant :ClassClass :CollectionCollection ");
}

TEST(FieldControlsTest, ATypeOfThePropertysOwnIsKept)
{
    for (const char* type : {"Customer", "string", ""})
        EXPECT_EQ(FieldControls(PropertyOfType(type)).DataType(), type);
}

TEST(FieldControlsTest, TheLengthIsForStrings)
{
    TTCProperty property = PropertyOfType("String");
    EXPECT_EQ(Usable(FieldControls(property)), "FEDTL");
    property.EnforceMaxLength = true;
    EXPECT_EQ(Usable(FieldControls(property)), "FEDMCTL");
    property.PropertyLetSet = false;
    EXPECT_EQ(Usable(FieldControls(property)), "T");
}

TEST(FieldControlsTest, EachTypeAllowsWhatItIsFor)
{
    for (const char* type : {"Boolean", "Integer", "Single", "Double", "Variant", "Currency", "Long", "Byte", "Date"}) {
        FieldControls controls(PropertyOfType("String"));
        Choose(controls, type);
        EXPECT_EQ(Usable(controls), "TL") << type;
        Choose(controls, "String");
        EXPECT_EQ(Usable(controls), "FEDTL") << type;
    }
    for (const char* type : {"Object", "Class", "Collection"}) {
        FieldControls controls(PropertyOfType("String"));
        Choose(controls, type);
        EXPECT_EQ(Usable(controls), "L") << type;
        Choose(controls, "Long");
        EXPECT_EQ(Usable(controls), "TL") << type;
    }
}

TEST(FieldControlsTest, ATypeThatIsNotFormattedClearsBothBoxes)
{
    TTCProperty property = PropertyOfType("Long");
    property.FormatOnGet = property.FormatOnLet = true;
    FieldControls controls(property);
    Choose(controls, "Date");
    EXPECT_TRUE(controls.chkFormatOnGet && controls.chkFormatOnLet);
    Choose(controls, "Object");
    EXPECT_FALSE(controls.chkFormatOnGet || controls.chkFormatOnLet);
}

TEST(FieldControlsTest, ATypeThatIsNotFormattedIsPassedWithoutALoss)
{
    TTCProperty property = PropertyOfType("Long");
    property.FormatOnLet = true;
    FieldControls controls(property);
    Choose(controls, "Object");
    Choose(controls, "Class");
    EXPECT_FALSE(controls.chkFormatOnGet || controls.chkFormatOnLet);
    Choose(controls, "Single");
    EXPECT_TRUE(controls.chkFormatOnLet);
    EXPECT_FALSE(controls.chkFormatOnGet);
    controls.chkFormatOnLet = false;
    Choose(controls, "Date");
    EXPECT_FALSE(controls.chkFormatOnLet);
}

TEST(FieldControlsTest, NothingIsClearedBeforeATypeIsChosen)
{
    TTCProperty property = PropertyOfType("Object");
    property.FormatOnGet = property.FormatOnLet = true;
    const FieldControls controls(property);
    EXPECT_TRUE(controls.chkFormatOnGet && controls.chkFormatOnLet);
    EXPECT_EQ(Usable(controls), "L");
}

TEST(FieldControlsTest, WithoutALetThereIsNoLengthAndNoFormatOnIt)
{
    TTCProperty property = PropertyOfType("String");
    property.EnforceMaxLength = true;
    FieldControls controls(property);
    controls.chkPropertyLetSet_Click(false);
    EXPECT_FALSE(controls.chkPropertyLetSet());
    EXPECT_EQ(Usable(controls), "T");
    controls.chkPropertyLetSet_Click(true);
    EXPECT_EQ(Usable(controls), "FEDMCTL");
}

TEST(FieldControlsTest, ALetBringsTheLengthToStringsAlone)
{
    FieldControls controls(PropertyOfType("Long"));
    controls.chkPropertyLetSet_Click(false);
    EXPECT_EQ(Usable(controls), "T");
    Choose(controls, "String");
    EXPECT_EQ(Usable(controls), "T");
    Choose(controls, "Long");
    controls.chkPropertyLetSet_Click(true);
    EXPECT_EQ(Usable(controls), "TL");
}

TEST(FieldControlsTest, TheLengthFollowsItsBox)
{
    FieldControls controls(PropertyOfType("String"));
    controls.chkEnforceMaxLength_Click(true);
    EXPECT_EQ(Usable(controls), "FEDMCTL");
    controls.chkEnforceMaxLength_Click(false);
    EXPECT_EQ(Usable(controls), "FETL");
    // Choosing the type anew allows the message without the check.
    Choose(controls, "String");
    EXPECT_EQ(Usable(controls), "FEDTL");
}

TEST(FieldControlsTest, NullsWantAVariant)
{
    TTCProperty property = PropertyOfType("String");
    property.EnforceMaxLength = true;
    FieldControls controls(property);
    controls.chkIsNullable_Click(true);
    EXPECT_EQ(controls.DataType(), "Variant");
    EXPECT_EQ(Usable(controls), "TL");
    controls.chkIsNullable_Click(false);
    EXPECT_EQ(controls.DataType(), "String");
    EXPECT_EQ(Usable(controls), "FEDMCTL");
}

TEST(FieldControlsTest, AVariantIsNotRememberedInPlaceOfAnotherType)
{
    FieldControls controls(PropertyOfType("Long"));
    controls.chkIsNullable_Click(true);
    controls.chkIsNullable_Click(true);
    controls.chkIsNullable_Click(false);
    EXPECT_EQ(controls.DataType(), "Long");
}

TEST(FieldControlsTest, AVariantFromTheBeginningStaysOne)
{
    TTCProperty property = PropertyOfType("Variant");
    property.AllowPropertyToBeNull = true;
    FieldControls controls(property);
    controls.chkIsNullable_Click(false);
    EXPECT_EQ(controls.DataType(), "Variant");
    EXPECT_FALSE(controls.chkIsNullable());
}

TEST(FieldControlsTest, ARowThatIsNotThereChangesNothing)
{
    FieldControls controls(PropertyOfType("Long"));
    controls.cmbDataType_Click(controls.Types().size());
    EXPECT_EQ(controls.DataType(), "Long");
}

} // namespace
} // namespace veldrane
