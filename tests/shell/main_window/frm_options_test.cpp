#include "shell/main_window/frm_options.h"

#include "recorded_options_owner.h"
#include "scripted_look_dialogs.h"
#include "support/memory_settings.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>

#include <utility>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr auto kAllColors = std::to_array<OptionColor>({
    OptionColor::Background,
    OptionColor::Code,
    OptionColor::Header,
    OptionColor::Hidden,
    OptionColor::Comment,
    OptionColor::Key,
    OptionColor::Error,
});

// Settings in memory whose n-th write fails.
class BreakingSettings : public testing::MemorySettings
{
  public:
    void SaveSetting(std::string_view section, std::string_view name, std::string_view value) override
    {
        if (++Writes == FailAtWrite)
            throw RuntimeError(error_number::kPathAccess, "Settings", "/settings.ini: No space left on device");
        MemorySettings::SaveSetting(section, name, value);
    }

    int FailAtWrite = 0; // 1 for the first; 0 for never
    int Writes = 0;
};

struct Options : ::testing::Test
{
    frmOptions Load() { return {{settings, messages, errors, dialogs, warning}, owner, shown}; }

    void Store(std::string_view name, std::string_view value) { settings.SaveSetting("Options", name, value); }

    BreakingSettings settings;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    testing::ScriptedLookDialogs dialogs;
    std::vector<std::string> warned;
    frmWarning warning{settings, errors, [this](frmWarning& form) { warned.push_back(form.lblMessage()); }};
    testing::RecordedOptionsOwner owner;
    PreviewLook shown;
};

TEST_F(Options, HaveTheirDefaultsWhereNothingIsSet)
{
    const frmOptions form = Load();
    EXPECT_FALSE(form.chkDontShowStartupDialog);
    EXPECT_FALSE(form.chkShowSystemTables);
    EXPECT_EQ(form.cmbMaxTablesToDisplay, ":2000");
    EXPECT_EQ(form.cmbMaxProcsToDisplay, ":2000");
    EXPECT_EQ(form.Font(), PreviewFont{});
    std::vector<Color> colors;
    for (const OptionColor which : kAllColors)
        colors.push_back(form.Shown(which));
    EXPECT_THAT(colors, ElementsAre(0xFEF8F3, 0, 0xFF0000, static_cast<Color>(0x80000011U), 0x8000, 0x8080, 0xFF));
    EXPECT_THAT(messages.Asked(), IsEmpty());
    EXPECT_EQ(settings.Writes, 0);
}

TEST_F(Options, ShowWhatIsStored)
{
    Store("DontShowStartupDialog", "1");
    Store("ShowSystemTables", "1");
    Store("MaxTablesToDisplay", "-1");
    Store("MaxProcsToDisplay", "0");
    Store("PreviewPaneCodeTextColor", "7");
    Store("PreviewPaneErrorTextColor", "-2147483640");
    Store("PreviewPaneFontName", "Courier");
    Store("PreviewPaneFontSize", "11");
    const frmOptions form = Load();
    EXPECT_TRUE(form.chkDontShowStartupDialog);
    EXPECT_TRUE(form.chkShowSystemTables);
    EXPECT_EQ(form.cmbMaxTablesToDisplay, ":-1");
    EXPECT_EQ(form.cmbMaxProcsToDisplay, ":0");
    EXPECT_EQ(form.Shown(OptionColor::Code), 7);
    EXPECT_EQ(form.Shown(OptionColor::Error), static_cast<Color>(0x80000008U));
    EXPECT_EQ(form.Font(), (PreviewFont{.Name = "Courier", .Size = 11}));
}

TEST_F(Options, ShowTwoThousandForALimitThatFitsNoEntry)
{
    for (const char* value : {"3000", "7", "-2", "", " ", "many", "99999999999"}) {
        Store("MaxTablesToDisplay", value);
        Store("MaxProcsToDisplay", value);
        const frmOptions form = Load();
        EXPECT_EQ(form.cmbMaxTablesToDisplay, ":2000") << value;
        EXPECT_EQ(form.cmbMaxProcsToDisplay, ":2000") << value;
    }
}

TEST_F(Options, OfferEachLimitUnderItsNumber)
{
    for (const LimitEntry& entry : kLimitEntries) {
        Store("MaxTablesToDisplay", entry.Key.substr(1));
        EXPECT_EQ(Load().cmbMaxTablesToDisplay, entry.Key);
    }
}

