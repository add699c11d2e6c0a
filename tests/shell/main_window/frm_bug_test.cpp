#include "shell/main_window/frm_bug.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <vector>

namespace veldrane {
namespace {

using ::testing::HasSubstr;

std::size_t PlaceOf(std::string_view text)
{
    const auto categories = frmBug::Categories();
    for (std::size_t place = 0; place < categories.size(); ++place)
        if (categories[place].Text == text)
            return place;
    return categories.size();
}

TEST(Bug, ReportsInBlocks)
{
    frmBug form("Veldrane", "Version 1");
    form.cmbCategory = PlaceOf("Reserved Word Error");
    form.txtDescription = "It went wrong.";
    form.txtSteps = "Click.\nClick again.";
    EXPECT_EQ(form.Report(), "Veldrane Bug Report\n"
                             "-------------------------------------------------------------\n"
                             "Version 1\n"
                             "-------------------------------------------------------------\n"
                             "Bug Category:\n"
                             "-------------------------------------------------------------\n"
                             "An error occurred de to a reserved word that was allowed to be used.\n"
                             "-------------------------------------------------------------\n"
                             "Bug Description:\n"
                             "-------------------------------------------------------------\n"
                             "It went wrong.\n"
                             "-------------------------------------------------------------\n"
                             "Steps to Reproduce:\n"
                             "-------------------------------------------------------------\n"
                             "Click.\nClick again.\n"
                             "-------------------------------------------------------------\n");
}

TEST(Bug, ReportsTheKeyOfTheCategory)
{
    const std::map<std::string, std::string> keys{
        {"Runtime Error (Please type the exact error message and when it occurred below)", "A runtime error occurred"},
        {"Other (Please describe)", "Other"},
        {"Invalid Tab Order", "Invalid Tab Order"},
        {"in Project Group", "Invalid code was generated in Project Group"},
    };
    for (const auto& [text, key] : keys) {
        frmBug form("Veldrane", "Version 1");
        form.cmbCategory = PlaceOf(text);
        EXPECT_THAT(form.Report(), HasSubstr("\n" + key + "\n")) << text;
    }
}

TEST(Bug, ACategoryThatIsNotThereIsTheLast)
{
    frmBug form("Veldrane", "Version 1");
    form.cmbCategory = static_cast<std::size_t>(-1);
    EXPECT_THAT(form.Report(), HasSubstr("\nOther\n"));
}

TEST(Bug, EveryCategoryHasAKeyOfItsOwnAndStandsOneLevelDeeperAtMost)
{
    std::set<std::string_view> keys;
    int before = 0;
    for (const BugCategory& category : frmBug::Categories()) {
        EXPECT_TRUE(keys.insert(category.Key).second) << category.Key;
        EXPECT_LE(category.Level, before + 1) << category.Key;
        before = category.Level;
    }
}

TEST(Bug, TellsWhereToSendTheReport)
{
    EXPECT_EQ(kReportCopiedTitle, "Report Copied");
    EXPECT_EQ(ReportCopiedText(), "Report has been copied to the clipboard. Please paste the report into an e-mail "
                                  "addressed to support@quillmere.example. Thank you!");
}

} // namespace
} // namespace veldrane
