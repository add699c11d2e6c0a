#include "model/classes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Classes : public ::testing::Test
{
  protected:
    KZMClasses classes_;
    std::vector<std::string> events_;
    Connection added_ = classes_.NewClassAdded.Connect([&](const auto& name) { events_.push_back(name); });
    Connection renamed_ = classes_.ClassNameChanged.Connect(
        [&](const auto& before, const auto& after) { events_.push_back(before + " to " + after); });

    std::shared_ptr<KZMClass> Add(const std::string& name)
    {
        auto item = std::make_shared<KZMClass>();
        item->ClassName = name;
        EXPECT_TRUE(classes_.AddExisting(item, name));
        return item;
    }

    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const KZMClass& item : classes_)
            names.push_back(item.ClassName);
        return names;
    }
};

TEST_F(Classes, AnnounceAClassByItsName)
{
    Add("Order");
    const auto unnamed = std::make_shared<KZMClass>();
    unnamed->ClassName = "Loose";
    EXPECT_TRUE(classes_.AddExisting(unnamed, ""));
    EXPECT_THAT(events_, ElementsAre("Order", "Loose"));
    EXPECT_EQ(classes_.Item("Loose"), nullptr);
    EXPECT_EQ(classes_.Item(2), unnamed);
}

TEST_F(Classes, AreSilentAboutADuplicate)
{
    Add("Order");
    EXPECT_FALSE(classes_.AddExisting(std::make_shared<KZMClass>(), "ORDER"));
    EXPECT_THAT(events_, ElementsAre("Order"));
    EXPECT_EQ(classes_.Count(), 1U);
}

TEST_F(Classes, AnnounceNothingWhileAProjectIsLoading)
{
    classes_.LoadingProject = true;
    Add("Order");
    EXPECT_EQ(classes_.Count(), 1U);
    EXPECT_THAT(events_, IsEmpty());
}

TEST_F(Classes, MoveARenamedClassToTheEnd)
{
    const auto order = Add("Order");
    Add("Customer");
    Add("Item");
    events_.clear();
    EXPECT_TRUE(classes_.ChangeClassName(order, "Order", "Purchase"));
    EXPECT_THAT(events_, ElementsAre("Order to Purchase"));
    EXPECT_THAT(Names(), ElementsAre("Customer", "Item", "Order")); // whoever renames sets the name itself
    EXPECT_EQ(classes_.Item("purchase"), order);
    EXPECT_EQ(classes_.Item("Order"), nullptr);
}

TEST_F(Classes, AreUnchangedByANameInUse)
{
    const auto order = Add("Order");
    Add("Customer");
    events_.clear();
    EXPECT_FALSE(classes_.ChangeClassName(order, "Order", "CUSTOMER"));
    EXPECT_FALSE(classes_.ChangeClassName(order, "Order", "ORDER"));
    EXPECT_THAT(events_, IsEmpty());
    EXPECT_THAT(Names(), ElementsAre("Order", "Customer"));
    EXPECT_EQ(classes_.Item("Order"), order);
}

TEST_F(Classes, CanBeCleared)
{
    Add("Order");
    classes_.Clear();
    EXPECT_EQ(classes_.Count(), 0U);
    Add("Order");
}

} // namespace
} // namespace veldrane