TEST_F(Options, TakeTheBackgroundThatIsShownAndNotTheOneThatIsStored)
{
    shown.Background = 0x112233;
    Store("PreviewBackgroundColor", "1");
    EXPECT_EQ(Load().Shown(OptionColor::Background), 0x112233);
    Store("PreviewPaneBackColor", "2");
    EXPECT_EQ(Load().Shown(OptionColor::Background), 2);
}

TEST_F(Options, AreStoredInTheirOrder)
{
    frmOptions form = Load();
    form.chkShowSystemTables = true;
    form.cmbMaxTablesToDisplay = ":-1";
    form.UseFontNamed("Monospace");
    EXPECT_TRUE(form.OK());
    EXPECT_THAT(
        settings.GetAllSettings("Options"),
        ElementsAre(Pair("DontShowStartupDialog", "0"), Pair("ShowSystemTables", "1"), Pair("MaxTablesToDisplay", "-1"),
                    Pair("MaxProcsToDisplay", "2000"), Pair("PreviewBackgroundColor", "16709875"),
                    Pair("PreviewPaneCodeTextColor", "0"), Pair("PreviewPaneHeaderTextColor", "16711680"),
                    Pair("PreviewPaneHiddenTextColor", "-2147483631"), Pair("PreviewPaneCommentTextColor", "32768"),
                    Pair("PreviewPaneKeyTextColor", "32896"), Pair("PreviewPaneErrorTextColor", "255"),
                    Pair("PreviewPaneFontName", "Monospace"), Pair("PreviewPaneFontSize", "8"),
                    Pair("PreviewPaneFontBold", "False"), Pair("PreviewPaneFontItalic", "False")));
}

TEST_F(Options, AreTakenUpInTheirOrderOnceTheyAreStored)
{
    frmOptions form = Load();
    dialogs.ColorChosen = 5;
    form.ChooseColor(OptionColor::Key);
    EXPECT_THAT(owner.Told, IsEmpty());
    EXPECT_TRUE(form.OK());
    EXPECT_THAT(owner.Told, ElementsAre("font Tahoma", "lists", "background 16709875", "colours", "preview"));
    EXPECT_EQ(owner.Colors.ColorKey, 5);
    EXPECT_EQ(owner.Colors.ColorHeader, 0xFF0000);
}

TEST_F(Options, AreLostWithoutOK)
{
    {
        frmOptions form = Load();
        dialogs.ColorChosen = 5;
        for (const OptionColor which : kAllColors)
            form.ChooseColor(which);
        form.chkShowSystemTables = true;
    }
    EXPECT_EQ(settings.Writes, 0);
    EXPECT_THAT(owner.Told, IsEmpty());
}

TEST_F(Options, ThatCanNotBeStoredAreReportedOnceAndNotTakenUp)
{
    for (int write = 1; write <= 15; ++write) {
        errors.Reported.clear();
        settings.Writes = 0;
        settings.FailAtWrite = write;
        frmOptions form = Load();
        EXPECT_FALSE(form.OK());
        EXPECT_EQ(settings.Writes, write);
        ASSERT_EQ(errors.Reported.size(), 1U);
        EXPECT_EQ(errors.Reported.front().Place.ModuleName, "frmOptions");
        EXPECT_EQ(errors.Reported.front().Place.RoutineName, "cmdOK_Click");
        EXPECT_THAT(owner.Told, IsEmpty());
    }
}

TEST_F(Options, StayAsTheyAreShownAfterAFailedOK)
{
    settings.FailAtWrite = 3;
    frmOptions form = Load();
    form.chkShowSystemTables = true;
    form.UseFontNamed("Monospace");
    EXPECT_FALSE(form.OK());
    EXPECT_TRUE(form.chkShowSystemTables);
    EXPECT_EQ(form.Font().Name, "Monospace");
    settings.FailAtWrite = 0;
    EXPECT_TRUE(form.OK());
    EXPECT_EQ(settings.GetKeyValue("Options", "PreviewPaneFontName"), "Monospace");
}

