#include "shell/main_window/frm_warning.h"

#include "shell/main_window/help_messages.h"
#include "support/failing_settings.h"
#include "support/recorded_errors.h"

#include <gmock/gmock.h>

#include <limits>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

// A person who ticks the box where there is one, and presses OK, unless the test says otherwise.
class FrmWarning : public ::testing::Test
{
  protected:
    void Meet(frmWarning& form)
    {
        Shown.push_back(form.lblMessage());
        Captions.emplace_back(form.Caption());
        HasBox.push_back(form.HasDoNotShow());
        WasTicked.push_back(form.chkDoNotShow);
        form.chkDoNotShow = Ticks;
        if (PressesOK)
            form.cmdOK_Click();
    }

    [[nodiscard]] auto Stored() const { return Settings.GetAllSettings(settings_section::kHelp); }

    testing::FailingSettings Settings;
    testing::RecordedErrors Errors;
    bool Ticks = true;
    bool PressesOK = true;
    std::vector<std::string> Shown;
    std::vector<std::string> Captions;
    std::vector<bool> HasBox;
    std::vector<bool> WasTicked;
    frmWarning Form{Settings, Errors, [this](frmWarning& form) { Meet(form); }};
};

// A help message by its number, and whether it can be turned off in its own window.
struct KnownMessage
{
    std::int32_t Id;
    const char* Name;
    const char* Caption;
    bool HasBox;
};

class EachHelpMessage : public FrmWarning, public ::testing::WithParamInterface<KnownMessage>
{};

TEST_P(EachHelpMessage, IsShownAsItsOwnAndTurnedOffByItsBox)
{
    const KnownMessage& known = GetParam();
    Form.DisplayWarning("First", known.Id);
    Form.DisplayWarning("Second", known.Id);
    EXPECT_EQ(Shown.size(), known.HasBox ? 1U : 2U);
    EXPECT_EQ(Captions.front(), known.Caption);
    EXPECT_EQ(HasBox.front(), known.HasBox);
    if (known.HasBox)
        EXPECT_THAT(Stored(), ElementsAre(Pair(known.Name, "1")));
    else
        EXPECT_EQ(Settings.Writes, 0);
}

TEST_P(EachHelpMessage, IsNotShownWhereItsValueIsOne)
{
    Settings.SaveSetting(settings_section::kHelp, GetParam().Name, "1");
    Form.DisplayWarning("Message", GetParam().Id);
    EXPECT_THAT(Shown, IsEmpty());
}

TEST_P(EachHelpMessage, IsShownWhereItsValueIsAnother)
{
    for (const char* value : {"0", "", " ", "01", "True"}) {
        Settings.SaveSetting(settings_section::kHelp, GetParam().Name, value);
        PressesOK = false;
        Form.DisplayWarning(value, GetParam().Id);
    }
    EXPECT_THAT(Shown, ElementsAre("0", "", " ", "01", "True"));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, EachHelpMessage,
    ::testing::Values(
        KnownMessage{warning_id::kDataTypeRegulation, "warnDataTypeRegulation", "Changing the data type of a property",
                     true},
        KnownMessage{warning_id::kPreviewPaneFontChange, "warnPreviewPaneFontChange",
                     "Changing the font of the preview", true},
        KnownMessage{warning_id::kOpenDatasource, "warnOpenDatasource", "Opening another data source", true},
        KnownMessage{warning_id::kSPsAsMethodsInPro, "warnSPsAsMethodsInPro", "Stored procedures as methods", true},
        KnownMessage{warning_id::kHelpMessages, "warnHelpMessages", "Showing all help messages again", false},
        KnownMessage{warning_id::kLoggingTable, "warnLoggingTable", "The table of the application log", true}),
    [](const auto& instance) { return std::string(instance.param.Name); });

TEST_F(FrmWarning, AMessageUnderAnotherNumberIsShownAndCanNotBeTurnedOff)
{
    for (const std::int32_t id :
         {6, 7, -1, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        Form.DisplayWarning("Message", id);
        EXPECT_EQ(Captions.back(), "Warning") << id;
        EXPECT_FALSE(HasBox.back()) << id;
    }
    EXPECT_EQ(Shown.size(), 5U);
    EXPECT_EQ(Settings.Writes, 0);
}

TEST_F(FrmWarning, OKWithoutATickWritesNothing)
{
    Ticks = false;
    Form.DisplayWarning("Message", warning_id::kOpenDatasource);
    EXPECT_EQ(Settings.Writes, 0);
}

TEST_F(FrmWarning, ClosingItWithATickWritesNothing)
{
    PressesOK = false;
    Form.DisplayWarning("Message", warning_id::kOpenDatasource);
    EXPECT_EQ(Settings.Writes, 0);
}

TEST_F(FrmWarning, TheBoxIsEmptyWheneverAMessageIsShown)
{
    PressesOK = false;
    Form.DisplayWarning("Message", warning_id::kOpenDatasource);
    Form.DisplayWarning("Message", warning_id::kLoggingTable);
    EXPECT_THAT(WasTicked, ElementsAre(false, false));
}

TEST_F(FrmWarning, ABoxThatCanNotBeKeptIsReportedAndTheMessageComesAgain)
{
    Settings.Fails = true;
    Form.DisplayWarning("First", warning_id::kOpenDatasource);
    ASSERT_EQ(Errors.Reported.size(), 1U);
    EXPECT_EQ(Errors.Reported[0].Place.ModuleName, "frmWarning");
    EXPECT_EQ(Errors.Reported[0].Place.RoutineName, "cmdOK_Click");
    EXPECT_EQ(Errors.Reported[0].Error.Description(), "/settings.ini: Permission denied");
    Form.DisplayWarning("Second", warning_id::kOpenDatasource);
    EXPECT_THAT(Shown, ElementsAre("First", "Second"));
}

} // namespace
} // namespace veldrane
