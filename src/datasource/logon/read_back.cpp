#include "datasource/logon/read_back.h"

#include "datasource/quoted_value.h"
#include "preview/active_parse.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <string>

namespace veldrane {
namespace {

using TextOfPage = std::string LogonPage::*;

// The text that takes a key's value, on each page.
struct KeyTarget
{
    std::string_view Key;
    std::array<TextOfPage, logon_page::kCount> Text;
};

constexpr std::array kTexts{
    KeyTarget{"DATA SOURCE", {nullptr, &LogonPage::txtDatabase, &LogonPage::txtServer}},
    KeyTarget{"UID", {&LogonPage::txtUID, &LogonPage::txtUID, &LogonPage::txtUID}},
    KeyTarget{"USER ID", {&LogonPage::txtUID, &LogonPage::txtUID, &LogonPage::txtUID}},
    KeyTarget{"PWD", {&LogonPage::txtPWD, &LogonPage::txtPWD, &LogonPage::txtPWD}},
    KeyTarget{"INITIAL CATALOG", {nullptr, nullptr, &LogonPage::txtDatabase}},
    KeyTarget{"DBQ", {&LogonPage::txtDatabase, nullptr, nullptr}},
    KeyTarget{"JET OLEDB:DATABASE PASSWORD", {nullptr, &LogonPage::txtDBPassword, nullptr}},
    KeyTarget{"SERVER", {&LogonPage::txtServer, nullptr, &LogonPage::txtServer}},
};

TextOfPage TextFor(std::string_view key, std::size_t pageNumber)
{
    const auto found = std::find_if(kTexts.begin(), kTexts.end(),
                                    [&](const KeyTarget& target) { return text::EqualFolded(target.Key, key); });
    return found == kTexts.end() ? nullptr : found->Text.at(pageNumber);
}

class Reader
{
  public:
    Reader(LogonPage& page, std::size_t pageNumber, const InstalledDrivers& installed, Messages& messages)
        : page_(page), pageNumber_(pageNumber), installed_(installed), messages_(messages)
    {}

    void Read(const ConnectionEntry& entry)
    {
        if (text::EqualFolded(entry.Key, "DATABASE"))
            messages_.Tell("", "This functionality has not been implemented yet.");
        else if (pageNumber_ != logon_page::kJet && text::EqualFolded(entry.Key, "DSN"))
            Select(page_.cmbDSN, foundDSN_, ValueOf(entry));
        else if (pageNumber_ != logon_page::kJet && text::EqualFolded(entry.Key, "DRIVER"))
            Select(page_.cmbDrivers, foundDriver_, ValueOf(entry));
        else if (IsSecondPassword(entry))
            page_.txtDBPassword = entry.Value;
        else if (const TextOfPage text = TextFor(entry.Key, pageNumber_))
            page_.*text = ValueOf(entry);
    }

    void Finish()
    {
        if (pageNumber_ == logon_page::kJet)
            return;
        page_.optUseDSN = foundDSN_;
        if (!foundDSN_ && !foundDriver_)
            page_.cmbDrivers.Selected.reset();
        OfferFileOrServer(page_, page_.DriverName(), installed_);
    }

  private:
    // A name that no row has does not undo what was found before it.
    static void Select(ComboBox& list, bool& found, std::string_view name)
    {
        const auto before = list.Selected;
        if (list.SelectText(name))
            found = true;
        else if (found)
            list.Selected = before;
    }

    // The provider for ODBC takes no quotes off; those that the others would refuse are left to be seen.
    [[nodiscard]] std::string ValueOf(const ConnectionEntry& entry) const
    {
        return pageNumber_ == logon_page::kOdbc ? entry.Value : Unquoted(entry.Value).value_or(entry.Value);
    }

    bool IsSecondPassword(const ConnectionEntry& entry)
    {
        return pageNumber_ == logon_page::kOdbc && text::EqualFolded(entry.Key, "PWD") && ++passwords_ > 1;
    }

    LogonPage& page_;
    std::size_t pageNumber_;
    const InstalledDrivers& installed_;
    Messages& messages_;
    bool foundDSN_ = false;
    bool foundDriver_ = false;
    int passwords_ = 0;
};

} // namespace

std::vector<ConnectionEntry> ReadableEntries(std::string_view text)
{
    if (text.empty())
        return {};
    try {
        return ConnectionString(text).Entries();
    } catch (const DataSourceError&) {
        // Nothing can be opened with it, but its pieces are worth showing to whoever is to mend it.
    }
    std::vector<ConnectionEntry> entries;
    ActiveParse parser;
    for (const Word& part : parser.ParseText(text, ";", DelimiterMode::Whole, CaseRule::Sensitive)) {
        const std::size_t at = std::min(part.Text.find('='), part.Text.size());
        const std::string_view whole = part.Text;
        entries.push_back({.Key = std::string(text::Trim(whole.substr(0, at))),
                           .Value = std::string(text::Trim(whole.substr(std::min(at + 1, whole.size()))))});
    }
    return entries;
}

void ReadBack(LogonPage& page, std::size_t pageNumber, const std::vector<ConnectionEntry>& entries,
              const InstalledDrivers& installed, Messages& messages)
{
    Reader reader(page, pageNumber, installed, messages);
    for (const ConnectionEntry& entry : entries)
        reader.Read(entry);
    reader.Finish();
}

} // namespace veldrane
