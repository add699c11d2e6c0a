#include "generation_fixture.h"

namespace veldrane::testing {
namespace {

class ClassProperties : public GenerationTest
{
  protected:
    std::string Properties() { return Lines(generation.WriteClassProperties(order, classes)); }

    TTCProperty& AddReadOnly(const std::string& name, const std::string& dataType)
    {
        TTCProperty& property = AddProperty(order, name, dataType);
        property.PropertyLetSet = false;
        return property;
    }

    TTCProperty& AddWriteOnly(const std::string& name, const std::string& dataType)
    {
        TTCProperty& property = AddProperty(order, name, dataType);
        property.PropertyGet = false;
        return property;
    }

    KZMClass& order = AddClass("Order");
};

TEST_F(ClassProperties, OfValuesAreGetAndLet)
{
    AddProperty(order, "City", "String");
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get City() as String|
code|    City = mstrCity|
head|End Property|
head:Property|Public Property Let City(ByVal vData as String)|
code|    mstrCity = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, OfObjectsAreGetAndSet)
{
    AddProperty(order, "Owner", "Customer");
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get Owner() as Customer|
code|    Set Owner = mothOwner|
head|End Property|
head:Property|Public Property Set Owner(ByVal vData as Customer)|
code|    Set mothOwner = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, WithoutATypeAreSetAsVariantAndLetAsString)
{
    AddProperty(order, "Any", "");
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get Any() as Variant|
code|    IF IsObject(mothAny) Then|
code|        Set Any = mothAny|
code|    Else|
code|        Any = mothAny|
code|    End If|
head|End Property|
head:Property|Public Property Set Any(ByVal vData as Variant)|
code|    Set mothAny = vData|
head|End Property|
head:Property|Public Property Let Any(ByVal vData as String)|
code|    mothAny = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, EndASetterWithWhatTheClassHas)
{
    project.TrackPropertyChanges = true;
    AddBuiltInProperty(order, "Modified");
    AddEvent(order, "IsModified");
    AddWriteOnly("City", "String");
    EXPECT_TRUE(Properties().ends_with(R"(
head:Property|Public Property Let City(ByVal vData as String)|
code|    mstrCity = vData|
code|    mblnModified = True|
code|    mblnzCity = True|
code|    RaiseEvent IsModified(Me)|
head|End Property|
)"));
}

TEST_F(ClassProperties, FormatUnconditionallyWithoutTheSwitch)
{
    TTCProperty& property = AddProperty(order, "City", "String");
    property.FormatOnGet = property.FormatOnLet = true;
    property.FormatStringOnGet = ">";
    property.FormatStringOnLet = "<";
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get City() as String|
code|    City = Format(mstrCity, ">")|
head|End Property|
head:Property|Public Property Let City(ByVal vData as String)|
code|    vData = Format(vData, "<")|
code|    mstrCity = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, FormatUnderTheSwitchAndLimitTheLengthEachForItself)
{
    TTCProperty& property = AddProperty(order, "City", "String");
    AddBuiltInProperty(order, "FormatProperties");
    property.FormatOnGet = true;
    property.FormatStringOnGet = ">";
    property.EnforceMaxLength = true;
    property.MaxLength = 20;
    EXPECT_TRUE(Properties().starts_with(R"(
head:Property|Public Property Get City() as String|
code|    If mblnFormatProperties Then|
code|        City = Format(mstrCity, ">")|
code|    Else|
code|        City = mstrCity|
code|    End If|
head|End Property|
head:Property|Public Property Let City(ByVal vData as String)|
code|    If Len(vData) > 20 Then |
code|        vData = Left$(vData, 20)|
code|    End If|
code|    mstrCity = vData|
head|End Property|
)"));
}

TEST_F(ClassProperties, LimitAGuidTo38CharactersAndTheModelKeepsThat)
{
    TTCProperty& property = AddWriteOnly("RowID", "String");
    property.FieldDataType = "GUID";
    property.EnforceMaxLength = true;
    property.MaxLength = 16;
    const std::string expected = R"(
head:Property|Public Property Let RowID(ByVal vData as String)|
code|    If Len(vData) > 38 Then |
code|        vData = Left$(vData, 38)|
code|    End If|
code|    mstrRowID = vData|
head|End Property|
)";
    EXPECT_EQ(Properties(), expected);
    EXPECT_EQ(property.MaxLength, 38);
    property.FieldDataType = "Text";
    EXPECT_EQ(Properties(), expected);
}

TEST_F(ClassProperties, ShowTheMessageOnEveryAssignmentWithoutTheCheck)
{
    TTCProperty& property = AddWriteOnly("City", "String");
    property.DisplayTruncationMessage = true;
    property.MaxLength = 20;
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Let City(ByVal vData as String)|
code|        Msgbox "The maximum length of 'City' is 20 characters. The data has been truncated to fit."|
code|    mstrCity = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, ForTheWebLimitInSilence)
{
    project.MakeWebCompatible = true;
    TTCProperty& property = AddWriteOnly("City", "String");
    property.DisplayTruncationMessage = property.EnforceMaxLength = true;
    property.MaxLength = 20;
    EXPECT_EQ(Properties().find("Msgbox"), std::string::npos);
    EXPECT_NE(Properties().find("Left$(vData, 20)"), std::string::npos);
}

TEST_F(ClassProperties, MarkTheFirstOfTwoDefaultsOnItsGetAlone)
{
    AddProperty(order, "City", "String").DefaultProperty = true;
    AddProperty(order, "Town", "String").DefaultProperty = true;
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get City() as String|
hidden|Attribute City.VB_UserMemId = 0|
code|    City = mstrCity|
head|End Property|
head:Property|Public Property Let City(ByVal vData as String)|
code|    mstrCity = vData|
head|End Property|
head:Property|Public Property Get Town() as String|
code|    Town = mstrTown|
head|End Property|
head:Property|Public Property Let Town(ByVal vData as String)|
code|    mstrTown = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, MarkAWriteOnlyDefaultOnItsFirstSetter)
{
    AddWriteOnly("Any", "Variant").DefaultProperty = true;
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Set Any(ByVal vData as Variant)|
hidden|Attribute Any.VB_UserMemId = 0|
code|    Set mvntAny = vData|
head|End Property|
head:Property|Public Property Let Any(ByVal vData as Variant)|
code|    mvntAny = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, WithoutASetterHaveAFriendWithoutFlagOrEvent)
{
    project.TrackPropertyChanges = true;
    AddEvent(order, "IsModified");
    AddBuiltInProperty(order, "Modified");
    AddReadOnly("City", "String");
    EXPECT_TRUE(Properties().ends_with(R"(
head:Property|Friend Property Let City(ByVal vData as String)|
code|    mstrCity = vData|
code|    mblnModified = True|
head|End Property|
)"));
}

TEST_F(ClassProperties, LeaveTheFriendOfAnObjectOpen)
{
    project.TrackPropertyChanges = true;
    for (const auto& [dataType, declared, prefix] : std::vector<std::array<std::string, 3>>{{"Customer", "Customer", "moth"}, {"", "Variant", "moth"}, {"Variant", "Variant", "mvnt"}}) {
        TTCProperty& property = AddReadOnly("Owner", dataType);
        property.PropertyGet = false;
        EXPECT_EQ(Properties(), "\nhead:Property|Friend Property Set Owner(ByVal vData as " + declared + ")|\ncode|    Set " + prefix + "Owner = vData|\n") << dataType;
        order.TTCProperties.Remove("Owner");
    }
}

TEST_F(ClassProperties, OfAPropertyThatTakesNoPartAreItsLookupFields)
{
    TTCProperty& property = AddProperty(order, "CustomerID", "Long");
    property.AddToClass = false;
    AddLookupField(property, "CustomerName", "String");
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get CustomerName() as String|
code|    CustomerName=mstrCustomerName|
head|End Property|
head:Property|Friend Property Let CustomerName(ByVal vData as String)|
code|    mstrCustomerName = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, TypeALookupFieldAsVariantWhereItsOwnerHasNoType)
{
    TTCProperty& property = AddProperty(order, "CustomerID", "");
    property.AddToClass = false;
    AddLookupField(property, "CustomerName", "String");
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get CustomerName() as Variant|
code|    CustomerName=mstrCustomerName|
head|End Property|
head:Property|Friend Property Let CustomerName(ByVal vData as Variant)|
code|    Set mstrCustomerName = vData|
head|End Property|
)");
}

TEST_F(ClassProperties, OfAnUnknownBuiltInAreNoneNorItsLookupFields)
{
    TTCProperty& property = AddBuiltInProperty(order, "Sorted");
    property.AddToClass = true;
    AddLookupField(property, "SortedBy", "String");
    EXPECT_EQ(Properties(), "\n");
}

TEST_F(ClassProperties, OfTheDeletedMarkTellTheClassWhatItHas)
{
    AddBuiltInProperty(order, "Deleted");
    const std::string bare = Properties();
    EXPECT_NE(bare.find("code|    mblnDeleted = vData|\nhead|End Property|\n"), std::string::npos);
    AddEvent(order, "RecordMarkedForDeletion");
    AddEvent(order, "IsModified");
    EXPECT_NE(Properties().find("code|    If vData = True Then RaiseEvent RecordMarkedForDeletion(Me)|\ncode|    RaiseEvent IsModified(Me)|\n"), std::string::npos);
}

TEST_F(ClassProperties, EndWithChildrenAndKeySetters)
{
    AddClass("Line", "Order");
    AddProperty(order, "No", "Long").AddToClass = false;
    AddProperty(order, "Any", "").AddToClass = false;
    AddKey(order, key_type::kPrimaryKey, {"No", "Any"});
    order.RetrieveByPrimaryKey = true;
    EXPECT_EQ(Properties(), R"(
head:Property|Public Property Get Lines() as Lines|
code|    If mcolLines Is Nothing Then|
code|        Set mcolLines = New Lines|
code|    End If|
code|    Set Lines = mcolLines|
head|End Property|
head:Property|Public Property Set Lines(vData as Lines)|
code|    Set mcolLines = vData|
head|End Property|
head:Property|Friend Property Let SaveNo(ByVal vData as Long)|
code|    pushNo = vData|
head|End Property|
head:Property|Friend Property Let SaveAny(ByVal vData as Variant)|
code|    Set pushAny = vData|
head|End Property|
)");
}

} // namespace
} // namespace veldrane::testing
