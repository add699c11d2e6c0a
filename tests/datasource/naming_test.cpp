#include "datasource/naming.h"

#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

using testing::ScriptedMessages;

TEST(MakeValidName, ReplacesEachDelimiter)
{
    const std::string delimiters = "~`!@#$%^&*()-=+\\|]}[{';:/?.>,< \"";
    ASSERT_EQ(delimiters, kNameDelimiters);
    for (const char delimiter : delimiters)
        EXPECT_EQ(MakeValidName(std::string("a") + delimiter + "b"), "a_b") << delimiter;
}

TEST(MakeValidName, KeepsUnderscoresAndForeignLetters)
{
    EXPECT_EQ(MakeValidName("Größe_2"), "Größe_2");
}

TEST(MakeValidName, AnEmptyNameIsInvalidName)
{
    EXPECT_EQ(MakeValidName(""), "InvalidName");
}

TEST(MakeValidName, PutsALetterBeforeADigit)
{
    EXPECT_EQ(MakeValidName("2004Sales"), "A2004Sales");
}

TEST(MakeValidName, PutsALetterBeforeEveryReservedWordInAnyCase)
{
    for (const std::string word :
         {"AddressOf", "And",    "Array",      "As",      "Attribute",  "Binary",   "Boolean", "ByRef",    "ByVal",
          "Case",      "Class",  "Collection", "Cursor",  "Date",       "DateTime", "Dim",     "Else",     "Empty",
          "End",       "Enum",   "Eqv",        "Error",   "False",      "For",      "Format",  "Friend",   "Function",
          "Get",       "Imp",    "Input",      "Integer", "Is",         "Len",      "Let",     "Like",     "Lock",
          "Long",      "Me",     "Mid",        "Mod",     "New",        "Next",     "Not",     "Nothing",  "Null",
          "On",        "Option", "Optional",   "Or",      "ParamArray", "Print",    "Private", "Property", "Public",
          "Resume",    "Scale",  "Seek",       "Select",  "Set",        "Static",   "Step",    "Stop",     "String",
          "Sub",       "Then",   "Time",       "To",      "True",       "Type",     "VarChar", "With",     "WithEvents",
          "Xor"})
        EXPECT_EQ(MakeValidName(word), "a" + word);
    EXPECT_EQ(MakeValidName("class"), "aclass");
    EXPECT_EQ(MakeValidName("Classes"), "Classes");
}

TEST(MakeValidName, TellsWhatItChanged)
{
    ScriptedMessages messages;
    EXPECT_EQ(MakeValidName("Order Date", messages), "Order_Date");
    ASSERT_EQ(messages.Asked().size(), 1U);
    const Question& told = messages.Asked().front();
    EXPECT_EQ(told.Title, "Invalid Name Detected");
    EXPECT_EQ(told.Text, "The name: 'Order Date' is invalid because it is either a reserved word or contains invalid "
                         "characters. It has been changed to 'Order_Date'");
    EXPECT_EQ(told.Icon, MessageIcon::Information);
    EXPECT_EQ(told.Offered, Buttons::Ok);
}