TEST_F(Options, AskForAColourFromTheOneShown)
{
    frmOptions form = Load();
    dialogs.ColorChosen = 5;
    form.ChooseColor(OptionColor::Comment);
    form.ChooseColor(OptionColor::Comment);
    EXPECT_THAT(dialogs.ShownColors, ElementsAre(0x8000, 5));
    dialogs.ColorChosen = std::nullopt;
    form.ChooseColor(OptionColor::Comment);
    EXPECT_EQ(form.Shown(OptionColor::Comment), 5);
}

TEST_F(Options, AskForAFontFromTheOneShown)
{
    frmOptions form = Load();
    const PreviewFont chosen{.Name = "Serif", .Size = 20, .Bold = true};
    dialogs.FontChosen = chosen;
    form.ChooseFont();
    EXPECT_EQ(dialogs.ShownFonts.front(), PreviewFont{});
    dialogs.FontChosen = std::nullopt;
    form.ChooseFont();
    EXPECT_EQ(form.Font(), chosen);
    form.ResetFont();
    EXPECT_EQ(form.Font(), (PreviewFont{.Name = "Tahoma", .Size = 8, .Bold = false, .Italic = false}));
}

TEST_F(Options, ResetFourOfTheColours)
{
    dialogs.ColorChosen = 5;
    frmOptions form = Load();
    std::vector<Color> colors;
    for (const OptionColor which : kAllColors) {
        form.ChooseColor(which);
        form.ResetColor(which);
        colors.push_back(form.Shown(which));
    }
    EXPECT_THAT(colors, ElementsAre(0xFEF8F3, 0, 0xFF0000, static_cast<Color>(0x80000011U), 5, 5, 5));
}

TEST_F(Options, ResetTheHelpMessagesAtOnce)
{
    settings.SaveSetting("Help", "warnLoggingTable", "1");
    frmOptions form = Load();
    EXPECT_EQ(form.HelpMessages()[5].About, "The table of the application log");
    EXPECT_FALSE(form.HelpMessages()[5].Shown);
    form.ResetMessages();
    EXPECT_THAT(settings.GetAllSettings("Help"),
                ElementsAre(Pair("warnLoggingTable", "0"), Pair("warnDataTypeRegulation", "0"),
                            Pair("warnPreviewPaneFontChange", "0"), Pair("warnOpenDatasource", "0"),
                            Pair("warnSPsAsMethodsInPro", "0"), Pair("warnHelpMessages", "0")));
    for (const HelpMessageRow& row : form.HelpMessages())
        EXPECT_TRUE(row.Shown) << row.About;
}

TEST_F(Options, TellOnceTheHelpMessagesAreResetThatAllAreShownAgain)
{
    frmOptions form = Load();
    std::size_t toldBefore = 99;
    const Connection listening = form.HelpMessagesChanged.Connect([&] { toldBefore = warned.size(); });
    for (const char* value : {"", "1"}) {
        settings.SaveSetting("Help", "warnHelpMessages", value);
        warned.clear();
        form.ResetMessages();
        EXPECT_EQ(toldBefore, 0U);
        EXPECT_THAT(warned, ElementsAre("All help messages will be shown again.\r\n\r\n"
                                        "If you do not want to see one of them any more, click 'Do not show this "
                                        "message again' in its window before you click 'OK'."));
    }
}

TEST_F(Options, ReportHelpMessagesThatCanNotBeReset)
{
    settings.FailAtWrite = 3;
    settings.SaveSetting("Help", "warnDataTypeRegulation", "1");
    frmOptions form = Load();
    std::vector<bool> shownNow;
    const Connection listening =
        form.HelpMessagesChanged.Connect([&] { shownNow.push_back(form.HelpMessages().front().Shown); });
    form.ResetMessages();
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "cmdResetMessages_Click");
    EXPECT_THAT(shownNow, ElementsAre(true)); // the first was reset before
    EXPECT_THAT(warned, IsEmpty());
}

TEST_F(Options, NameAStoredValueThatIsNotOfItsKind)
{
    Store("PreviewPaneBackColor", "snow");
    EXPECT_EQ(Load().Shown(OptionColor::Background), 0xFEF8F3);
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Text,
              "The setting PreviewPaneBackColor in the section Options is 'snow', which "
              "is no colour: a 32-bit number, red in the low byte. The default is used.");
}

} // namespace
} // namespace veldrane
