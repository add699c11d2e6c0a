#include "shell/main_window/watched_catalog.h"

#include "support/fake_catalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class WatchedCatalogTest : public ::testing::Test
{
  protected:
    WatchedCatalogTest()
    {
        auto source = std::make_unique<testing::FakeCatalog>();
        source_ = source.get();
        source->Answering = [this](const std::string& call) { heard_.push_back("  " + call); };
        auto& orders = source->Add("Orders");
        orders.Fields = {testing::IdentityField("ID")};
        orders.Indexes = {testing::PrimaryIndex({"ID"})};
        orders.Keys = {testing::ForeignKey("FK", "Shops", {{"Shop", "ID"}})};
        source->ProcedureNames = {"GetTotals"};
        source->Hidden = {"Secrets"};
        source->Parameters = {{.ProcedureName = "GetTotals"}};
        behind_ = std::move(source);
        catalog_ = std::make_unique<WatchedCatalog>(
            [this]() -> std::unique_ptr<Catalog> {
                heard_.emplace_back("  open");
                return std::move(behind_);
            },
            [this](const std::function<void()>& read) {
                heard_.emplace_back("begin");
                read();
                heard_.emplace_back("end");
            });
    }

    std::unique_ptr<testing::FakeCatalog> behind_; // until it is opened
    testing::FakeCatalog* source_ = nullptr;
    std::vector<std::string> heard_;
    std::unique_ptr<WatchedCatalog> catalog_;
};

TEST_F(WatchedCatalogTest, EachQuestionIsAReadingOfItsOwn)
{
    static_cast<void>(catalog_->Fields("SELECT * FROM Orders WHERE 1=0"));
    static_cast<void>(catalog_->Indexes("Orders"));
    EXPECT_THAT(heard_, ElementsAre("begin", "  open", "end", "begin", "  Fields", "end", "begin", "  Indexes", "end"));
}

TEST_F(WatchedCatalogTest, AnswersAsTheCatalogBehindItDoes)
{
    EXPECT_EQ(&catalog_->Tables(), &source_->Listed);
    EXPECT_THAT(catalog_->Fields("SELECT * FROM Orders WHERE 1=0"), SizeIs(1));
    EXPECT_THAT(catalog_->Columns("Orders"), SizeIs(1));
    EXPECT_THAT(catalog_->Indexes("Orders"), SizeIs(1));
    EXPECT_THAT(catalog_->Keys("Orders"), SizeIs(1));
    EXPECT_THAT(catalog_->HiddenTables(), ElementsAre("Secrets"));
    EXPECT_THAT(catalog_->Procedures(), ElementsAre("GetTotals"));
    EXPECT_THAT(catalog_->ProcedureParameters(), SizeIs(1));
}

TEST_F(WatchedCatalogTest, IsOpenedOnceAndNotBeforeItIsAsked)
{
    EXPECT_THAT(heard_, ElementsAre());
    catalog_->Open();
    EXPECT_THAT(heard_, ElementsAre("begin", "  open", "end"));
    static_cast<void>(catalog_->Procedures());
    EXPECT_THAT(heard_, ElementsAre("begin", "  open", "end", "begin", "  Procedures", "end"));
}

TEST_F(WatchedCatalogTest, AFailureGoesOnToWhoeverAsked)
{
    EXPECT_THROW(static_cast<void>(catalog_->Columns("Gone")), DataSourceError);
}

} // namespace
} // namespace veldrane
