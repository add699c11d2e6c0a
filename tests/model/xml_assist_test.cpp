#include "model/xml_assist.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

class XmlAssist : public ::testing::Test
{
  protected:
    TTCProject project_;
    KZMClasses classes_;

    std::shared_ptr<KZMClass> AddOwnClass(const std::string& name)
    {
        auto item = std::make_shared<KZMClass>();
        item->ClassName = name;
        project_.ClassCollectionNames.Add(name, name);
        EXPECT_TRUE(classes_.AddExisting(item, name));
        return item;
    }
};

TEST_F(XmlAssist, IsARequiredClassOnNoTable)
{
    AddXmlAssist(project_, classes_);
    ASSERT_EQ(classes_.Count(), 1U);
    const auto item = classes_.Item("xmlAssist");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->ClassName, "xmlAssist");
    EXPECT_TRUE(item->IsMTSRequiredClass);
    EXPECT_EQ(item->TableName + item->ParentClassName + item->CollectionName, "");
    for (const bool flag : {item->CreateCollection, item->IsDomainTable, item->IncludeAddExisting, item->ReadOnly,
                            item->RetrieveByIdentityCol, item->RetrieveByPrimaryKey, item->CollectionAddNewKey,
                            item->DeleteByIdentityColumn, item->DeleteByPrimaryKey})
        EXPECT_FALSE(flag);
    EXPECT_EQ(item->Enumerations.Count() + item->TTCEvents.Count() + item->TTCRelationships.Count() +
                  item->TTCKeys.Count(),
              0U);
}

TEST_F(XmlAssist, HoldsItsDocumentAsABuiltInProperty)
{
    AddXmlAssist(project_, classes_);
    const auto item = classes_.Item("xmlAssist");
    ASSERT_EQ(item->TTCProperties.Count(), 1U);
    const auto document = item->TTCProperties.Item("Document");
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->PropertyName, "Document");
    EXPECT_EQ(document->DataType, "DOMDocument");
    EXPECT_EQ(document->Scope, "Public");
    EXPECT_TRUE(document->PlusProperty && document->AddToClass);
    EXPECT_EQ(document->FieldName + document->FieldDataType + document->LookupTable, "");
}

TEST_F(XmlAssist, HasTwoBuiltInMethods)
{
    AddXmlAssist(project_, classes_);
    std::vector<std::string> names;
    for (const TTCMethod& method : classes_.Item("xmlAssist")->TTCMethods) {
        names.push_back(method.MethodName);
        EXPECT_TRUE(method.PlusMethod) << method.MethodName;
        EXPECT_EQ(method.Scope, "Public") << method.MethodName;
        EXPECT_FALSE(method.DefaultMethod || method.MethodIsSP) << method.MethodName;
    }
    EXPECT_THAT(names, ElementsAre("AddElement", "AddAttribute"));
}

TEST_F(XmlAssist, TakesTheNamesOfItsMembers)
{
    AddXmlAssist(project_, classes_);
    TTCMembers& members = classes_.Item("xmlAssist")->TTCMembers;
    EXPECT_EQ(members.Count(), 3U);
    for (const auto* name : {"document", "addelement", "addattribute"})
        EXPECT_EQ(members.Add(name, name), nullptr) << name;
}

TEST_F(XmlAssist, TakesAndFreesItsNameInTheProject)
{
    AddXmlAssist(project_, classes_);
    ASSERT_TRUE(project_.ClassCollectionNames.ClassNameExists("XMLASSIST"));
    EXPECT_EQ(project_.ClassCollectionNames.Item("xmlAssist")->ClassCollectionName, "xmlAssist");
    RemoveXmlAssist(project_, classes_);
    EXPECT_FALSE(project_.ClassCollectionNames.ClassNameExists("xmlAssist"));
    EXPECT_EQ(classes_.Count(), 0U);
}

TEST_F(XmlAssist, IsAnnouncedLikeAnyClassOnce)
{
    std::vector<std::string> announced;
    const Connection listener =
        classes_.NewClassAdded.Connect([&](const std::string& name) { announced.push_back(name); });
    EXPECT_TRUE(AddXmlAssist(project_, classes_));
    EXPECT_TRUE(AddXmlAssist(project_, classes_));
    EXPECT_THAT(announced, ElementsAre("xmlAssist"));
    EXPECT_EQ(classes_.Count(), 1U);
    EXPECT_EQ(project_.ClassCollectionNames.Count(), 1U);
}

TEST_F(XmlAssist, ComesAfterTheClassesThatAreThereAndLeavesThemWhenItGoes)
{
    AddOwnClass("Order");
    AddXmlAssist(project_, classes_);
    EXPECT_EQ(classes_.Item(2)->ClassName, "xmlAssist");
    RemoveXmlAssist(project_, classes_);
    RemoveXmlAssist(project_, classes_);
    EXPECT_EQ(classes_.Count(), 1U);
    EXPECT_TRUE(classes_.Contains("Order"));
    EXPECT_TRUE(project_.ClassCollectionNames.ClassNameExists("Order"));
    AddXmlAssist(project_, classes_);
    EXPECT_TRUE(classes_.Contains("xmlAssist"));
}

TEST_F(XmlAssist, NeitherReplacesNorTakesAwayAClassOfTheUsersThatHasItsName)
{
    const auto own = AddOwnClass("XMLAssist");
    EXPECT_FALSE(AddXmlAssist(project_, classes_));
    EXPECT_EQ(classes_.Item("xmlAssist"), own);
    EXPECT_EQ(classes_.Count(), 1U);
    RemoveXmlAssist(project_, classes_);
    EXPECT_EQ(classes_.Item("xmlAssist"), own);
    EXPECT_TRUE(project_.ClassCollectionNames.ClassNameExists("xmlAssist"));
}

TEST_F(XmlAssist, IsNotAddedUnderANameThatACollectionHas)
{
    const auto own = AddOwnClass("Helper");
    own->CreateCollection = true;
    own->CollectionName = "xmlAssist";
    project_.ClassCollectionNames.Add("xmlAssist", "xmlAssist");
    EXPECT_FALSE(AddXmlAssist(project_, classes_));
    EXPECT_FALSE(classes_.Contains("xmlAssist"));
    RemoveXmlAssist(project_, classes_);
    EXPECT_TRUE(project_.ClassCollectionNames.ClassNameExists("xmlAssist"));
}

} // namespace
} // namespace veldrane
