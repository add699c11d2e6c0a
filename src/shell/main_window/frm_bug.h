#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace veldrane {

// An entry of the list of categories. Those below one stand behind it, a level deeper.
struct BugCategory
{
    int Level; // 1 for those at the top
    std::string_view Text;
    std::string_view Key; // what the report says
};

// The dialog in which a person describes a defect of the program.
class frmBug
{
  public:
    // The versions of the program and of what it runs on, and the title it goes by.
    frmBug(std::string title, std::string version);

    [[nodiscard]] static std::span<const BugCategory> Categories();

    std::size_t cmbCategory = 0; // the place of the category; one that is not there counts as the last, "Other"
    std::string txtDescription;
    std::string txtSteps;

    // The text for the maker of the program, in lines that end in "\n".
    [[nodiscard]] std::string Report() const;

  private:
    std::string title_;
    std::string version_;
};

// What is told once the report is on the clipboard.
inline constexpr std::string_view kReportCopiedTitle = "Report Copied";
[[nodiscard]] std::string ReportCopiedText();

} // namespace veldrane