TEST(MakeValidName, SaysNothingAboutAValidName)
{
    ScriptedMessages messages;
    EXPECT_EQ(MakeValidName("Orders", messages), "Orders");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST(MakeMemberName, DropsUnderscores)
{
    ScriptedMessages messages;
    EXPECT_EQ(MakeMemberName("Order_ID", messages), "OrderID");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST(MakeMemberName, IsNeverEmpty)
{
    ScriptedMessages messages;
    EXPECT_EQ(MakeMemberName("#", messages), "InvalidName");
}

struct Ending
{
    std::string_view Name;
    std::string_view Result;
};

TEST(Singularize, FollowsItsRules)
{
    for (const auto& [name, result] :
         {Ending{"Orders", "Order"}, Ending{"Categories", "Category"}, Ending{"Address", "Address"},
          Ending{"Bus", "Bu"}, Ending{"Status", "Statu"}, Ending{"Pies", "Pie"}, Ending{"CODES", "CODE"},
          Ending{"ENTITIES", "ENTITy"}, Ending{"Us", "Us"}, Ending{"Fish", "Fish"}, Ending{"", ""}, Ending{"Äs", "Äs"},
          Ending{"Öles", "Öle"}})
        EXPECT_EQ(Singularize(name), result) << name;
}

TEST(Pluralize, FollowsItsRules)
{
    for (const auto& [name, result] :
         {Ending{"Order", "Orders"}, Ending{"Category", "Categories"}, Ending{"Day", "Daies"},
          Ending{"Address", "Addresses"}, Ending{"Status", "Status"}, Ending{"CITY", "CITies"},
          Ending{"aClass", "aClasses"}})
        EXPECT_EQ(Pluralize(name), result) << name;
}

TEST(NamesOfTable, AreMadeFromTheCleanedName)
{
    ScriptedMessages messages;
    EXPECT_EQ(ClassNameOfTable("Order_Details", messages), "OrderDetail");
    EXPECT_EQ(CollectionNameOfTable("Order_Details", messages), "OrderDetails");
    EXPECT_EQ(ClassNameOfTable("Categories", messages), "Category");
    EXPECT_EQ(CollectionNameOfTable("Categories", messages), "Categories");
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_EQ(ClassNameOfTable("2004Sales", messages), "A2004Sale");
    EXPECT_EQ(CollectionNameOfTable("2004Sales", messages), "A2004Sales");
}

TEST(NamesOfTable, AnIllegalNameIsToldTwice)
{
    ScriptedMessages messages;
    EXPECT_EQ(ClassNameOfTable("Class", messages), "aClass");
    EXPECT_EQ(CollectionNameOfTable("Class", messages), "aClasses");
    EXPECT_EQ(messages.Asked().size(), 2U);
}

TEST(ArgumentName, TakesItsArticleFromTheFirstLetter)
{
    EXPECT_EQ(ArgumentName("OrderID"), "anOrderID");
    EXPECT_EQ(ArgumentName("orderID"), "anorderID");
    EXPECT_EQ(ArgumentName("CustomerID"), "aCustomerID");
    EXPECT_EQ(ArgumentName("Order Date"), "anOrder_Date");
    EXPECT_EQ(ArgumentName("2nd"), "anA2nd");
}

TEST(FitsProject, NamesTheNameAndTheSetting)
{
    ScriptedMessages messages;
    const text::CodePage codePage;
    EXPECT_TRUE(FitsProject("Größe", codePage, messages));
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_FALSE(FitsProject("Заказы", codePage, messages));
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Text,
              "The name 'Заказы' has letters that code page 1252 lacks, so it can't enter the project. Rename it, or "
              "set another code page with CodePage in the section Platform of the settings.");
}

TEST(FitsProject, KeepsOutNamesThatWouldBreakTheLinesOfAFile)
{
    for (const std::string& name : {std::string("Orders\r\nEnd Class "), std::string("a\2b"), std::string("a\0b", 3),
                                    std::string("a\tb"), std::string("a\x7F")}) {
        ScriptedMessages messages;
        EXPECT_FALSE(FitsProject(name, text::CodePage(), messages)) << name;
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked().front().Text,
                  "The name '" + name + "' has a control character in it, so it can't enter the project. Rename it.");
    }
}

TEST(InvalidNameText, IsWhatMakeValidNameTells)
{
    for (const char* name : {"", "Order Date", "2004", "Print", "a`b\"c"}) {
        testing::ScriptedMessages messages;
        (void)MakeValidName(name, messages);
        ASSERT_EQ(messages.Asked().size(), 1U) << name;
        EXPECT_EQ(InvalidNameText(name), messages.Asked().front().Text);
    }
    EXPECT_EQ(InvalidNameText("OrderDate"), "");
}

TEST(NotWritableText, IsWhatFitsProjectTells)
{
    const text::CodePage codePage;
    for (const char* name : {"Заказы", "a\tb"}) {
        testing::ScriptedMessages messages;
        EXPECT_FALSE(FitsProject(name, codePage, messages));
        EXPECT_EQ(NotWritableText(name, codePage), messages.Asked().front().Text);
    }
    EXPECT_EQ(NotWritableText("Größe", codePage), "");
}

} // namespace
} // namespace veldrane
