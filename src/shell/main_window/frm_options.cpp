#include "shell/main_window/frm_options.h"

#include "shell/main_window/help_messages.h"
#include "shell/preview_colors.h"
#include "shell/stored_options.h"
#include "text/characters.h"
#include "text/conversion.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <algorithm>
#include <cstddef>

namespace veldrane {
namespace {

constexpr std::string_view kForm = "frmOptions";

constexpr std::string_view kDontShowStartupDialog = "DontShowStartupDialog";
constexpr std::string_view kShowSystemTables = "ShowSystemTables";
constexpr std::string_view kMaxTablesToDisplay = "MaxTablesToDisplay";
constexpr std::string_view kMaxProcsToDisplay = "MaxProcsToDisplay";

// Nothing writes it: OK stores the background under the name that the main window reads.
constexpr std::string_view kUnwrittenBackground = "PreviewPaneBackColor";

constexpr std::string_view kUnknownLimit = ":2000";

constexpr const char* kAllAreShownAgain =
    "All help messages will be shown again.\r\n\r\n"
    "If you do not want to see one of them any more, click 'Do not show this message again' in its window before you "
    "click 'OK'.";

bool IsChecked(const RegistryAccess& registry, std::string_view name)
{
    return text::Trim(registry.GetKeyValue(settings_section::kOptions, name)) == "1";
}

std::string_view CheckText(bool checked)
{
    return checked ? "1" : "0";
}

std::string KeyOf(std::string_view number)
{
    try {
        return ":" + std::to_string(text::ToLong(number));
    } catch (const RuntimeError&) {
        return {};
    }
}

std::string_view SelectedLimit(const RegistryAccess& registry, std::string_view name)
{
    const std::string key = KeyOf(registry.GetKeyValue(settings_section::kOptions, name));
    const auto* const entry = std::find_if(kLimitEntries.begin(), kLimitEntries.end(),
                                           [&](const LimitEntry& candidate) { return candidate.Key == key; });
    return entry == kLimitEntries.end() ? kUnknownLimit : entry->Key;
}

struct TextColor
{
    Color LineColors::*Member;
    std::optional<Color> Reset;
};

// In the order of OptionColor, behind the background. Four colours have a reset button, three have none: on purpose.
constexpr auto kTextColors = std::to_array<TextColor>({
    {&LineColors::ColorCode, 0},
    {&LineColors::ColorHeader, 0xFF0000},
    {&LineColors::ColorHidden, static_cast<Color>(0x80000011U)},
    {&LineColors::ColorComment, std::nullopt},
    {&LineColors::ColorKey, std::nullopt},
    {&LineColors::ColorError, std::nullopt},
});
static_assert(kTextColors.size() == static_cast<std::size_t>(OptionColor::Error));

const TextColor& TextColorOf(OptionColor which)
{
    return kTextColors.at(static_cast<std::size_t>(which) - 1);
}

} // namespace

frmOptions::frmOptions(const OptionsPorts& ports, OptionsOwner& owner, const PreviewLook& shown)
    : chkDontShowStartupDialog(IsChecked(ports.Registry, kDontShowStartupDialog)),
      chkShowSystemTables(IsChecked(ports.Registry, kShowSystemTables)),
      cmbMaxTablesToDisplay(SelectedLimit(ports.Registry, kMaxTablesToDisplay)),
      cmbMaxProcsToDisplay(SelectedLimit(ports.Registry, kMaxProcsToDisplay)), ports_(ports), owner_(owner),
      background_(StoredOptions(ports.Registry, ports.Asking).ColorOf(kUnwrittenBackground, shown.Background)),
      colors_(ReadPreviewColors(ports.Registry, ports.Asking)), font_(ReadPreviewFont(ports.Registry, ports.Asking))
{}

Color frmOptions::Shown(OptionColor which) const
{
    return which == OptionColor::Background ? background_ : colors_.*TextColorOf(which).Member;
}

Color& frmOptions::ColorOf(OptionColor which)
{
    return which == OptionColor::Background ? background_ : colors_.*TextColorOf(which).Member;
}

void frmOptions::ChooseColor(OptionColor which)
{
    Color& color = ColorOf(which);
    color = ports_.Dialogs.AskForColor(color).value_or(color);
}

std::optional<Color> frmOptions::ResetValue(OptionColor which)
{
    return which == OptionColor::Background ? kDefaultPreviewBackground : TextColorOf(which).Reset;
}

void frmOptions::ResetColor(OptionColor which)
{
    Color& color = ColorOf(which);
    color = ResetValue(which).value_or(color);
}

void frmOptions::ChooseFont()
{
    font_ = ports_.Dialogs.AskForFont(font_).value_or(font_);
}

std::vector<HelpMessageRow> frmOptions::HelpMessages() const
{
    std::vector<HelpMessageRow> rows;
    rows.reserve(kHelpMessages.size());
    for (const HelpMessage& message : kHelpMessages)
        rows.push_back({.About = message.About, .Shown = IsShown(message, ports_.Registry)});
    return rows;
}

void frmOptions::ResetMessages()
{
    const bool reset =
        Guarded(ports_.Errors, kForm, "cmdResetMessages_Click", [this] { ResetHelpMessages(ports_.Registry); });
    HelpMessagesChanged.Raise(); // some of them even where it failed
    if (reset)
        ports_.Warning.DisplayWarning(kAllAreShownAgain, warning_id::kHelpMessages);
}

bool frmOptions::OK()
{
    if (!Guarded(ports_.Errors, kForm, "cmdOK_Click", [this] { Store(); }))
        return false;
    Apply();
    return true;
}

void frmOptions::Store()
{
    const auto store = [this](std::string_view name, std::string_view value) {
        ports_.Registry.UpdateKey(settings_section::kOptions, name, value);
    };
    store(kDontShowStartupDialog, CheckText(chkDontShowStartupDialog));
    store(kShowSystemTables, CheckText(chkShowSystemTables));
    store(kMaxTablesToDisplay, text::From(cmbMaxTablesToDisplay, 2));
    store(kMaxProcsToDisplay, text::From(cmbMaxProcsToDisplay, 2));
    WritePreviewBackground(ports_.Registry, background_);
    WritePreviewColors(ports_.Registry, colors_);
    WritePreviewFont(ports_.Registry, font_);
}

void frmOptions::Apply()
{
    owner_.ApplyPreviewFont(font_);
    owner_.DisplayDataSourceTables();
    owner_.ApplyPreviewBackground(background_);
    owner_.ApplyPreviewColors(colors_);
    owner_.DisplaySelectedPreview();
}

} // namespace veldrane
