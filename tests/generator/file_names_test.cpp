#include "generation_fixture.h"
#include "generator/file_names.h"

namespace veldrane::testing {
namespace {

using Texts = std::vector<std::string>;

class FileNames : public GenerationTest
{
  protected:
    [[nodiscard]] std::string Reason() const { return ReasonAgainstNames({project, generation.Settings}, classes).value_or(""); }
    [[nodiscard]] std::vector<std::string> Warnings() const { return WarningsOfSharedNames({project, generation.Settings}, classes); }
};

TEST_F(FileNames, OfAnOrdinaryProjectWillDo)
{
    AddClass("Order").CreateCollection = true;
    project.ClassPrefix = "cls";
    EXPECT_EQ(Reason(), "");
}

TEST_F(FileNames, ThatLeadOutOfTheFolderAreRefusedWithTheirMember)
{
    KZMClass& order = AddClass("Order");
    order.CreateCollection = true;
    const std::vector<std::pair<std::string_view, std::string*>> members{
        {"VBProjectName", &project.VBProjectName},       {"ModulePrefix", &project.ModulePrefix}, {"ClassPrefix", &project.ClassPrefix},
        {"WrapperClassName", &project.WrapperClassName}, {"ClassName", &order.ClassName},         {"CollectionName", &order.CollectionName},
    };
    using namespace std::string_literals;
    const std::vector<std::pair<std::string, std::string>> values{
        {"../evil", "../evil"}, {"a/b", "a/b"}, {"a\\b", "a\\b"}, {"a\0b"s, "a\\x00b"}, {"a\r\nb", "a\\x0D\\x0Ab"}, {"\x7F", "\\x7F"}, {".", "."}, {"..", ".."},
    };
    for (const auto& [name, member] : members)
        for (const auto& [value, shown] : values) {
            const std::string before = *member;
            *member = value;
            EXPECT_EQ(Reason(), std::string(name) + " \"" + shown + "\" can't be part of a file name. Nothing was written.") << name;
            *member = before;
        }
}

TEST_F(FileNames, WithoutAStemAreRefused)
{
    project.WrapperClassName = "";
    EXPECT_EQ(Reason(), "WrapperClassName \"\" gives a file without a name. Nothing was written.");
    project.WrapperClassName = ".Auto";
    EXPECT_EQ(Reason(), "");
    project.WrapperClassName = "";
    project.ClassPrefix = "cls";
    EXPECT_EQ(Reason(), "");
    project.VBProjectName = "";
    EXPECT_EQ(Reason(), "VBProjectName \"\" gives a file without a name. Nothing was written.");
}

TEST_F(FileNames, LongerThanTheFileSystemAllowsAreRefused)
{
    const std::size_t longest = 255 - std::string_view(".cls").size();
    KZMClass& order = AddClass("Order");
    order.ClassName = std::string(longest, 'x');
    EXPECT_EQ(Reason(), "");
    order.ClassName += 'x';
    EXPECT_EQ(Reason(), "ClassName \"" + order.ClassName + "\" makes a file name longer than 255 bytes. Nothing was written.");
}

TEST_F(FileNames, ThatTwoFilesShareAreWarnedOfWithoutRegardToCase)
{
    AddClass("AUTO");
    EXPECT_EQ(Reason(), "");
    EXPECT_EQ(Warnings(), Texts{"ClassName \"AUTO\" gives a second file AUTO.cls: WrapperClassName \"Auto\" gives one already. Give one of them another name."});
}

TEST_F(FileNames, ThatSeveralFilesShareAreWarnedOfOneByOne)
{
    KZMClass& order = AddClass("Order");
    order.CreateCollection = true;
    order.CollectionName = "Auto";
    AddClass("Auto");
    EXPECT_EQ(Warnings(), (Texts{"CollectionName \"Auto\" gives a second file Auto.cls: WrapperClassName \"Auto\" gives one already. Give one of them another name.",
                                 "ClassName \"Auto\" gives a second file Auto.cls: WrapperClassName \"Auto\" gives one already. Give one of them another name."}));
}

TEST_F(FileNames, OfACollectionCountOnlyIfItIsMade)
{
    KZMClass& order = AddClass("Order");
    order.CollectionName = "order";
    EXPECT_EQ(Warnings(), Texts());
    order.CreateCollection = true;
    EXPECT_EQ(Warnings(), Texts{"CollectionName \"order\" gives a second file order.cls: ClassName \"Order\" gives one already. Give one of them another name."});
}

} // namespace
} // namespace veldrane::testing
