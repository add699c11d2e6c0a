#include "datasource/logon/logon_page.h"

#include "text/case_folding.h"

#include <algorithm>
#include <utility>

namespace veldrane {

void ComboBox::Add(ComboRow row)
{
    const bool isTaken = !row.Key.empty() && std::any_of(Rows.begin(), Rows.end(), [&](const ComboRow& other) {
        return text::EqualFolded(other.Key, row.Key);
    });
    if (!isTaken)
        Rows.push_back(std::move(row));
}

void ComboBox::SelectFirst()
{
    if (!Rows.empty())
        Selected = 0;
}

bool ComboBox::SelectText(std::string_view text)
{
    const auto found =
        std::find_if(Rows.begin(), Rows.end(), [&](const ComboRow& row) { return text::EqualFolded(row.Text, text); });
    Selected.reset();
    if (found == Rows.end())
        return false;
    Selected = static_cast<std::size_t>(found - Rows.begin());
    return true;
}

std::string ComboBox::Text() const
{
    const ComboRow* row = SelectedRow();
    return row == nullptr ? "" : row->Text;
}

std::string ComboBox::Tag() const
{
    const ComboRow* row = SelectedRow();
    return row == nullptr ? "" : row->Tag;
}

bool IsFileBased(const std::string& driver, const InstalledDrivers& installed)
{
    return driver.find('(') != std::string::npos || ProfileOfDriver(driver, installed).DatabaseIsFile;
}

void OfferFileOrServer(LogonPage& page, const std::string& driver, const InstalledDrivers& installed)
{
    page.cmdBrowseEnabled = IsFileBased(driver, installed);
    page.txtServerEnabled = !page.cmdBrowseEnabled;
}

} // namespace veldrane
