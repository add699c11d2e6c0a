#pragma once

#include "datasource/connection_policy.h"
#include "datasource/logon/providers.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// The one driver of files that wants its path as "DBQ".
inline constexpr std::string_view kAccessDriver = "Microsoft Access Driver (*.mdb)";

struct ComboRow
{
    std::string Key; // "" for none
    std::string Text;
    std::string Icon;
    std::string Tag;
};

// A list of which one row can be chosen.
struct ComboBox
{
    std::vector<ComboRow> Rows;
    std::optional<std::size_t> Selected;

    // Appends the row unless another one has its key, compared without regard to case.
    void Add(ComboRow row);

    // Selects the first row, if there is one.
    void SelectFirst();

    // Selects the first row with the text, compared without regard to case; none if there is no such row. Answers
    // whether there is.
    bool SelectText(std::string_view text);

    [[nodiscard]] const ComboRow* SelectedRow() const { return Selected ? &Rows.at(*Selected) : nullptr; }

    // The text of the selected row, "" if there is none.
    [[nodiscard]] std::string Text() const;

    // The tag of the selected row, "" if there is none.
    [[nodiscard]] std::string Tag() const;
};

// The controls of one page. Pages that have no use for a control leave it alone.
struct LogonPage
{
    bool fraConnectEnabled = true;
    std::string txtDatabase;
    std::string txtUID;
    std::string txtPWD;
    std::string txtServer;
    std::string txtDBPassword;
    ComboBox cmbDSN;
    ComboBox cmbDrivers;
    bool optUseDSN = true; // optDSNLess is on where this is off
    bool cmdBrowseEnabled = true;
    bool txtServerEnabled = true; // its label too

    // The driver that the page stands for: that of the data source or the one selected, as the options have it. "" if
    // there is none.
    [[nodiscard]] std::string DriverName() const { return optUseDSN ? cmbDSN.Tag() : cmbDrivers.Text(); }
};

using LogonPages = std::array<LogonPage, logon_page::kCount>;

// Whether a driver reads files that the person picks, and no server: its name has a file pattern in brackets, or it is
// one for SQLite.
[[nodiscard]] bool IsFileBased(const std::string& driver, const InstalledDrivers& installed);

// Offers a file or a server, whichever the driver reads.
void OfferFileOrServer(LogonPage& page, const std::string& driver, const InstalledDrivers& installed);

} // namespace veldrane
