#pragma once

#include "model/signal.h"
#include "ports/error_report.h"
#include "ports/messages.h"
#include "ports/settings.h"
#include "shell/main_window/frm_warning.h"
#include "shell/main_window/look_dialogs.h"
#include "shell/main_window/preview_look.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane {

// The main window, as it takes up options that have been stored.
class OptionsOwner
{
  public:
    virtual ~OptionsOwner() = default;

    virtual void ApplyPreviewFont(const PreviewFont& font) = 0;
    virtual void DisplayDataSourceTables() = 0; // with the limits that stand in the settings now
    virtual void ApplyPreviewBackground(Color background) = 0;
    virtual void ApplyPreviewColors(const LineColors& colors) = 0;
    virtual void DisplaySelectedPreview() = 0; // of the tree's selected node, in the new colours
};

// What the dialog works with. All must outlive it.
struct OptionsPorts
{
    RegistryAccess& Registry;
    Messages& Asking;
    ErrorReport& Errors;
    LookDialogs& Dialogs;
    frmWarning& Warning;
};

// An entry of the two boxes that limit the lists.
struct LimitEntry
{
    std::string_view Key; // ":" and the number
    std::string_view Text;
    std::string_view TextOfProcedures = Text;
};

// -1 lists no table of the data source, 0 all of them.
inline constexpr auto kLimitEntries = std::to_array<LimitEntry>({
    {":-1", "None: I name my tables", "None"},
    {":0", "All"},
    {":50", "50"},
    {":100", "100"},
    {":250", "250"},
    {":500", "500"},
    {":1000", "1000"},
    {":2000", "2000"},
    {":5000", "5000"},
    {":10000", "10000"},
});

// The colours that a person may choose, in the order in which they are stored.
enum class OptionColor
{
    Background,
    Code,
    Header,
    Hidden,
    Comment,
    Key,
    Error,
};

// A row of the list of help messages.
struct HelpMessageRow
{
    std::string_view About;
    bool Shown;
};

// The user's settings that belong to no project. What is changed here counts when OK is pressed and not before, but
// for ResetMessages.
class frmOptions
{
  public:
    // Loads the controls from the settings. The background is the one that the preview shows, unless the settings have
    // one under a name that nothing writes: OK stores it under another. A value that is not of its kind is told.
    frmOptions(const OptionsPorts& ports, OptionsOwner& owner, const PreviewLook& shown);

    bool chkDontShowStartupDialog = false;
    bool chkShowSystemTables = false;
    std::string cmbMaxTablesToDisplay; // the key of the entry selected
    std::string cmbMaxProcsToDisplay;

    [[nodiscard]] Color Shown(OptionColor which) const;
    [[nodiscard]] const PreviewFont& Font() const { return font_; }

    // Runs the standard dialog from the colour shown; Cancel leaves it.
    void ChooseColor(OptionColor which);

    // The colour that its reset button sets; nothing for a colour that has none.
    [[nodiscard]] static std::optional<Color> ResetValue(OptionColor which);
    void ResetColor(OptionColor which);

    void ChooseFont();
    void ResetFont() { font_ = PreviewFont{}; }

    // The font's name alone, for whoever wants its letters in columns.
    void UseFontNamed(std::string name) { font_.Name = std::move(name); }

    [[nodiscard]] std::vector<HelpMessageRow> HelpMessages() const;

    // Has all help messages shown again, at once, and tells so by one of them. A failure is reported.
    void ResetMessages();

    Signal<> HelpMessagesChanged; // before it is told

    // Stores everything, then has the owner take it up. False if it can't be stored, which is reported: the owner is
    // left alone then, and the dialog is to stay.
    [[nodiscard]] bool OK();

  private:
    [[nodiscard]] Color& ColorOf(OptionColor which);
    void Store();
    void Apply();

    OptionsPorts ports_;
    OptionsOwner& owner_;
    Color background_;
    LineColors colors_;
    PreviewFont font_;
};

} // namespace veldrane
