#include "shell/main_window/frm_bug.h"

#include "shell/product.h"

#include <algorithm>
#include <array>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kRule = "-------------------------------------------------------------\n";

// "de to" was printed in every report so far.
constexpr auto kCategories = std::to_array<BugCategory>({
    {1, "Invalid code was generated", "Invalid code was generated"},
    {2, "in Class Module", "Invalid code was generated in Class Module"},
    {3, "Header Section (hidden)", "Invalid code was generated in Class Module, Header Section (hidden)"},
    {3, "Variable Declarations Section", "Invalid code was generated in Class Module, Variable Declarations Section"},
    {3, "Property Declaration", "Invalid code was generated in Class Module, Property Declaration"},
    {3, "Method Declaration", "Invalid code was generated in Class Module, Method Declaration"},
    {3, "Event Declaration", "Invalid code was generated in Class Module, Event Declaration"},
    {2, "in Module", "Invalid code was generated in Module"},
    {3, "Function", "Invalid code was generated in Module, Function"},
    {3, "Sub", "Invalid code was generated in Module, Sub"},
    {2, "in Collection Module", "Invalid code was generated in Collection Module"},
    {3, "Header Section (hidden)", "Invalid code was generated in Collection Module, Header Section (hidden)"},
    {3, "Variable Declarations Section",
     "Invalid code was generated in Collection Module, Variable Declarations Section"},
    {3, "Property Declaration", "Invalid code was generated in Collection Module, Property Declaration"},
    {3, "Method Declaration", "Invalid code was generated in Collection Module, Method Declaration"},
    {3, "Event Declaration", "Invalid code was generated in Collection Module, Event Declaration"},
    {2, "in Project File", "Invalid code was generated in Project File"},
    {3, "Object Reference", "Invalid code was generated in Project File, Object Reference"},
    {3, "Class Reference", "Invalid code was generated in Project File, Class Reference"},
    {2, "in Project Group", "Invalid code was generated in Project Group"},
    {1, "Reserved Word Error", "An error occurred de to a reserved word that was allowed to be used."},
    {1, "Runtime Error (Please type the exact error message and when it occurred below)", "A runtime error occurred"},
    {1, "User Interface Error", "User Interface Error"},
    {2, "User Interface", "User Interface"},
    {2, "Invalid Tab Order", "Invalid Tab Order"},
    {1, "Other (Please describe)", "Other"},
});

// A heading, a rule below it, and what stands there with a rule behind.
void AddBlock(std::string& report, std::string_view heading, std::string_view text)
{
    report.append(heading).append("\n").append(kRule);
    report.append(text).append("\n").append(kRule);
}

} // namespace

frmBug::frmBug(std::string title, std::string version) : title_(std::move(title)), version_(std::move(version)) {}

std::span<const BugCategory> frmBug::Categories()
{
    return kCategories;
}

std::string frmBug::Report() const
{
    std::string report;
    AddBlock(report, title_ + " Bug Report", version_);
    AddBlock(report, "Bug Category:", kCategories.at(std::min(cmbCategory, kCategories.size() - 1)).Key);
    AddBlock(report, "Bug Description:", txtDescription);
    AddBlock(report, "Steps to Reproduce:", txtSteps);
    return report;
}

std::string ReportCopiedText()
{
    return std::string(
               "Report has been copied to the clipboard. Please paste the report into an e-mail addressed to ") +
           kSupportAddress + ". Thank you!";
}

} // namespace veldrane
