#include "preview_fixture.h"

namespace veldrane::testing {
namespace {

using RequiredFiles = PreviewTest;

TEST_F(RequiredFiles, OfTheProjectsAreThree)
{
    EXPECT_EQ(Heading(NodeType::RequiredProjects), R"(
head Root|Required Projects|
code|    Shop (Shop.vbp)|
note|            Shop.vbp is the main COM object project file.|
code|    TestShop (TestShop.vbp)  Test Project|
note|            TestShop.vbp is a test project that you can use to try out your new COM Object once it has been generated.|
code|    TestShop (TestShop.vbg)  Project Group|
note|            TestShop.vbg is the project group that contains your COM object project file and your test project file.|
)");
}

TEST_F(RequiredFiles, OfTheModulesAreTheGlobals)
{
    EXPECT_EQ(Heading(NodeType::RequiredModules), R"(
head Module|Required Modules:|
code|    Globals (mGlobals.bas)|
note|            mGlobals.bas is a required module that contains centralized error handling and global variable declarations.|
code||
)");
}

TEST_F(RequiredFiles, OfTheClassesAreTheWrapperAloneWithoutComponentServices)
{
    EXPECT_EQ(Heading(NodeType::RequiredClasses), R"(
head Class|Required Classes:|
code|    Auto (cAuto.cls)|
note|            cAuto.cls is a required class that functions as the central entry point into your COM Object.|
code||
code||
)");
}

TEST_F(RequiredFiles, OfTheClassesHoldTheAssistWithComponentServices)
{
    project.MTSEnabled = true;
    EXPECT_EQ(Heading(NodeType::RequiredClasses), R"(
head Class|Required Classes:|
code|    Auto (cAuto.cls)|
note|            cAuto.cls is a required class that functions as the central entry point into your COM Object.|
code||
code|    xmlAssist.cls (cxmlAssist.cls)|
note|            cxmlAssist.cls is a required class that is used to assist in the creation of an XML document for use with Component Services.|
code||
)");
}

TEST_F(RequiredFiles, AreSummedUp)
{
    project.MTSEnabled = true;
    EXPECT_EQ(Heading(NodeType::RequiredFiles), R"(
head Project|Required Files Summary|
code||
note|The files listed below represent the required files that support|
note|the creation, operation, and testing of your COM Object.|
code||
code ClosedFolder|Required Projects:|
code|    Shop (Shop.vbp)|
note|            Shop.vbp is the main COM object project file.|
code|    TestShop (TestShop.vbp)  Test Project|
note|            TestShop.vbp is a test project that you can use to try out your new COM Object once it has been generated.|
code|    TestShop (TestShop.vbg)  Project Group|
note|            TestShop.vbg is the project group that contains your COM object project file and your test project file.|
code||
code ClosedFolder|Required Modules:|
code|    Globals (mGlobals.bas)|
note|            mGlobals.bas is a required module that contains centralized error handling and global variable declarations.|
code||
code ClosedFolder|Required Classes:|
code|    Auto (cAuto.cls)|
note|            cAuto.cls is a required class that functions as the central entry point into your COM Object.|
code||
code|    xmlAssist.cls (cxmlAssist.cls)|
note|            cxmlAssist.cls is a required class that is used to assist in the creation of an XML document for use with Component Services.|
)");
}

TEST_F(RequiredFiles, AreSummedUpWithoutTheLastEmptyLine)
{
    EXPECT_TRUE(Heading(NodeType::RequiredFiles).ends_with("the central entry point into your COM Object.|\ncode||\n"));
}

} // namespace
} // namespace veldrane::testing
